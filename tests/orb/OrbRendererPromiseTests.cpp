#include "Velmora/orb/OrbRenderer.h"

#include "tests/orb/CountedAllocations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace velmora {
namespace {

constexpr double now = 800000002.25;

struct Square {
    int side;
    std::vector<std::uint32_t> pixels;

    explicit Square(int length)
        : side(length)
        , pixels(static_cast<std::size_t>(length) * static_cast<std::size_t>(length))
    {
    }

    PixelTarget target(double scale)
    {
        return {.bytes = reinterpret_cast<std::uint8_t*>(pixels.data()),
            .width = side,
            .height = side,
            .stride = std::ptrdiff_t{4} * side,
            .scale = scale};
    }
};

int largestDifference(Square const& a, Square const& b)
{
    int largest = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        for (unsigned shift = 0; shift < 32; shift += 8) {
            int const one = static_cast<int>(a.pixels[i] >> shift & 255U);
            int const other = static_cast<int>(b.pixels[i] >> shift & 255U);
            largest = std::max(largest, std::abs(one - other));
        }
    }
    return largest;
}

TEST(OrbRenderer, AllocatesNothingAfterTheFirstFrameOfASize)
{
    for (double scale : {1.0, 1.25, 2.0}) {
        Square square(static_cast<int>(128 * scale));
        OrbRenderer renderer;
        OrbState state = {.widgetSize = 128};
        long const atFirst = allocationCount();
        renderer.render(orbFrame(state, now), square.target(scale));
        // Were this not counted, the next line would promise nothing.
        EXPECT_GT(allocationCount(), atFirst);
        long const before = allocationCount();
        for (int frame = 0; frame < 600; ++frame) {
            state.isReminding = frame % 3 != 0;
            state.paused = frame % 40 >= 30;
            state.inActiveHours = frame % 70 < 50;
            renderer.render(orbFrame(state, now + frame / 7.0), square.target(scale));
        }
        EXPECT_EQ(allocationCount(), before) << scale;
    }
}

TEST(OrbRenderer, LeavesARingOutOnlyWhereTheBodyHidesAllOfIt)
{
    int differing = 0;
    for (int side : {72, 128, 316}) {
        OrbState const states[] = {{.isReminding = true, .widgetSize = 1.0 * side},
            {.paused = true, .isReminding = true, .widgetSize = 1.0 * side}};
        for (int i = 0; i < 90; ++i) {
            OrbFrame frame = orbFrame(states[i % 2], 800000000 + i * 10 + 0.05 * i);
            Square square(side);
            Square whole(side);
            Square without(side);
            OrbRenderer renderer;
            renderer.render(frame, square.target(1));
            // An outline of its own, if only by a hair, which is never left out.
            if (frame.ripple)
                frame.ripple->phase += 1e-6;
            renderer.render(frame, whole.target(1));
            frame.ripple.reset();
            renderer.render(frame, without.target(1));
            // That hair may turn a rounding.
            ASSERT_LE(largestDifference(square, whole), 1) << side << ' ' << i;
            differing += largestDifference(square, without) > 1 ? 1 : 0;
        }
    }
    // A pause lets the ring be seen in many of these frames.
    EXPECT_GT(differing, 20);
}

} // namespace
} // namespace velmora
