#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <QObject>
#include <QVariantMap>

#include <array>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace velmora {

/// The login manager of a test's own bus.
class FakeLogind final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

public:
    explicit FakeLogind(QDBusConnection const& bus)
        : m_bus(bus)
    {
        appear();
    }
    ~FakeLogind() override
    {
        for (int const end : inhibitors)
            close(end);
    }

    void appear()
    {
        m_bus.registerObject(
            QStringLiteral("/org/freedesktop/login1"), this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(QStringLiteral("org.freedesktop.login1"));
    }

    void disappear() { m_bus.unregisterService(QStringLiteral("org.freedesktop.login1")); }

    void prepareForSleep(bool start)
    {
        auto message = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/login1"),
            QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForSleep"));
        message << start;
        m_bus.send(message);
    }

    /// Whether a program holds the latest inhibitor that was given out.
    [[nodiscard]] bool isHeldBack() const
    {
        if (inhibitors.empty())
            return false;
        pollfd end{.fd = inhibitors.back(), .events = 0, .revents = 0};
        poll(&end, 1, 0);
        return (end.revents & POLLHUP) == 0;
    }

    /// This side's end of every inhibitor that was given out, and what it was for.
    std::vector<int> inhibitors;
    QStringList asked;

public Q_SLOTS:
    QDBusUnixFileDescriptor Inhibit( // NOLINT: the bus's name
        QString const& what, QString const& who, QString const& why, QString const& mode)
    {
        asked = {what, who, why, mode};
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            return {};
        QDBusUnixFileDescriptor const given(ends[1]);
        close(ends[1]);
        inhibitors.push_back(ends[0]);
        return given;
    }

    QDBusObjectPath GetSession(QString const& /*name*/) // NOLINT: the bus's name
    {
        return QDBusObjectPath(QStringLiteral("/org/freedesktop/login1/session/_31"));
    }

private:
    QDBusConnection m_bus;
};

/// The user's session of the fake login manager.
class FakeLoginSession final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Session")
    Q_PROPERTY(bool LockedHint MEMBER lockedHint)

public:
    explicit FakeLoginSession(QDBusConnection const& bus)
        : m_bus(bus)
    {
        m_bus.registerObject(QStringLiteral("/org/freedesktop/login1/session/_31"), this,
            QDBusConnection::ExportAllProperties);
    }

    void setLocked(bool locked)
    {
        lockedHint = locked;
        auto message = QDBusMessage::createSignal(
            QStringLiteral("/org/freedesktop/login1/session/_31"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
        message << QStringLiteral("org.freedesktop.login1.Session")
                << QVariantMap{{QStringLiteral("LockedHint"), locked}} << QStringList();
        m_bus.send(message);
    }

    bool lockedHint = false;

private:
    QDBusConnection m_bus;
};

} // namespace velmora
