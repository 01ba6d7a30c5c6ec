#include "Velmora/orb/OrbRenderer.h"

#include "Velmora/orb/OrbTransitions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>
#include <random>
#include <vector>

namespace velmora {
namespace {

constexpr double now = 800000002.25;
constexpr std::uint32_t canary = 0x12345678;

/// Pixels with a guard behind every row and after the last.
struct Canvas {
    int width;
    int height;
    int pitch;
    std::vector<std::uint32_t> pixels;

    Canvas(int w, int h)
        : width(w)
        , height(h)
        , pitch(w + 3)
        , pixels(static_cast<std::size_t>(pitch) * static_cast<std::size_t>(h + 1), canary)
    {
    }

    PixelTarget target(double scale = 1)
    {
        return {.bytes = reinterpret_cast<std::uint8_t*>(pixels.data()),
            .width = width,
            .height = height,
            .stride = std::ptrdiff_t{4} * pitch,
            .scale = scale};
    }

    std::uint32_t at(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(pitch)
            + static_cast<std::size_t>(x)];
    }

    bool guardsStand() const
    {
        for (int y = 0; y <= height; ++y) {
            for (int x = y < height ? width : 0; x < pitch; ++x) {
                if (at(x, y) != canary)
                    return false;
            }
        }
        return true;
    }

    bool premultiplied() const
    {
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                std::uint32_t const p = at(x, y);
                std::uint32_t const top = std::max({p >> 16U & 255U, p >> 8U & 255U, p & 255U});
                if (top > p >> 24U)
                    return false;
            }
        }
        return true;
    }

    bool clear() const
    {
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (at(x, y) != 0)
                    return false;
            }
        }
        return true;
    }
};

Canvas drawn(OrbState const& state, double time, int side, double scale = 1)
{
    Canvas canvas(side, side);
    OrbRenderer renderer;
    renderer.render(orbFrame(state, time), canvas.target(scale));
    return canvas;
}

TEST(OrbRenderer, WritesInsideItsRowsOnlyAndKeepsColoursBelowAlpha)
{
    for (int side : {1, 2, 3, 5, 17, 64, 72, 127, 128, 129, 331}) {
        for (bool reminding : {false, true}) {
            OrbState const state = {.isReminding = reminding, .widgetSize = 1.0 * side};
            for (double time : {now, now + 2, now + 57.3}) {
                Canvas const canvas = drawn(state, time, side);
                EXPECT_TRUE(canvas.guardsStand()) << side;
                EXPECT_TRUE(canvas.premultiplied()) << side;
            }
        }
    }
}

TEST(OrbRenderer, TheSameFrameGivesTheSamePixelsAfterAnyOther)
{
    OrbState const state = {.isReminding = true, .widgetSize = 128};
    Canvas const fresh = drawn(state, now, 160, 1.25);
    OrbRenderer renderer;
    Canvas other(316, 200);
    OrbState large = state;
    large.widgetSize = 316;
    renderer.render(orbFrame(large, now + 1), other.target());
    Canvas again(160, 160);
    renderer.render(orbFrame(state, now), again.target(1.25));
    EXPECT_EQ(again.pixels, fresh.pixels);
}

TEST(OrbRenderer, ASquareWithoutSizeLeavesTheTargetClear)
{
    double const infinite = std::numeric_limits<double>::infinity();
    double const notANumber = std::numeric_limits<double>::quiet_NaN();
    for (double size : {0.0, -4.0, infinite, notANumber, 1e9}) {
        Canvas const canvas = drawn({.isReminding = true, .widgetSize = size}, now, 40);
        EXPECT_TRUE(canvas.clear()) << size;
        EXPECT_TRUE(canvas.guardsStand()) << size;
    }
    for (double scale : {0.0, -1.0, infinite, notANumber})
        EXPECT_TRUE(drawn({.widgetSize = 40}, now, 40, scale).clear()) << scale;
    EXPECT_TRUE(drawn({.widgetSize = 40}, notANumber, 40).clear());
}

TEST(OrbRenderer, ATargetWithoutPixelsIsLeftAlone)
{
    OrbRenderer renderer;
    OrbFrame const frame = orbFrame({}, now);
    renderer.render(frame, {});
    Canvas canvas(8, 8);
    PixelTarget target = canvas.target();
    target.width = 0;
    renderer.render(frame, target);
    target = canvas.target();
    target.height = -1;
    renderer.render(frame, target);
    target = canvas.target();
    target.stride = 3;
    renderer.render(frame, target);
    EXPECT_TRUE(std::all_of(canvas.pixels.begin(), canvas.pixels.end(),
        [](std::uint32_t pixel) { return pixel == canary; }));
}

