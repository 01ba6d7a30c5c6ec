#include "Velmora/shell/LibraryNoise.h"

#include <QString>
#include <QtGlobal>

namespace velmora {

void quietLibraries()
{
    if (qEnvironmentVariableIsSet("VELMORA_DEBUG"))
        return;
    // The sound server's library complains on standard error unless it is told where else.
    if (!qEnvironmentVariableIsSet("PULSE_LOG_SYSLOG"))
        qputenv("PULSE_LOG_SYSLOG", "1");
    qInstallMessageHandler([](QtMsgType, QMessageLogContext const&, QString const&) {});
}

} // namespace velmora
