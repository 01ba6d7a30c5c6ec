#include "Velmora/platform/linux/session/LogindSleep.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace velmora {

namespace {

QString service()
{
    return QStringLiteral("org.freedesktop.login1");
}

QString managerPath()
{
    return QStringLiteral("/org/freedesktop/login1");
}

QString managerInterface()
{
    return QStringLiteral("org.freedesktop.login1.Manager");
}

} // namespace

LogindSleep::LogindSleep(QDBusConnection systemBus, QObject* parent)
    : QObject(parent)
    , m_bus(std::move(systemBus))
    , m_loginManager(service(), m_bus, QDBusServiceWatcher::WatchForRegistration)
{
    if (!m_bus.isConnected())
        return;
    m_bus.connect(service(), managerPath(), managerInterface(), QStringLiteral("PrepareForSleep"),
        this, SLOT(prepareForSleep(bool)));
    // A login manager that starts anew has forgotten whom to wait for.
    connect(&m_loginManager, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        m_sleeping = false;
        holdBack();
    });
    holdBack();
}

void LogindSleep::holdBack()
{
    auto call = QDBusMessage::createMethodCall(
        service(), managerPath(), managerInterface(), QStringLiteral("Inhibit"));
    call << QStringLiteral("sleep") << QStringLiteral("Velmora")
         << tr("Saves the time to the next reminder") << QStringLiteral("delay");
    call.setAutoStartService(false);
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &LogindSleep::keep);
}

void LogindSleep::keep(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    QDBusPendingReply<QDBusUnixFileDescriptor> const reply = *call;
    // An answer that comes when the machine is on its way to sleep would only hold it up.
    if (!reply.isError() && !m_sleeping)
        m_inhibitor = reply.value();
}

void LogindSleep::prepareForSleep(bool start)
{
    m_sleeping = start;
    if (start) {
        Q_EMIT willSleep();
        m_inhibitor = {};
    } else {
        Q_EMIT didWake();
        holdBack();
    }
}

} // namespace velmora
