#pragma once

#include "Velmora/geometry/Rect.h"

namespace velmora {

/// Where the pointer did something over the orb's panel.
struct PointerEvent {
    /// In the panel: desktop points, origin at its bottom-left corner, y up.
    Point window;
    /// On the desktop: points, y up.
    Point screen;
    /// The Option (Alt) key was held.
    bool option = false;
};

} // namespace velmora
