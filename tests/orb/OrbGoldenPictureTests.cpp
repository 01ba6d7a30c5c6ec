#include "Velmora/orb/OrbRenderer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace velmora {
namespace {

constexpr int side = 72;
/// Half way into a breath in, with the ring spreading in a reminder.
constexpr double now = 800000002.25;
/// Compilers may add in another order or fuse a product with a sum, which moves a rounding here
/// and there by a level; anything that shows moves more.
constexpr int tolerance = 2;

struct Look {
    char const* name;
    OrbState state;
};

void PrintTo(Look const& look, std::ostream* out)
{
    *out << look.name;
}

using Bytes = std::vector<std::uint8_t>;

/// Red, green, blue and alpha of each pixel, as premultiplied as the renderer leaves them.
Bytes drawn(OrbState state)
{
    state.widgetSize = side;
    std::vector<std::uint32_t> pixels(std::size_t{side} * side);
    OrbRenderer renderer;
    renderer.render(orbFrame(state, now),
        {.bytes = reinterpret_cast<std::uint8_t*>(pixels.data()),
            .width = side,
            .height = side,
            .stride = std::ptrdiff_t{4} * side,
            .scale = 1});
    Bytes bytes;
    for (std::uint32_t const pixel : pixels) {
        for (unsigned shift : {16U, 8U, 0U, 24U})
            bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
    }
    return bytes;
}

std::string header()
{
    std::string const length = std::to_string(side);
    return "P7\nWIDTH " + length + "\nHEIGHT " + length
        + "\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n";
}

/// The pixels of a picture in the portable arbitrary map format, or none if it is not one of ours.
Bytes read(std::string const& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string const all{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (all.compare(0, header().size(), header()) != 0)
        return {};
    return {all.begin() + static_cast<std::ptrdiff_t>(header().size()), all.end()};
}

class OrbGoldenPicture : public testing::TestWithParam<Look> { };

TEST_P(OrbGoldenPicture, LooksAsItDidWhenItWasLookedAt)
{
    Bytes const picture = drawn(GetParam().state);
    std::string const name = std::string("/") + GetParam().name + ".pam";
    // Set to a folder, this writes new pictures to be looked at and committed.
    if (char const* const folder = std::getenv("VELMORA_WRITE_GOLDEN_PICTURES")) {
        std::ofstream file(folder + name, std::ios::binary);
        file << header() << std::string(picture.begin(), picture.end());
    }
    Bytes const golden = read(VELMORA_GOLDEN_PICTURES + name);
    ASSERT_EQ(golden.size(), picture.size());
    int largest = 0;
    for (std::size_t i = 0; i < golden.size(); ++i)
        largest = std::max(largest, std::abs(int{golden[i]} - int{picture[i]}));
    EXPECT_LE(largest, tolerance);
}

/// The look's name as a test's, which knows no hyphens.
std::string plainName(testing::TestParamInfo<Look> const& look)
{
    std::string name = look.param.name;
    name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
    return name;
}

INSTANTIATE_TEST_SUITE_P(Looks, OrbGoldenPicture,
    testing::Values(Look{"active", {}}, Look{"reminding", {.isReminding = true}},
        Look{"paused", {.paused = true}}, Look{"outside-hours", {.inActiveHours = false}},
        Look{"still", {.reduceMotion = true}},
        Look{"paused-in-a-reminder", {.paused = true, .isReminding = true}}),
    plainName);

} // namespace
} // namespace velmora
