#include "Velmora/geometry/WidgetPlacement.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace velmora {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

constexpr Rect laptop = {.x = 0, .y = 0, .width = 1440, .height = 900};
constexpr Rect laptopVisible = {.x = 0, .y = 0, .width = 1440, .height = 875};

ScreenFrames screen(Rect frame)
{
    return {.frame = frame, .visible = frame};
}

Point defaultCorner(double size)
{
    return WidgetPlacement::defaultOrigin(size, laptop);
}

TEST(WidgetPlacement, TheDefaultCornerIsBottomRight)
{
    EXPECT_EQ(WidgetPlacement::defaultOrigin(100, laptop), (Point{.x = 1312, .y = 36}));
}

TEST(WidgetPlacement, TheDefaultCornerFollowsTheVisibleFrame)
{
    Rect const besideADock = {.x = -1920, .y = 70, .width = 1850, .height = 985};
    EXPECT_EQ(WidgetPlacement::defaultOrigin(128, besideADock), (Point{.x = -226, .y = 106}));
}

TEST(WidgetPlacement, AtRestFortyFivePerCentStaysVisible)
{
    auto const left = WidgetPlacement::clamp({.x = -80, .y = 500}, 100, laptopVisible);
    EXPECT_EQ(left, (Point{.x = -55, .y = 500}));
    auto const topRight = WidgetPlacement::clamp({.x = 1500, .y = 900}, 100, laptopVisible);
    EXPECT_EQ(topRight, (Point{.x = 1395, .y = 830}));
    auto const bottom = WidgetPlacement::clamp({.x = 10, .y = -300}, 100, laptopVisible);
    EXPECT_EQ(bottom, (Point{.x = 10, .y = -55}));
}

TEST(WidgetPlacement, WhileDraggingSixtyFivePerCentStaysVisible)
{
    auto const bottomLeft = WidgetPlacement::drag({.x = -80, .y = -80}, 100, laptop);
    EXPECT_EQ(bottomLeft, (Point{.x = -35, .y = -35}));
    auto const topRight = WidgetPlacement::drag({.x = 1500, .y = 1000}, 100, laptop);
    EXPECT_EQ(topRight, (Point{.x = 1375, .y = 835}));
}

TEST(WidgetPlacement, APlaceInsideTheBoundsIsLeftAlone)
{
    Point const inside = {.x = 700.25, .y = 400.75};
    EXPECT_EQ(WidgetPlacement::clamp(inside, 100, laptop), inside);
    EXPECT_EQ(WidgetPlacement::drag(inside, 100, laptop), inside);
}

TEST(WidgetPlacement, TheUpperBoundWinsOnAFrameTooNarrowForBoth)
{
    Rect const sliver = {.x = 0, .y = 0, .width = -60, .height = -60};
    EXPECT_EQ(WidgetPlacement::clamp({.x = 0, .y = 0}, 100, sliver), (Point{.x = -105, .y = -105}));
}

TEST(WidgetPlacement, ACoordinateThatIsNotANumberIsKept)
{
    for (auto const bound : {WidgetPlacement::clamp, WidgetPlacement::drag}) {
        auto const result = bound({.x = notANumber, .y = 5000}, 100, laptop);
        EXPECT_TRUE(std::isnan(result.x));
        EXPECT_LT(result.y, 900);
    }
}

TEST(WidgetPlacement, ABoundThatIsNotANumberKeepsTheIncomingValue)
{
    Rect const unknown = {.x = notANumber, .y = 0, .width = 1440, .height = 900};
    EXPECT_EQ(WidgetPlacement::clamp({.x = 12, .y = 34}, 100, unknown), (Point{.x = 12, .y = 34}));
}

TEST(WidgetPlacement, ASavedPlaceOnNoDisplayGoesToTheDefaultCorner)
{
    std::array const screens = {screen(laptop)};
    EXPECT_EQ(WidgetPlacement::origin(Point{.x = 2000, .y = 100}, true, 100, screens),
        (Point{.x = 1312, .y = 36}));
}

TEST(WidgetPlacement, ASavedPlaceIsIgnoredWhenNothingCountsAsSaved)
{
    std::array const screens = {screen(laptop)};
    EXPECT_EQ(WidgetPlacement::origin(Point{.x = 300, .y = 300}, false, 100, screens),
        defaultCorner(100));
    EXPECT_EQ(WidgetPlacement::origin(std::nullopt, true, 100, screens), defaultCorner(100));
}

