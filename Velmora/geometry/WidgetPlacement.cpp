#include "Velmora/geometry/WidgetPlacement.h"

#include <algorithm>
#include <cmath>

namespace velmora {

double distance(Point a, Point b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

namespace WidgetPlacement {

namespace {

constexpr double defaultRightMargin = 28.0;
constexpr double defaultBottomMargin = 36.0;
constexpr double dragNearEdge = 0.35;
constexpr double dragFarEdge = 0.65;

/// Lower bound first, upper bound second; both keep a value that is not a number.
double bounded(double value, double low, double high)
{
    value = value < low ? low : value;
    return value > high ? high : value;
}

} // namespace

Point defaultOrigin(double size, Rect const& visible)
{
    return {
        .x = visible.maxX() - size - defaultRightMargin, .y = visible.minY() + defaultBottomMargin};
}

Point clamp(Point origin, double size, Rect const& visible)
{
    double const kept = size * launchVisibleFraction;
    return {.x = bounded(origin.x, visible.minX() - size + kept, visible.maxX() - kept),
        .y = bounded(origin.y, visible.minY() - size + kept, visible.maxY() - kept)};
}

Point drag(Point origin, double size, Rect const& visible)
{
    double const over = dragNearEdge * size;
    double const inside = dragFarEdge * size;
    return {.x = bounded(origin.x, visible.minX() - over, visible.maxX() - inside),
        .y = bounded(origin.y, visible.minY() - over, visible.maxY() - inside)};
}

Point origin(
    std::optional<Point> saved, bool hasSaved, double size, std::span<ScreenFrames const> screens)
{
    if (hasSaved && saved) {
        Point const centre = {.x = saved->x + size * 0.5, .y = saved->y + size * 0.5};
        auto const home = std::ranges::find_if(
            screens, [&](ScreenFrames const& screen) { return screen.frame.contains(centre); });
        if (home != screens.end())
            return clamp(*saved, size, home->visible);
    }
    Rect const visible = screens.empty() ? fallbackDisplay : screens.front().visible;
    return clamp(defaultOrigin(size, visible), size, visible);
}

} // namespace WidgetPlacement

} // namespace velmora
