#pragma once

#include <array>

namespace velmora {

/// A place in a view: y grows downwards.
struct OrbPoint {
    double x = 0;
    double y = 0;

    bool operator==(OrbPoint const&) const = default;
};

/// A rectangle in a view, given by its top-left corner: y grows downwards.
struct OrbRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    bool operator==(OrbRect const&) const = default;
};

/// One cubic Bézier piece; it starts where the piece before it ends.
struct CubicSegment {
    OrbPoint control1;
    OrbPoint control2;
    OrbPoint end;

    bool operator==(CubicSegment const&) const = default;
};

/// A closed outline: the last segment ends on `start`, with a continuous tangent everywhere.
struct BlobOutline {
    OrbPoint start;
    std::array<CubicSegment, 8> segments;

    bool operator==(BlobOutline const&) const = default;
};

/// The wobbling, roughly round outline inside `rect` at `phase` radians.
///
/// It is sized by the shorter side and centred; it reaches 0.39 to 0.85 of half that side. Eight
/// points at equal angles, clockwise on screen from straight up, are joined by a uniform
/// Catmull-Rom spline. An empty rectangle gives nine equal points. Not periodic in the phase, and
/// finite in a finite rectangle at any phase.
[[nodiscard]] BlobOutline organicBlobOutline(OrbRect const& rect, double phase);

/// The outline as a shape that animates: interpolating two blobs interpolates their phases.
struct OrganicBlob {
    /// Radians.
    double phase = 0;

    [[nodiscard]] BlobOutline path(OrbRect const& rect) const
    {
        return organicBlobOutline(rect, phase);
    }

    bool operator==(OrganicBlob const&) const = default;
};

/// The blob on the way from `from` to `to`; `progress` is 0 at `from` and 1 at `to`.
[[nodiscard]] OrganicBlob interpolated(OrganicBlob from, OrganicBlob to, double progress);

} // namespace velmora
