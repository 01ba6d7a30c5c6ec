#include "tests/orb/ReferenceRenderer.h"

#include "Velmora/orb/OrbRenderer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <utility>

namespace velmora {
namespace {

struct Difference {
    double mean = 0;
    double withinThree = 1;
    int largest = 0;
};

Difference difference(Picture const& a, Picture const& b)
{
    Difference result;
    double sum = 0;
    std::size_t near = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        for (unsigned shift = 0; shift < 32; shift += 8) {
            int const one = static_cast<int>(a.pixels[i] >> shift & 255U);
            int const other = static_cast<int>(b.pixels[i] >> shift & 255U);
            int const apart = std::abs(one - other);
            sum += apart;
            near += apart <= 3 ? 1U : 0U;
            result.largest = std::max(result.largest, apart);
        }
    }
    double const count = 4.0 * static_cast<double>(a.pixels.size());
    result.mean = sum / count;
    result.withinThree = static_cast<double>(near) / count;
    return result;
}

Picture rendered(OrbFrame const& frame, int side, double scale)
{
    Picture picture = {.width = side, .height = side, .pixels = {}};
    picture.pixels.resize(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    OrbRenderer renderer;
    renderer.render(frame,
        {.bytes = reinterpret_cast<std::uint8_t*>(picture.pixels.data()),
            .width = side,
            .height = side,
            .stride = std::ptrdiff_t{4} * side,
            .scale = scale});
    return picture;
}

struct Look {
    char const* name;
    OrbState state;
};

std::array<Look, 6> const looks = {{
    {"active", {}},
    {"reminding", {.isReminding = true}},
    {"paused", {.paused = true}},
    {"outside hours", {.inActiveHours = false}},
    {"still", {.reduceMotion = true}},
    {"paused in a reminder", {.paused = true, .isReminding = true}},
}};

// A ring just born, half way and nearly gone; an orb fully swollen, and one nearly at rest.
constexpr std::array<double, 5> times
    = {800000000.6, 800000002.25, 800000004.3, 812345674.9, 823456789.2};

class OrbRendererComparison : public testing::TestWithParam<std::pair<double, double>> { };

TEST_P(OrbRendererComparison, StaysCloseToTheReference)
{
    auto const [size, scale] = GetParam();
    int const side = static_cast<int>(std::lround(size * scale));
    // The larger the buffer, the fewer frames of the grid: the reference is slow.
    bool const all = std::getenv("VELMORA_WHOLE_GRID") != nullptr;
    std::size_t const every = all ? 1 : side < 110 ? 7 : side < 200 ? 11 : side < 330 ? 19 : 29;
    std::size_t const count = looks.size() * times.size();
    for (std::size_t i = static_cast<std::size_t>(side) % every; i < count; i += every) {
        Look look = looks[i % looks.size()];
        double const time = times[i / looks.size()];
        look.state.widgetSize = size;
        OrbFrame const frame = orbFrame(look.state, time);
        Difference const apart
            = difference(referencePicture(frame, side, side, scale), rendered(frame, side, scale));
        std::ostringstream what;
        what << size << " x " << scale << ' ' << look.name << " at " << std::fixed << time
             << ": mean " << apart.mean << ", within three " << apart.withinThree << ", largest "
             << apart.largest;
        if (std::getenv("VELMORA_SHOW_DIFFERENCES") != nullptr)
            std::cout << what.str() << '\n';
        EXPECT_LE(apart.mean, 0.35) << what.str();
        EXPECT_GE(apart.withinThree, 0.99) << what.str();
        EXPECT_LE(apart.largest, 12) << what.str();
    }
}

INSTANTIATE_TEST_SUITE_P(SizesAndScales, OrbRendererComparison,
    testing::Values(std::pair(72.0, 1.0), std::pair(72.0, 1.25), std::pair(72.0, 1.5),
        std::pair(72.0, 2.0), std::pair(128.0, 1.0), std::pair(128.0, 1.25), std::pair(128.0, 1.5),
        std::pair(128.0, 2.0), std::pair(316.0, 1.0), std::pair(316.0, 1.25), std::pair(316.0, 1.5),
        std::pair(316.0, 2.0)));

} // namespace
} // namespace velmora
