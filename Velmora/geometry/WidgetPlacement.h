#pragma once

#include "Velmora/geometry/ScreenFrames.h"

#include <optional>
#include <span>

/// Where the orb may stand. Positions are the bottom-left corner of the orb's square, sizes its
/// side, all in desktop points.
namespace velmora::WidgetPlacement {

/// The share of the side that stays inside a display's visible frame, on each axis, at rest.
inline constexpr double launchVisibleFraction = 0.45;

/// The bottom-right corner of the visible frame, 28 points in from the right and 36 up.
[[nodiscard]] Point defaultOrigin(double size, Rect const& visible);

/// The resting bound: at least 45 % of the side stays visible on each axis. Where the frame is too
/// narrow for both bounds the upper one wins; a coordinate that is not a number is kept.
[[nodiscard]] Point clamp(Point origin, double size, Rect const& visible);

/// The bound while the orb is dragged: at most 35 % of the side hangs over any edge. Same order
/// and same handling of values that are not numbers as `clamp`.
[[nodiscard]] Point drag(Point origin, double size, Rect const& visible);

/// Where an orb belongs: its saved place, clamped to the first display whose frame holds its
/// centre, or else the default corner of the first display. With no display the fallback counts.
[[nodiscard]] Point origin(
    std::optional<Point> saved, bool hasSaved, double size, std::span<ScreenFrames const> screens);

} // namespace velmora::WidgetPlacement
