#pragma once

#include <QObject>
#include <QTimer>

namespace velmora {

class DisplayPower;
class FrameClock;

/// Lets the frame clock stand still while the displays are dark, asking once a second.
class DisplayPowerWatch final : public QObject {
    Q_OBJECT

public:
    /// Both outlive the watch.
    DisplayPowerWatch(DisplayPower& power, FrameClock& clock);

private:
    QTimer m_timer;
};

} // namespace velmora
