#include "Velmora/windows/FrameClock.h"

#include <QTimerEvent>

#include <utility>

namespace velmora {

namespace {

// Whole milliseconds, rounded up: a thirtieth and an eighth of a second are the least there may be
// between two frames.
constexpr int flowingInterval = 34;
constexpr int calmInterval = 125;

} // namespace

FrameClock::FrameClock(std::function<void()> onFrame)
    : m_onFrame(std::move(onFrame))
{
}

void FrameClock::setPace(Pace pace)
{
    if (pace == m_pace)
        return;
    m_pace = pace;
    if (running())
        start();
}

void FrameClock::set(Unseen reason, bool holds)
{
    auto const bit = static_cast<unsigned>(reason);
    m_unseen = holds ? m_unseen | bit : m_unseen & ~bit;
    if (m_unseen != 0) {
        m_timer.stop();
    } else if (!running()) {
        start();
        m_onFrame();
    }
}

void FrameClock::start()
{
    m_timer.start(m_pace == Pace::calm ? calmInterval : flowingInterval, Qt::PreciseTimer, this);
}

void FrameClock::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_timer.timerId())
        m_onFrame();
}

} // namespace velmora
