#include "Velmora/shell/LibraryNoise.h"

#include <QString>
#include <QtGlobal>

#include <cstdlib>

namespace velmora {

void quietLibraries()
{
    if (std::getenv("VELMORA_DEBUG"))
        return;
    qInstallMessageHandler([](QtMsgType, QMessageLogContext const&, QString const&) {});
}

} // namespace velmora