TEST(WidgetPlacement, ASavedPlaceIsClampedToTheDisplayThatHoldsItsCentre)
{
    std::array const screens = {screen(laptop),
        ScreenFrames{.frame = {.x = 1440, .y = 0, .width = 1920, .height = 1080},
            .visible = {.x = 1440, .y = 0, .width = 1920, .height = 1000}}};
    EXPECT_EQ(WidgetPlacement::origin(Point{.x = 1500, .y = 1020}, true, 100, screens),
        (Point{.x = 1500, .y = 955}));
}

TEST(WidgetPlacement, TheHomeDisplayIsFoundByItsWholeFrameNotItsVisiblePart)
{
    std::array const screens = {
        ScreenFrames{.frame = laptop, .visible = {.x = 0, .y = 100, .width = 1440, .height = 700}}};
    EXPECT_EQ(WidgetPlacement::origin(Point{.x = 50, .y = -20}, true, 100, screens),
        (Point{.x = 50, .y = 45}));
}

TEST(WidgetPlacement, TheFirstOfTwoDisplaysThatHoldTheCentreIsHome)
{
    Rect const large = {.x = 0, .y = 0, .width = 3000, .height = 2000};
    std::array const screens = {screen(laptop), screen(large)};
    EXPECT_EQ(WidgetPlacement::origin(Point{.x = 1380, .y = 300}, true, 100, screens),
        (Point{.x = 1380, .y = 300}));
    EXPECT_EQ(WidgetPlacement::origin(Point{.x = 1380, .y = 840}, true, 100, screens),
        (Point{.x = 1380, .y = 840}));
    EXPECT_EQ(WidgetPlacement::origin(Point{.x = 1389, .y = 849}, true, 100, screens),
        (Point{.x = 1389, .y = 849}));
}

TEST(WidgetPlacement, ADisplayHoldsItsLeftAndBottomEdgesButNotItsRightAndTopOnes)
{
    EXPECT_TRUE(laptop.contains({.x = 0, .y = 0}));
    EXPECT_FALSE(laptop.contains({.x = 1440, .y = 10}));
    EXPECT_FALSE(laptop.contains({.x = 10, .y = 900}));
}

TEST(WidgetPlacement, WithoutADisplayTheFallbackCounts)
{
    EXPECT_EQ(
        WidgetPlacement::origin(Point{.x = 5, .y = 5}, true, 100, {}), (Point{.x = 1312, .y = 36}));
}

TEST(WidgetPlacement, TheDefaultCornerOfATinyDisplayIsClamped)
{
    std::array const screens = {screen({.x = 0, .y = 0, .width = 60, .height = 40})};
    EXPECT_EQ(
        WidgetPlacement::origin(std::nullopt, false, 100, screens), (Point{.x = -55, .y = -5}));
}

TEST(WidgetPlacement, ARandomPlaceOnRandomDisplaysEndsWithFortyFivePerCentVisible)
{
    for (unsigned seed = 1; seed <= 2000; ++seed) {
        std::mt19937 random(seed);
        auto const within = [&](double from, double to) {
            return std::uniform_real_distribution(from, to)(random);
        };
        std::vector<ScreenFrames> screens;
        for (double x = within(-4000, 0); screens.size() < 1 + seed % 3;) {
            Rect const frame = {.x = x,
                .y = within(-500, 500),
                .width = within(800, 3840),
                .height = within(600, 2160)};
            screens.push_back(screen(frame));
            x = frame.maxX();
        }
        double const size = within(72, 300);
        Point const saved = {.x = within(-6000, 8000), .y = within(-3000, 3000)};
        auto const placed = WidgetPlacement::origin(saved, true, size, screens);
        bool visible = false;
        for (auto const& each : screens) {
            double const across = std::min(placed.x + size, each.visible.maxX())
                - std::max(placed.x, each.visible.minX());
            double const up = std::min(placed.y + size, each.visible.maxY())
                - std::max(placed.y, each.visible.minY());
            visible = visible
                || std::min(across, up) >= size * WidgetPlacement::launchVisibleFraction - 1e-9;
        }
        EXPECT_TRUE(visible) << "seed " << seed;
    }
}

} // namespace
} // namespace velmora
