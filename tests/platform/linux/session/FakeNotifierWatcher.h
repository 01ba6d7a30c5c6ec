#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace velmora {

/// The meeting place of status notifier items and hosts on a test's own bus.
class FakeNotifierWatcher final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER hostRegistered)

public:
    FakeNotifierWatcher(QDBusConnection const& bus, bool host)
        : hostRegistered(host)
        , m_bus(bus)
    {
        m_bus.registerObject(
            QStringLiteral("/StatusNotifierWatcher"), this, QDBusConnection::ExportAllProperties);
        m_bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
    }

    ~FakeNotifierWatcher() override
    {
        m_bus.unregisterService(QStringLiteral("org.kde.StatusNotifierWatcher"));
        m_bus.unregisterObject(QStringLiteral("/StatusNotifierWatcher"));
    }

    void setHost(bool host)
    {
        hostRegistered = host;
        m_bus.send(QDBusMessage::createSignal(QStringLiteral("/StatusNotifierWatcher"),
            QStringLiteral("org.kde.StatusNotifierWatcher"),
            host ? QStringLiteral("StatusNotifierHostRegistered")
                 : QStringLiteral("StatusNotifierHostUnregistered")));
    }

    bool hostRegistered;

private:
    QDBusConnection m_bus;
};

} // namespace velmora
