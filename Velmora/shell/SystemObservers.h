#pragma once

#include "Velmora/platform/linux/session/LogindSleep.h"
#include "Velmora/platform/linux/session/SessionFocus.h"
#include "Velmora/platform/linux/session/SessionLock.h"
#include "Velmora/platform/linux/session/TrayHost.h"

#include <QDBusConnection>

namespace velmora {

class AppDelegate;
class X11Watch;

/// What the program hears from the system while it runs, passed on to the delegate.
class SystemObservers {
public:
    SystemObservers(AppDelegate& delegate, QDBusConnection const& sessionBus,
        QDBusConnection const& systemBus, X11Watch& x11);

private:
    FocusReceiver m_focus;
    LogindSleep m_sleep;
    SessionLock m_lock;
    TrayHost m_tray;
};

} // namespace velmora
