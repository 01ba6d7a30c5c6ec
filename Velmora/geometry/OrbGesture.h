#pragma once

#include "Velmora/geometry/Rect.h"

#include <optional>

/// What presses, drags, wheel turns and pinches over the orb ask for.
namespace velmora::OrbGesture {

/// A drag begins once the pointer is this many points from the press.
inline constexpr double dragThreshold = 3.0;
/// A press that moved less than this many points can be a click.
inline constexpr double clickSlop = 4.0;
/// Clicks count in this upper share of the orb; the buttons sit below.
inline constexpr double clickShare = 0.62;

/// What a drag does; chosen at its first change and kept to its end.
enum class Drag {
    move,
    resize,
};

/// How far the pointer is from where it was pressed, in points; y grows downwards.
struct Translation {
    double x = 0;
    double y = 0;

    bool operator==(Translation const&) const = default;
};

[[nodiscard]] Drag chosen(bool optionHeld);

/// Whether the pointer has gone far enough for a drag to begin.
[[nodiscard]] bool begins(Translation t);

/// Where a moved panel goes, y up, before the displays' bounds apply.
[[nodiscard]] Point moved(Point origin, Translation t);

/// The side that a resizing drag asks for: right and down enlarge, left and up shrink.
[[nodiscard]] double resized(double startSize, Translation t);

/// Whether a finished press was a click. `startY` is the press's distance from the top of the orb
/// whose side is `size`; a side below one point counts as one.
[[nodiscard]] bool isClick(Translation t, bool resizing, double startY, double size);

/// A turn of the wheel or a stroke on a touchpad.
struct Scroll {
    /// Notches of a wheel, or points of a touchpad; positive is up.
    double delta = 0;
    bool precise = false;

    bool operator==(Scroll const&) const = default;
};

/// Tells notches from strokes. `angle` counts eighths of a degree, 120 to a notch; `points` is the
/// device's own fine measure where it has one. Wheels whose driver counts them finely as well still
/// turn by whole notches.
[[nodiscard]] Scroll scroll(double angle, std::optional<double> points);

/// The side that a scroll asks for: 8 points a notch, 0.6 a touchpad point.
[[nodiscard]] double scrolled(double size, Scroll s);

/// The side that one step of a pinch asks for; 0.1 is a tenth larger.
[[nodiscard]] double pinched(double size, double magnification);

} // namespace velmora::OrbGesture
