#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace velmora {

/// Whether the user's session is locked, as the login manager or the desktop's screen saver says.
class SessionLock final : public QObject {
    Q_OBJECT

public:
    SessionLock(QDBusConnection systemBus, QDBusConnection sessionBus, QObject* parent = nullptr);

    /// From memory; false while nobody knows.
    [[nodiscard]] bool locked() const { return m_hinted || m_saverActive; }

Q_SIGNALS:
    void lockedChanged(bool locked);

private Q_SLOTS:
    void propertiesChanged(QDBusMessage const& message);
    void saverActiveChanged(bool active);

private:
    void findSession();
    void followSession(QString const& path);
    void set(bool& fact, bool value);

    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    bool m_hinted = false;
    bool m_saverActive = false;
};

} // namespace velmora
