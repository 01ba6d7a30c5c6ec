#pragma once

#include "Velmora/geometry/PixelRect.h"
#include "Velmora/geometry/Rect.h"

#include <cstdint>
#include <functional>
#include <span>

namespace velmora {

class SharedFrames;

/// What the window system has to be told about the orb's window, which floats above all others on
/// every desktop and is transparent to the pointer outside its outline.
class DesktopPanel {
public:
    virtual ~DesktopPanel() = default;

    /// Takes the window in hand, once, after it was created and before it is first shown. `window`
    /// is the window system's own number or address for it.
    virtual void adopt(std::uintptr_t window) = 0;

    /// The window has just been shown: says anew what showing a window undoes.
    virtual void shown() = 0;

    /// Whether presses go through the whole window to what lies underneath. Only for systems that
    /// know no outline; the others need not do anything.
    virtual void setIgnoresPointer(bool ignores) = 0;

    /// Shows the system's own cursor for resizing at a window's lower right corner, where it has
    /// one that the toolkit does not know, for as long as the toolkit shows its own in that place.
    virtual void showResizeCursor() = 0;

    /// The window takes the pointer inside these rectangles and nowhere else. While nothing blends
    /// windows with what lies behind them, they also bound what of the window is visible. To be
    /// called again whenever the window's size or its scale has changed.
    virtual void setOutline(std::span<PixelRect const> outline) = 0;

    /// Whether the window's transparent pixels let what lies behind show through.
    [[nodiscard]] virtual bool translucent() const = 0;

    /// Memory whose pictures show in the adopted window; none where there is no such thing.
    [[nodiscard]] virtual SharedFrames* frames() { return nullptr; }

    /// Told when `translucent` has changed; at most one listener.
    std::function<void()> onTranslucency;

    /// Told where the pointer is, in desktop points, 30 times a second for as long as the window
    /// lives, on systems that tell it wherever it is; never on the others, where the window's own
    /// events do. At most one listener.
    std::function<void(Point)> onPointer;
};

} // namespace velmora
