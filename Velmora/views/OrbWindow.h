#pragma once

#include "Velmora/geometry/Rect.h"
#include "Velmora/platform/Displays.h"

#include <optional>

namespace velmora {

/// The window that shows the orb, as its views see it.
class OrbWindow {
public:
    virtual ~OrbWindow() = default;

    /// The window's square in desktop points, y up; as it was set, fractions and all.
    [[nodiscard]] virtual Rect frame() const = 0;
    /// Moves the window's bottom-left corner.
    virtual void setFrameOrigin(Point origin) = 0;
    /// The display that holds most of the window; absent when none does.
    [[nodiscard]] virtual std::optional<DisplayId> display() const = 0;
    /// What a panel or dock leaves free of that display or, failing that, of the main one.
    [[nodiscard]] virtual std::optional<Rect> visibleFrame() const = 0;
};

} // namespace velmora
