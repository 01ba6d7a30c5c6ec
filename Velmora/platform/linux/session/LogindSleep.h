#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusUnixFileDescriptor>
#include <QObject>

class QDBusPendingCallWatcher;

namespace velmora {

/// Tells when the machine goes to sleep and when it wakes, as the login manager announces it on the
/// system bus. Holds the machine back until the listeners of `willSleep` have returned.
class LogindSleep final : public QObject {
    Q_OBJECT

public:
    explicit LogindSleep(QDBusConnection systemBus, QObject* parent = nullptr);

    /// Whether the machine would wait for the listeners if it went to sleep now.
    [[nodiscard]] bool holdsBack() const { return m_inhibitor.isValid(); }

Q_SIGNALS:
    /// The machine is about to sleep; it does so when the directly connected listeners are done.
    void willSleep();
    /// The machine woke up.
    void didWake();

private Q_SLOTS:
    void prepareForSleep(bool start);

private:
    void holdBack();
    void keep(QDBusPendingCallWatcher* call);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_loginManager;
    QDBusUnixFileDescriptor m_inhibitor;
    bool m_sleeping = false;
};

} // namespace velmora
