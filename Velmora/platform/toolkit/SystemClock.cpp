#include "Velmora/platform/toolkit/SystemClock.h"

#include <chrono>

namespace velmora {

double SystemClock::now() const
{
    std::chrono::duration<double> const since1970
        = std::chrono::system_clock::now().time_since_epoch();
    return since1970.count() - referenceDateSince1970;
}

} // namespace velmora
