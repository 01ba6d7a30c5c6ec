#pragma once

#include "Velmora/platform/linux/xcb/Xcb.h"

#include <QSocketNotifier>

#include <cstdint>
#include <memory>

namespace velmora {

/// Keeps one window of an X server above all windows of the window manager.
///
/// Most window managers leave a window that they do not manage where it is, above theirs. Where one
/// does not, or where there is none, a window that is shown or raised later would cover it. The
/// server tells of both, over a connection of its own that is silent while nothing is restacked.
/// Windows that nobody manages are left alone: menus, and the covers that lock a screen.
class X11Stacking final {
public:
    /// Connects to the server that the environment names, or to `display`. Without one nothing is
    /// kept anywhere.
    explicit X11Stacking(char const* display = nullptr);
    ~X11Stacking();
    X11Stacking(X11Stacking const&) = delete;
    X11Stacking& operator=(X11Stacking const&) = delete;
    X11Stacking(X11Stacking&&) = delete;
    X11Stacking& operator=(X11Stacking&&) = delete;

    /// The window to keep above the others, from the next restacking on.
    void keepAbove(std::uint32_t window);

private:
    void drain();
    void riseOver(std::uint32_t sibling);

    xcb::Connection m_connection;
    std::unique_ptr<QSocketNotifier> m_readable;
    std::uint32_t m_window = 0;
};

} // namespace velmora
