#include "Velmora/windows/DisplayPowerWatch.h"

#include "Velmora/platform/DisplayPower.h"
#include "Velmora/windows/FrameClock.h"

#include <chrono>

namespace velmora {

DisplayPowerWatch::DisplayPowerWatch(DisplayPower& power, FrameClock& clock)
{
    connect(&m_timer, &QTimer::timeout, this,
        [&power, &clock] { clock.set(FrameClock::Unseen::displayAsleep, power.asleep()); });
    m_timer.setTimerType(Qt::CoarseTimer);
    m_timer.start(std::chrono::seconds(1));
}

} // namespace velmora
