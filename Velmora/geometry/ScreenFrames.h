#pragma once

#include "Velmora/geometry/Rect.h"

namespace velmora {

/// One display's area, in desktop points.
struct ScreenFrames {
    /// The whole display.
    Rect frame;
    /// The part that no panel or dock covers.
    Rect visible;

    bool operator==(ScreenFrames const&) const = default;
};

/// What stands in for both frames when no display is known.
inline constexpr Rect fallbackDisplay = {.x = 0, .y = 0, .width = 1440, .height = 900};

} // namespace velmora
