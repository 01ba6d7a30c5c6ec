#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QObject>

#include <map>
#include <string>
#include <utility>

namespace velmora {

/// The desktop portal's settings on a test's own bus.
class FakePortal final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit FakePortal(QDBusConnection const& bus)
        : m_bus(bus)
    {
        m_bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
            QDBusConnection::ExportAllSlots);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    void change(std::string const& area, std::string const& key, QVariant const& value)
    {
        settings[{area, key}] = value;
        auto message = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
            QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
        message << QString::fromStdString(area) << QString::fromStdString(key)
                << QVariant::fromValue(QDBusVariant(value));
        m_bus.send(message);
    }

    std::map<std::pair<std::string, std::string>, QVariant> settings;
    int asked = 0;

public Q_SLOTS:
    QDBusVariant Read(QString const& area, QString const& key) // NOLINT: the bus's name
    {
        ++asked;
        auto const at = settings.find({area.toStdString(), key.toStdString()});
        if (at == settings.end()) {
            sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
                QStringLiteral("Requested setting not found"));
            return {};
        }
        // The portal wraps the value twice.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(at->second)));
    }

private:
    QDBusConnection m_bus;
};

} // namespace velmora
