#include "Velmora/shell/SystemObservers.h"

#include "Velmora/platform/PlatformServices.h"
#include "Velmora/shell/AppDelegate.h"

#include <QColor>
#include <QGuiApplication>
#include <QPointer>
#include <QSessionManager>

#include <optional>

namespace velmora {

namespace {

std::optional<QColor> colour(std::optional<StatusInk> const& ink)
{
    if (!ink)
        return std::nullopt;
    return QColor(ink->red, ink->green, ink->blue);
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

void observeSystem(PlatformServices& system, AppDelegate& delegate)
{
    // The toolkit drops the connections of a receiver that is gone; so do these.
    QPointer<AppDelegate> const to(&delegate);
    auto const call = [to](auto operation) {
        return [to, operation](auto const&... news) {
            if (to)
                (to->*operation)(news...);
        };
    };
    system.listen({.focusRequested = call(&AppDelegate::takeFocusRequest),
        .willSleep = call(&AppDelegate::willSleep),
        .didWake = call(&AppDelegate::didWake),
        .sessionLocked = call(&AppDelegate::sessionLocked),
        .displaysChanged = call(&AppDelegate::displaysChanged),
        .trayAvailable = call(&AppDelegate::trayAvailable),
        .statusInkChanged =
            [to](std::optional<StatusInk> const& ink) {
                if (to)
                    to->trayInkChanged(colour(ink));
            },
        .reopened = call(&AppDelegate::reopened),
        .settingsRequested = call(&AppDelegate::openSettings),
        .endRequested = &AppDelegate::terminate});
    followSessionManager(delegate);
}

} // namespace velmora
