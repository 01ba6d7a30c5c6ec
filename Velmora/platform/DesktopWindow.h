#pragma once

#include <cstdint>

namespace velmora {

/// What the window system has to be told about an ordinary window of a program that lives in no
/// window list.
class DesktopWindow {
public:
    virtual ~DesktopWindow() = default;

    /// The window is on every desktop and in no taskbar or pager. `window` is the window system's
    /// own number or address for it; to be called after each showing, because hiding a window ends
    /// it.
    virtual void joinEveryDesktop(std::uintptr_t window) = 0;
};

} // namespace velmora
