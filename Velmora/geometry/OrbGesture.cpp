#include "Velmora/geometry/OrbGesture.h"

#include <algorithm>
#include <cmath>

namespace velmora::OrbGesture {

namespace {

constexpr double anglePerNotch = 120.0;
constexpr double pointsPerNotch = 8.0;
constexpr double pointsPerStroke = 0.6;

double length(Translation t)
{
    return std::hypot(t.x, t.y);
}

} // namespace

Drag chosen(bool optionHeld)
{
    return optionHeld ? Drag::resize : Drag::move;
}

bool begins(Translation t)
{
    return length(t) >= dragThreshold;
}

Point moved(Point origin, Translation t)
{
    return {.x = origin.x + t.x, .y = origin.y - t.y};
}

double resized(double startSize, Translation t)
{
    return startSize + t.x + t.y;
}

bool isClick(Translation t, bool resizing, double startY, double size)
{
    return length(t) < clickSlop && !resizing && startY < std::max(size, 1.0) * clickShare;
}

Scroll scroll(double angle, std::optional<double> points)
{
    auto const wholeNotches = std::fmod(angle, anglePerNotch) == 0;
    if (points && !wholeNotches)
        return {.delta = *points, .precise = true};
    return {.delta = angle / anglePerNotch, .precise = false};
}

double scrolled(double size, Scroll s)
{
    return size + s.delta * (s.precise ? pointsPerStroke : pointsPerNotch);
}

double pinched(double size, double magnification)
{
    return size * (1 + magnification);
}

} // namespace velmora::OrbGesture
