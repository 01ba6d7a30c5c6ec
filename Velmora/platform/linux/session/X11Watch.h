#pragma once

#include "Velmora/platform/linux/xcb/Xcb.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Watches who owns a desktop's roles on an X server (the tray, the settings), over a connection of
/// its own. Where there is no X server it answers "nobody" and says nothing.
class X11Watch final : public QObject {
    Q_OBJECT

public:
    /// Connects to the server that the environment names, or to `display`.
    explicit X11Watch(char const* display = nullptr, QObject* parent = nullptr);

    /// A role's full name on the watched screen: "_NET_SYSTEM_TRAY" gives "_NET_SYSTEM_TRAY_S0".
    [[nodiscard]] std::string roleOnScreen(std::string_view role) const;

    /// The window that owns a selection, which is watched from now on; none is `XCB_NONE`.
    [[nodiscard]] xcb_window_t owner(std::string_view selection);

    /// A property's bytes, whatever their type; empty when there is none.
    [[nodiscard]] std::vector<unsigned char> property(xcb_window_t window, std::string_view name);

Q_SIGNALS:
    /// A selection got an owner, an owner went, or an owner's property changed: look again.
    void changed();

private:
    void drain();
    void drainSoon();

    int m_screen = 0;
    xcb::Connection m_connection;
    std::unique_ptr<QSocketNotifier> m_readable;
    QTimer m_soon;
};

} // namespace velmora
