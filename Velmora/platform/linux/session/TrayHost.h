#pragma once

#include "Velmora/platform/linux/session/X11Watch.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>

namespace velmora {

/// Whether the desktop has a place for a status item now.
///
/// The toolkit chooses between the two kinds of tray once per process, when it is first asked for
/// an item, and never again. A host for status notifier items is reported at once; an X tray alone
/// only after a while, in which the better one may still come up.
class TrayHost final : public QObject {
    Q_OBJECT

public:
    /// `patience` is how long an X tray is given to be joined by a status notifier host.
    TrayHost(QDBusConnection sessionBus, X11Watch& x11,
        std::chrono::milliseconds patience = std::chrono::seconds(3));

    [[nodiscard]] bool available() const { return m_available; }

Q_SIGNALS:
    /// A place came, or the last one went.
    void availableChanged(bool available);

private Q_SLOTS:
    void askForNotifierHost();

private:
    void lookForTray();
    void update();

    QDBusConnection m_bus;
    QDBusServiceWatcher m_notifierWatcher;
    X11Watch& m_x11;
    QTimer m_patience;
    bool m_notifierHost = false;
    bool m_tray = false;
    bool m_waited = false;
    bool m_available = false;
};

} // namespace velmora
