#pragma once

#include <QBasicTimer>
#include <QObject>

#include <functional>

namespace velmora {

/// The one clock of everything that moves in the orb. It stands still while nobody could see a
/// frame.
class FrameClock final : public QObject {
    Q_OBJECT

public:
    /// Why there is nobody to see a frame.
    enum class Unseen : unsigned {
        hidden = 1,
        sessionLocked = 2,
        displayAsleep = 4,
    };

    enum class Pace {
        /// At most 30 frames a second.
        flowing,
        /// 8 frames a second: enough for a slow pulse, for those who asked for less motion.
        calm,
    };

    /// Starts hidden.
    explicit FrameClock(std::function<void()> onFrame);

    void setPace(Pace pace);
    /// Sets or lifts one reason to stand still. Lifting the last one gives a frame at once.
    void set(Unseen reason, bool holds);
    [[nodiscard]] bool running() const { return m_timer.isActive(); }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void start();

    std::function<void()> m_onFrame;
    QBasicTimer m_timer;
    unsigned m_unseen = static_cast<unsigned>(Unseen::hidden);
    Pace m_pace = Pace::flowing;
};

} // namespace velmora
