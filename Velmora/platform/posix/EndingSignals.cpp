#include "Velmora/platform/posix/EndingSignals.h"

#include <unistd.h>

namespace velmora {

namespace {

extern "C" void leave(int /*number*/)
{
    _exit(0);
}

} // namespace

void leaveOnEndingSignals()
{
    for (int const signal : endingSignals)
        std::signal(signal, leave);
}

} // namespace velmora
