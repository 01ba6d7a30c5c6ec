#pragma once

#include "Velmora/geometry/PixelRect.h"
#include "Velmora/geometry/Rect.h"

#include <vector>

/// Which points of the orb's panel belong to the orb, to its resize grip, or to whatever lies
/// underneath. Points are in the container's coordinates: desktop points, origin at the bottom-left
/// corner, y up.
namespace velmora::OrbHitArea {

enum class Part {
    /// A transparent corner: the pointer reaches what lies underneath.
    nothing,
    orb,
    grip,
};

/// The disc's radius as a share of the shorter side. A little more than half, so that the orb's
/// wobbling rim can be clicked.
inline constexpr double discShare = 0.52;

/// Radius of the disc that belongs to the orb.
[[nodiscard]] double discRadius(Size bounds);

/// The grip's square: the bottom-right corner, one point in from both edges.
[[nodiscard]] Rect gripFrame(Size bounds);

/// Whether the grip owns a point, given in the grip's own coordinates. It owns its right and bottom
/// halves; its top-left quarter is left to the orb.
[[nodiscard]] bool gripClaims(Point p, Size grip);

/// Who owns a point. The grip comes before the disc, and nobody owns a point outside the bounds.
[[nodiscard]] Part at(Point p, Size bounds);

/// Whether a press starts a gesture or can be a click: the point lies in the circle inscribed in
/// the bounds, edge included. A press between this circle and the disc is taken and does nothing.
[[nodiscard]] bool insideContent(Point p, Size bounds);

/// The device pixels whose centres are owned by the orb or the grip, as rectangles that do not
/// overlap, ordered by y and then x. `scale` is device pixels per point; a scale that is not
/// positive gives nothing.
[[nodiscard]] std::vector<PixelRect> outline(Size bounds, double scale);

} // namespace velmora::OrbHitArea
