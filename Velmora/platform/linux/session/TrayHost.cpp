#include "Velmora/platform/linux/session/TrayHost.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <array>
#include <cstring>
#include <utility>

namespace velmora {

namespace {

QString watcherService()
{
    return QStringLiteral("org.kde.StatusNotifierWatcher");
}

QString watcherPath()
{
    return QStringLiteral("/StatusNotifierWatcher");
}

} // namespace

TrayHost::TrayHost(QDBusConnection sessionBus, X11Watch& x11, std::chrono::milliseconds patience)
    : m_bus(std::move(sessionBus))
    , m_notifierWatcher(watcherService(), m_bus, QDBusServiceWatcher::WatchForOwnerChange)
    , m_x11(x11)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        m_waited = true;
        update();
    });
    connect(&m_x11, &X11Watch::changed, this, &TrayHost::lookForTray);
    if (m_bus.isConnected()) {
        connect(&m_notifierWatcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            &TrayHost::askForNotifierHost);
        for (auto const& signal : {QStringLiteral("StatusNotifierHostRegistered"),
                 QStringLiteral("StatusNotifierHostUnregistered")})
            m_bus.connect(watcherService(), watcherPath(), watcherService(), signal, this,
                SLOT(askForNotifierHost()));
        askForNotifierHost();
    } else {
        m_waited = true;
    }
    lookForTray();
}

void TrayHost::askForNotifierHost()
{
    auto call = QDBusMessage::createMethodCall(watcherService(), watcherPath(),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << watcherService() << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
        [this](QDBusPendingCallWatcher* finished) {
            finished->deleteLater();
            QDBusPendingReply<QDBusVariant> const reply = *finished;
            m_notifierHost = !reply.isError() && reply.value().variant().toBool();
            update();
        });
}

void TrayHost::lookForTray()
{
    auto const tray = m_x11.owner(m_x11.roleOnScreen("_NET_SYSTEM_TRAY"));
    m_tray = tray != XCB_NONE;
    auto const ink
        = m_tray ? trayInk(m_x11.property(tray, "_NET_SYSTEM_TRAY_COLORS")) : std::nullopt;
    if (ink != std::exchange(m_ink, ink))
        Q_EMIT inkChanged();
    update();
}

void TrayHost::update()
{
    if (m_tray && !m_waited && !m_patience.isActive())
        m_patience.start();
    bool const now = m_notifierHost || (m_tray && m_waited);
    if (now != std::exchange(m_available, now))
        Q_EMIT availableChanged(now);
}

std::optional<TrayInk> trayInk(std::span<unsigned char const> property)
{
    std::array<std::uint32_t, 12> numbers{};
    if (property.size() < sizeof numbers)
        return std::nullopt;
    std::memcpy(numbers.data(), property.data(), sizeof numbers);
    auto const part = [&](std::size_t at) { return static_cast<std::uint16_t>(numbers.at(at)); };
    return TrayInk{.red = part(0), .green = part(1), .blue = part(2)};
}

} // namespace velmora
