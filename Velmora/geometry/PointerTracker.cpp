#include "Velmora/geometry/PointerTracker.h"

#include <algorithm>

namespace velmora {

namespace {

double sharedArea(Rect const& a, Rect const& b)
{
    auto const width = std::min(a.maxX(), b.maxX()) - std::max(a.minX(), b.minX());
    auto const height = std::min(a.maxY(), b.maxY()) - std::max(a.minY(), b.minY());
    return std::max(width, 0.0) * std::max(height, 0.0);
}

} // namespace

std::optional<std::size_t> displayHolding(Rect const& panel, std::span<ScreenFrames const> displays)
{
    std::optional<std::size_t> best;
    double most = 0;
    for (std::size_t i = 0; i < displays.size(); ++i) {
        auto const area = sharedArea(panel, displays[i].frame);
        if (area > most) {
            most = area;
            best = i;
        }
    }
    return best;
}

} // namespace velmora
