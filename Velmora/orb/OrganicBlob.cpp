#include "Velmora/orb/OrganicBlob.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace velmora {
namespace {

constexpr std::size_t count = 8;
constexpr double sixth = 1.0 / 6.0;

using Points = std::array<OrbPoint, count>;

Points points(OrbRect const& rect, double phase)
{
    OrbPoint const center = {.x = rect.x + rect.width / 2, .y = rect.y + rect.height / 2};
    double const radius = 0.5 * std::min(rect.width, rect.height);
    // Three rates that share no period keep the outline from ever repeating.
    double const third = 0.73 * phase;
    double const fifth = 1.21 * phase;
    Points result;
    for (std::size_t i = 0; i < count; ++i) {
        double const angle
            = 2 * std::numbers::pi * (static_cast<double>(i) / count) - std::numbers::pi / 2;
        double const reach = 0.62 + 0.12 * std::sin(2 * angle + phase)
            + 0.07 * std::cos(3 * angle - third) + 0.04 * std::sin(5 * angle + fifth);
        double const distance = radius * reach;
        result[i] = {
            .x = center.x + distance * std::cos(angle), .y = center.y + distance * std::sin(angle)};
    }
    return result;
}

} // namespace

BlobOutline organicBlobOutline(OrbRect const& rect, double phase)
{
    Points const p = points(rect, phase);
    BlobOutline outline;
    outline.start = p[0];
    for (std::size_t i = 0; i < count; ++i) {
        OrbPoint const before = p[(i + count - 1) % count];
        OrbPoint const from = p[i];
        OrbPoint const to = p[(i + 1) % count];
        OrbPoint const after = p[(i + 2) % count];
        outline.segments[i] = {
            .control1
            = {.x = from.x + (to.x - before.x) * sixth, .y = from.y + (to.y - before.y) * sixth},
            .control2
            = {.x = to.x - (after.x - from.x) * sixth, .y = to.y - (after.y - from.y) * sixth},
            .end = to,
        };
    }
    return outline;
}

OrganicBlob interpolated(OrganicBlob from, OrganicBlob to, double progress)
{
    return {.phase = from.phase + (to.phase - from.phase) * progress};
}

} // namespace velmora
