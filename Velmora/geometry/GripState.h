#pragma once

#include "Velmora/geometry/Rect.h"

namespace velmora {

/// The resize grip's hover and drag, as a value: what each event makes of it and what it does to
/// the cursor.
struct GripState {
    /// The pointer is over the grip.
    bool hovering = false;
    /// The button went down on the grip and is still held.
    bool dragging = false;
    /// The orb's side when the drag began.
    double startSize = 0;
    /// Where the drag began, in desktop points, y up.
    Point startScreen;

    bool operator==(GripState const&) const = default;

    /// Drawn in its stronger colours; a drag that runs off the grip stays lit.
    [[nodiscard]] bool highlighted() const { return hovering || dragging; }
};

enum class GripCursor {
    unchanged,
    arrow,
    resize,
};

/// A grip's next state, and the cursor that comes with it.
struct GripChange {
    GripState state;
    GripCursor cursor = GripCursor::unchanged;

    bool operator==(GripChange const&) const = default;
};

/// The pointer is over the grip or is not. A drag keeps its cursor wherever the pointer goes.
[[nodiscard]] GripChange gripHovered(GripState state, bool over);
/// The button went down on the grip while the orb's side was `size`.
[[nodiscard]] GripChange gripPressed(GripState state, double size, Point screen);
/// The desktop's origin is somewhere else now: every place counts by so much more.
[[nodiscard]] GripState gripShifted(GripState state, Point by);
/// The button was released, inside the grip's square or outside it.
[[nodiscard]] GripChange gripReleased(GripState state, bool inside);
/// The side that a drag to `screen` asks for, measured from the drag's start: right and down
/// enlarge, left and up shrink, and the two axes add up.
[[nodiscard]] double gripSize(GripState const& state, Point screen);

} // namespace velmora
