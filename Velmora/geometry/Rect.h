#pragma once

namespace velmora {

/// A place on the desktop, in desktop points: the origin is the bottom-left corner of the primary
/// display and y grows upwards.
struct Point {
    double x = 0;
    double y = 0;

    bool operator==(Point const&) const = default;
};

/// A width and a height in desktop points.
struct Size {
    double width = 0;
    double height = 0;

    bool operator==(Size const&) const = default;
};

/// A rectangle in desktop points, given by its bottom-left corner.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] constexpr double minX() const { return x; }
    [[nodiscard]] constexpr double minY() const { return y; }
    [[nodiscard]] constexpr double maxX() const { return x + width; }
    [[nodiscard]] constexpr double maxY() const { return y + height; }
    [[nodiscard]] constexpr double midX() const { return x + width / 2; }
    [[nodiscard]] constexpr double midY() const { return y + height / 2; }
    [[nodiscard]] constexpr Point origin() const { return {.x = x, .y = y}; }

    /// Half-open: the left and bottom edges are inside, the right and top edges are not.
    [[nodiscard]] constexpr bool contains(Point p) const
    {
        return p.x >= minX() && p.x < maxX() && p.y >= minY() && p.y < maxY();
    }

    bool operator==(Rect const&) const = default;
};

/// The Euclidean distance between two points, in desktop points.
[[nodiscard]] double distance(Point a, Point b);

} // namespace velmora
