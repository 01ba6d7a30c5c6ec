#include "Velmora/geometry/OrbHitArea.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <vector>

namespace velmora {
namespace {

using OrbHitArea::Part;

constexpr Size square(double side)
{
    return {.width = side, .height = side};
}

constexpr Size smallestGrip = {.width = 44, .height = 44};

/// A point given by its offset from the centre of a square, y up.
Point fromCentre(double side, double dx, double dy)
{
    return {.x = side / 2 + dx, .y = side / 2 + dy};
}

TEST(OrbHitArea, ThePointFiftyNineLeftOfTheCentreBelongsToAHundredAndTwentyPointOrb)
{
    EXPECT_EQ(OrbHitArea::at(fromCentre(120, -59, 0), square(120)), Part::orb);
}

TEST(OrbHitArea, ATransparentCornerBelongsToNobody)
{
    EXPECT_EQ(OrbHitArea::at(fromCentre(120, -50, 40), square(120)), Part::nothing);
    EXPECT_EQ(OrbHitArea::at({.x = 0, .y = 119.9}, square(120)), Part::nothing);
}

TEST(OrbHitArea, TheDiscReachesALittleBeyondTheInscribedCircleAndEndsAtTheSquare)
{
    EXPECT_DOUBLE_EQ(OrbHitArea::discRadius({.width = 120, .height = 150}), 62.4);
    Point const between = fromCentre(120, -44, 43);
    EXPECT_EQ(OrbHitArea::at(between, square(120)), Part::orb);
    EXPECT_FALSE(OrbHitArea::insideContent(between, square(120)));
    EXPECT_EQ(OrbHitArea::at(fromCentre(120, -60.5, 0), square(120)), Part::nothing);
}

TEST(OrbHitArea, TheInscribedCircleHoldsItsEdge)
{
    EXPECT_TRUE(OrbHitArea::insideContent(fromCentre(120, -60, 0), square(120)));
    EXPECT_FALSE(OrbHitArea::insideContent(fromCentre(120, -60.01, 0), square(120)));
}

TEST(OrbHitArea, TheGripStandsOnePointInFromTheBottomRightCorner)
{
    EXPECT_EQ(
        OrbHitArea::gripFrame(square(120)), (Rect{.x = 75, .y = 1, .width = 44, .height = 44}));
    EXPECT_EQ(OrbHitArea::gripFrame({.width = 200, .height = 250}),
        (Rect{.x = 143, .y = 1, .width = 56.000000000000007, .height = 56.000000000000007}));
}

TEST(OrbHitArea, TheGripClaimsItsRightAndBottomHalves)
{
    EXPECT_FALSE(OrbHitArea::gripClaims({.x = 5, .y = 40}, smallestGrip));
    EXPECT_TRUE(OrbHitArea::gripClaims({.x = 30, .y = 40}, smallestGrip));
    EXPECT_TRUE(OrbHitArea::gripClaims({.x = 5, .y = 10}, smallestGrip));
    EXPECT_TRUE(OrbHitArea::gripClaims({.x = 22, .y = 40}, smallestGrip));
    EXPECT_TRUE(OrbHitArea::gripClaims({.x = 5, .y = 22}, smallestGrip));
    EXPECT_FALSE(OrbHitArea::gripClaims({.x = 44, .y = 10}, smallestGrip));
    EXPECT_FALSE(OrbHitArea::gripClaims({.x = 10, .y = -0.1}, smallestGrip));
}

TEST(OrbHitArea, TheGripComesBeforeTheDisc)
{
    Point const onBoth = {.x = 75 + 30, .y = 1 + 40};
    ASSERT_LT(distance(onBoth, {.x = 60, .y = 60}), OrbHitArea::discRadius(square(120)));
    EXPECT_EQ(OrbHitArea::at(onBoth, square(120)), Part::grip);
    EXPECT_EQ(OrbHitArea::at({.x = 75 + 5, .y = 1 + 40}, square(120)), Part::orb);
}

/// Whether a point is owned; absent where a millionth of a point more would change the answer.
std::optional<bool> owned(Point p, double side)
{
    constexpr double hair = 1e-6;
    auto const here = OrbHitArea::at(p, square(side)) != Part::nothing;
    for (double const dx : {-hair, hair}) {
        for (double const dy : {-hair, hair}) {
            Point const near = {.x = p.x + dx, .y = p.y + dy};
            if ((OrbHitArea::at(near, square(side)) != Part::nothing) != here)
                return std::nullopt;
        }
    }
    return here;
}

/// Every pixel of an outline, once for each rectangle that holds it.
std::vector<int> painted(std::vector<PixelRect> const& outline, int side)
{
    std::vector<int> pixels(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    for (auto const& r : outline) {
        for (int y = r.y; y < r.y + r.height; ++y) {
            for (int x = r.x; x < r.x + r.width; ++x)
                ++pixels.at(static_cast<std::size_t>(y * side + x));
        }
    }
    return pixels;
}

TEST(OrbHitArea, TheOutlineHoldsExactlyThePixelsThatSomebodyOwnsAtEveryScale)
{
    for (double const scale : {1.0, 1.25, 1.5, 2.0}) {
        for (double const size : {66.0, 72.0, 120.0, 128.0, 157.0, 200.0, 316.8}) {
            auto const side = static_cast<int>(std::lround(size * scale));
            auto const pixels = painted(OrbHitArea::outline(square(size), scale), side);
            for (int y = 0; y < side; ++y) {
                for (int x = 0; x < side; ++x) {
                    Point const p = {.x = (x + 0.5) / scale, .y = size - (y + 0.5) / scale};
                    auto const expected = owned(p, size);
                    if (!expected)
                        continue;
                    ASSERT_EQ(pixels.at(static_cast<std::size_t>(y * side + x)), *expected ? 1 : 0)
                        << size << " at scale " << scale << ", pixel " << x << ", " << y;
                }
            }
        }
    }
}

TEST(OrbHitArea, TheOutlineIsInReadingOrder)
{
    auto const outline = OrbHitArea::outline(square(128), 2);
    for (std::size_t i = 1; i < outline.size(); ++i) {
        auto const& above = outline[i - 1];
        auto const& below = outline[i];
        EXPECT_TRUE(below.y >= above.y + above.height
            || (below.y == above.y && below.x > above.x + above.width));
    }
}

TEST(OrbHitArea, NoOutlineWithoutASizeOrAScale)
{
    EXPECT_TRUE(OrbHitArea::outline(square(128), 0).empty());
    EXPECT_TRUE(OrbHitArea::outline(square(128), std::nan("")).empty());
    EXPECT_TRUE(OrbHitArea::outline(square(0), 1).empty());
}

} // namespace
} // namespace velmora
