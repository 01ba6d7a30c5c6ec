#pragma once

#include "Velmora/platform/linux/session/X11Watch.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>

namespace velmora {

/// The colour in which a tray wants its symbols drawn; each part is 0 to 65535.
struct TrayInk {
    std::uint16_t red = 0;
    std::uint16_t green = 0;
    std::uint16_t blue = 0;

    bool operator==(TrayInk const&) const = default;
};

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

    /// The colour for symbols, light on a dark panel and dark on a light one; absent where the tray
    /// does not tell.
    [[nodiscard]] std::optional<TrayInk> ink() const { return m_ink; }

Q_SIGNALS:
    /// A place came, or the last one went.
    void availableChanged(bool available);
    /// The tray has other colours.
    void inkChanged();

private Q_SLOTS:
    void askForNotifierHost();

private:
    void lookForTray();
    void update();

    QDBusConnection m_bus;
    QDBusServiceWatcher m_notifierWatcher;
    X11Watch& m_x11;
    QTimer m_patience;
    std::optional<TrayInk> m_ink;
    bool m_notifierHost = false;
    bool m_tray = false;
    bool m_waited = false;
    bool m_available = false;
};

/// The colour for ordinary symbols in a tray's `_NET_SYSTEM_TRAY_COLORS` property: four colours of
/// three 32-bit numbers in the machine's byte order, the ordinary one first. Absent when it is cut
/// short.
[[nodiscard]] std::optional<TrayInk> trayInk(std::span<unsigned char const> property);

} // namespace velmora
