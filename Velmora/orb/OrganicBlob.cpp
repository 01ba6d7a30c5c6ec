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

struct Turn {
    double cosine;
    double sine;
};

/// The eighths of a turn, exact where the axes make them so.
constexpr double diagonal = std::numbers::sqrt2 / 2;
constexpr std::array<Turn, count> eighths = {{
    {1, 0},
    {diagonal, diagonal},
    {0, 1},
    {-diagonal, diagonal},
    {-1, 0},
    {-diagonal, -diagonal},
    {0, -1},
    {diagonal, -diagonal},
}};

/// sin(eighth of a turn + angle) from the angle's own sine and cosine, so that a whole outline
/// needs them only once a harmonic.
double sineAfter(std::size_t eighth, Turn const& angle)
{
    Turn const& turn = eighths[eighth % count];
    return turn.sine * angle.cosine + turn.cosine * angle.sine;
}

/// An angle that is beyond every number, as a multiple of a huge phase may be, counts as none.
Turn turn(double angle)
{
    if (!std::isfinite(angle))
        return {.cosine = 1, .sine = 0};
    return {.cosine = std::cos(angle), .sine = std::sin(angle)};
}

Points points(OrbRect const& rect, double phase)
{
    OrbPoint const center = {.x = rect.x + rect.width / 2, .y = rect.y + rect.height / 2};
    double const radius = 0.5 * std::min(rect.width, rect.height);
    // Three rates that share no period keep the outline from ever repeating.
    Turn const second = turn(phase);
    Turn const third = turn(-0.73 * phase);
    Turn const fifth = turn(1.21 * phase);
    Points result;
    for (std::size_t i = 0; i < count; ++i) {
        // Straight up is six eighths on from the x axis, and a cosine is two ahead of a sine.
        std::size_t const angle = i + 6;
        double const reach = 0.62 + 0.12 * sineAfter(2 * angle, second)
            + 0.07 * sineAfter(3 * angle + 2, third) + 0.04 * sineAfter(5 * angle, fifth);
        Turn const& direction = eighths[angle % count];
        double const distance = radius * reach;
        result[i] = {
            .x = center.x + distance * direction.cosine, .y = center.y + distance * direction.sine};
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