TEST(OrbRenderer, TakesAnyNumbersWithoutLeavingItsTarget)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> exponent(-12, 12);
    auto const number = [&] {
        double const size = std::pow(10, exponent(random));
        return random() % 2 == 0 ? size : -size;
    };
    OrbRenderer renderer;
    for (int i = 0; i < 1500; ++i) {
        OrbFrame frame = orbFrame({.isReminding = true, .widgetSize = std::fabs(number())}, now);
        double* const fields[] = {&frame.glow.phase, &frame.glow.blur, &frame.glow.scale,
            &frame.glow.opacity, &frame.ripple->phase, &frame.ripple->lineWidth,
            &frame.ripple->scale, &frame.ripple->blur, &frame.body.phase, &frame.body.centerX,
            &frame.body.endRadius, &frame.body.scale, &frame.body.shadow.radius,
            &frame.body.shadow.dx, &frame.body.stops[1].red, &frame.rim.scale, &frame.rim.lineWidth,
            &frame.rim.phase, &frame.highlight.scale, &frame.highlight.dx, &frame.highlight.blur,
            &frame.opacity, &frame.size};
        for (unsigned changes = random() % 4; changes > 0; --changes)
            *fields[random() % std::size(fields)] = number();
        Canvas canvas(static_cast<int>(random() % 60 + 1), static_cast<int>(random() % 60 + 1));
        renderer.render(frame, canvas.target(random() % 3 == 0 ? std::fabs(number()) : 1.25));
        ASSERT_TRUE(canvas.guardsStand()) << i;
        ASSERT_TRUE(canvas.premultiplied()) << i;
    }
    OrbState const state = {.isReminding = true, .widgetSize = 128};
    Canvas after(128, 128);
    renderer.render(orbFrame(state, now), after.target());
    EXPECT_EQ(after.pixels, drawn(state, now, 128).pixels);
}

/// What is seen of a clear picture over a ground.
std::uint32_t over(std::uint32_t pixel, std::uint32_t ground)
{
    std::uint32_t seen = 0;
    double const through = (255 - (pixel >> 24U)) / 255.0;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        double const level = (pixel >> shift & 255U) + through * (ground >> shift & 255U);
        seen |= static_cast<std::uint32_t>(std::lround(level)) << shift;
    }
    return seen;
}

TEST(OrbRenderer, OverAGroundShowsWhatAClearPictureLaidOverItShows)
{
    OrbColor const ground = {.red = 0.1, .green = 0.8, .blue = 1};
    OrbRenderer renderer;
    OrbState const states[] = {{.widgetSize = 96}, {.inActiveHours = false, .widgetSize = 96},
        {.paused = true, .isReminding = true, .widgetSize = 96},
        {.reduceMotion = true, .widgetSize = 97}};
    for (OrbState const& state : states) {
        auto const side = static_cast<int>(state.widgetSize);
        Canvas const clear = drawn(state, now, side);
        Canvas grounded(side, side);
        renderer.render(orbFrame(state, now), grounded.target(), ground);
        int largest = 0;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                std::uint32_t const wanted = over(clear.at(x, y), opaquePixel(ground));
                for (unsigned shift = 0; shift < 32; shift += 8) {
                    largest = std::max(largest,
                        std::abs(static_cast<int>(grounded.at(x, y) >> shift & 255U)
                            - static_cast<int>(wanted >> shift & 255U)));
                }
                ASSERT_EQ(grounded.at(x, y) >> 24U, 255U);
            }
        }
        EXPECT_LE(largest, 2);
        EXPECT_TRUE(grounded.guardsStand());
    }
}

TEST(OrbRenderer, WithNothingToDrawLeavesTheGroundBare)
{
    OrbFrame frame = orbFrame({.widgetSize = 32}, now);
    OrbRenderer renderer;
    Canvas canvas(32, 32);
    frame.opacity = 0;
    renderer.render(frame, canvas.target(), OrbColor{.red = 1, .green = 0.5, .blue = -3});
    EXPECT_EQ(canvas.at(0, 0), 0xffff8000U);
    EXPECT_EQ(canvas.at(31, 31), 0xffff8000U);
    renderer.render(frame, canvas.target());
    EXPECT_EQ(canvas.at(16, 16), 0U);
    EXPECT_TRUE(canvas.guardsStand());
}

TEST(OrbRenderer, NoPixelJumpsWhileAReminderStartsIsPausedAndEnds)
{
    OrbTransitions transitions;
    OrbRenderer renderer;
    OrbState const states[] = {{}, {.isReminding = true}, {.paused = true, .isReminding = true},
        {.isReminding = true}, {}};
    Canvas last(128, 128);
    for (int i = 0; i < 240; ++i) {
        Canvas next(128, 128);
        // Past the first breath's in-breath, where the ring is absent by itself.
        OrbFrame const frame = transitions.frame(states[i / 50], 800000004.9 + i / 240.0);
        renderer.render(frame, next.target());
        int largest = 0;
        for (std::size_t p = 0; i > 0 && p < next.pixels.size(); ++p) {
            for (unsigned shift = 0; shift < 32; shift += 8) {
                largest = std::max(largest,
                    std::abs(static_cast<int>(next.pixels[p] >> shift & 255U)
                        - static_cast<int>(last.pixels[p] >> shift & 255U)));
            }
        }
        EXPECT_LE(largest, 40) << i;
        last = next;
    }
}

} // namespace
} // namespace velmora
