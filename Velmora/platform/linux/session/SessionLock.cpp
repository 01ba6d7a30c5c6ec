#include "Velmora/platform/linux/session/SessionLock.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

#include <utility>

namespace velmora {

namespace {

QString loginManager()
{
    return QStringLiteral("org.freedesktop.login1");
}

QString sessionInterface()
{
    return QStringLiteral("org.freedesktop.login1.Session");
}

QString lockedHint()
{
    return QStringLiteral("LockedHint");
}

QString screenSaver()
{
    return QStringLiteral("org.freedesktop.ScreenSaver");
}

/// Calls without starting the service and hands a good answer's first value to `use`.
template <typename Value, typename Use>
void ask(QDBusConnection const& bus, QDBusMessage call, QObject* context, Use use)
{
    call.setAutoStartService(false);
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
        [use = std::move(use)](QDBusPendingCallWatcher* finished) {
            finished->deleteLater();
            QDBusPendingReply<Value> const reply = *finished;
            if (!reply.isError())
                use(reply.value());
        });
}

} // namespace

SessionLock::SessionLock(QDBusConnection systemBus, QDBusConnection sessionBus, QObject* parent)
    : QObject(parent)
    , m_systemBus(std::move(systemBus))
    , m_sessionBus(std::move(sessionBus))
{
    if (m_systemBus.isConnected())
        findSession();
    if (!m_sessionBus.isConnected())
        return;
    // Desktops put the object at either path; whoever speaks, speaks for the screen saver.
    m_sessionBus.connect(QString(), QString(), screenSaver(), QStringLiteral("ActiveChanged"), this,
        SLOT(saverActiveChanged(bool)));
    ask<bool>(m_sessionBus,
        QDBusMessage::createMethodCall(screenSaver(),
            QStringLiteral("/org/freedesktop/ScreenSaver"), screenSaver(),
            QStringLiteral("GetActive")),
        this, [this](bool active) { set(m_saverActive, active); });
}

void SessionLock::findSession()
{
    auto call
        = QDBusMessage::createMethodCall(loginManager(), QStringLiteral("/org/freedesktop/login1"),
            QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("GetSession"));
    call << qEnvironmentVariable("XDG_SESSION_ID", QStringLiteral("auto"));
    ask<QDBusObjectPath>(m_systemBus, call, this,
        [this](QDBusObjectPath const& path) { followSession(path.path()); });
}

void SessionLock::followSession(QString const& path)
{
    auto const properties = QStringLiteral("org.freedesktop.DBus.Properties");
    m_systemBus.connect(loginManager(), path, properties, QStringLiteral("PropertiesChanged"), this,
        SLOT(propertiesChanged(QDBusMessage)));
    auto call
        = QDBusMessage::createMethodCall(loginManager(), path, properties, QStringLiteral("Get"));
    call << sessionInterface() << lockedHint();
    ask<QVariant>(
        m_systemBus, call, this, [this](QVariant const& value) { set(m_hinted, value.toBool()); });
}

void SessionLock::propertiesChanged(QDBusMessage const& message)
{
    auto const arguments = message.arguments();
    if (arguments.value(0).toString() != sessionInterface())
        return;
    auto const changed = qdbus_cast<QVariantMap>(arguments.value(1));
    if (changed.contains(lockedHint()))
        set(m_hinted, changed.value(lockedHint()).toBool());
}

void SessionLock::saverActiveChanged(bool active)
{
    set(m_saverActive, active);
}

void SessionLock::set(bool& fact, bool value)
{
    bool const before = locked();
    fact = value;
    if (locked() != before)
        Q_EMIT lockedChanged(locked());
}

} // namespace velmora
