#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace velmora {

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into a signal of the event
/// loop. One object lives at a time; afterwards the signals end the process at once, with status 0.
class UnixSignals final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UnixSignals)

public:
    explicit UnixSignals(QObject* parent = nullptr);
    ~UnixSignals() override;

Q_SIGNALS:
    /// The program is to save and end.
    void endRequested();

private:
    void receive();

    QSocketNotifier m_arrived;
};

} // namespace velmora
