#include "Velmora/shell/SystemObservers.h"

#include "Velmora/shell/AppDelegate.h"

#include <QColor>
#include <QGuiApplication>
#include <QSessionManager>

#include <optional>

namespace velmora {

namespace {

std::optional<QColor> colour(std::optional<TrayInk> const& ink)
{
    if (!ink)
        return std::nullopt;
    return QColor(qRgb(ink->red >> 8U, ink->green >> 8U, ink->blue >> 8U));
}

void followSessionManager(AppDelegate& delegate)
{
    auto const* const application = qGuiApp;
    QObject::connect(application, &QGuiApplication::commitDataRequest, &delegate,
        [&delegate](QSessionManager&) { delegate.sessionEnds(); });
    // Whether the program starts with the next session is the user's setting to decide.
    QObject::connect(application, &QGuiApplication::saveStateRequest, &delegate,
        [](QSessionManager& manager) { manager.setRestartHint(QSessionManager::RestartNever); });
}

} // namespace

SystemObservers::SystemObservers(AppDelegate& delegate, QDBusConnection const& sessionBus,
    QDBusConnection const& systemBus, X11Watch& x11)
    : m_focus(sessionBus)
    , m_sleep(systemBus)
    , m_lock(systemBus, sessionBus)
    , m_tray(sessionBus, x11)
{
    QObject::connect(
        &m_focus, &FocusReceiver::requested, &delegate, &AppDelegate::takeFocusRequest);
    QObject::connect(&m_sleep, &LogindSleep::willSleep, &delegate, &AppDelegate::willSleep);
    QObject::connect(&m_sleep, &LogindSleep::didWake, &delegate, &AppDelegate::didWake);
    QObject::connect(&m_lock, &SessionLock::lockedChanged, &delegate, &AppDelegate::sessionLocked);
    QObject::connect(&m_tray, &TrayHost::availableChanged, &delegate, &AppDelegate::trayAvailable);
    QObject::connect(&m_tray, &TrayHost::inkChanged, &delegate,
        [this, &delegate] { delegate.trayInkChanged(colour(m_tray.ink())); });
    delegate.trayInkChanged(colour(m_tray.ink()));
    followSessionManager(delegate);
}

} // namespace velmora
