#include "Velmora/geometry/SettingsPlacement.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr Rect laptop = {.x = 0, .y = 0, .width = 1440, .height = 875};
constexpr Size panel = {.width = 340, .height = 740};

Rect orbAt(double x, double y, double side = 100)
{
    return {.x = x, .y = y, .width = side, .height = side};
}

Rect tall(double height)
{
    return {.x = 0, .y = 0, .width = 1440, .height = height};
}

Point placed(Rect const& orb, Rect const& visible, Size size = panel)
{
    auto const origin = SettingsPlacement::origin(size, {.orb = orb, .visible = visible});
    return origin.value_or(Point{.x = -1e9, .y = -1e9});
}

TEST(SettingsPlacement, ThePanelIsAsTallAsTheForm)
{
    EXPECT_EQ(SettingsPlacement::height(651.5, laptop), 651.5);
}

TEST(SettingsPlacement, AFormTallerThanTheDisplayLeavesTwentyFourPoints)
{
    EXPECT_EQ(SettingsPlacement::height(900, laptop), 851);
}

TEST(SettingsPlacement, AShortFormStillGetsFourHundredEighty)
{
    EXPECT_EQ(SettingsPlacement::height(300, laptop), 480);
    EXPECT_EQ(SettingsPlacement::height(200.5, laptop), 480);
}

TEST(SettingsPlacement, AFormThatHasNotLaidOutCountsAsSevenHundredTwenty)
{
    EXPECT_EQ(SettingsPlacement::height(150, laptop), 720);
    EXPECT_EQ(SettingsPlacement::height(200, laptop), 720);
    EXPECT_EQ(SettingsPlacement::height(150, tall(600)), 576);
}

TEST(SettingsPlacement, ASmallDisplayWinsOverTheLeastHeight)
{
    EXPECT_EQ(SettingsPlacement::height(300, tall(400)), 376);
}

TEST(SettingsPlacement, WithoutADisplayEightHundredPointsAreAssumed)
{
    EXPECT_EQ(SettingsPlacement::height(900, std::nullopt), 776);
    EXPECT_EQ(SettingsPlacement::height(500, std::nullopt), 500);
}

TEST(SettingsPlacement, TheWindowManagersFrameCountsAgainstTheDisplay)
{
    EXPECT_EQ(SettingsPlacement::height(900, laptop, 29), 822);
    EXPECT_EQ(SettingsPlacement::height(600, laptop, 29), 600);
}

TEST(SettingsPlacement, ThePanelOpensLeftOfTheOrb)
{
    EXPECT_EQ(placed(orbAt(1312, 400), laptop).x, 956);
}

TEST(SettingsPlacement, ThePanelIsCentredOnTheOrbVertically)
{
    EXPECT_EQ(placed(orbAt(1312, 400), laptop).y, 80);
}

TEST(SettingsPlacement, WithoutRoomOnTheLeftThePanelOpensRightOfTheOrb)
{
    EXPECT_EQ(placed(orbAt(100, 400), laptop).x, 216);
    EXPECT_EQ(placed(orbAt(355.5, 400), laptop).x, 471.5);
    EXPECT_EQ(placed(orbAt(356, 400), laptop).x, 0);
}

TEST(SettingsPlacement, APanelThatWouldPassTheRightEdgeIsPulledBack)
{
    // 300 + 100 + 16 + 340 is more than the 700 there are.
    Rect const narrow = {.x = 0, .y = 0, .width = 700, .height = 875};
    EXPECT_EQ(placed(orbAt(300, 400), narrow).x, 348);
}

TEST(SettingsPlacement, OnADisplayNarrowerThanThePanelItHangsOverTheLeftEdge)
{
    Rect const narrow = {.x = 0, .y = 0, .width = 300, .height = 875};
    EXPECT_EQ(placed(orbAt(100, 400), narrow).x, -52);
}

TEST(SettingsPlacement, NearTheTopThePanelStaysTwelvePointsBelowIt)
{
    EXPECT_EQ(placed(orbAt(1312, 790), laptop).y, 875 - 740 - 12);
}

TEST(SettingsPlacement, NearTheBottomThePanelStaysTwelvePointsAboveIt)
{
    EXPECT_EQ(placed(orbAt(1312, 36), laptop).y, 12);
}

TEST(SettingsPlacement, ThePanelTooTallForBothMarginsKeepsTheTopOne)
{
    EXPECT_EQ(placed(orbAt(1312, 400), laptop, {.width = 340, .height = 870}).y, -7);
}

TEST(SettingsPlacement, ADisplayLeftOfTheMainOneIsPlacedOnTheSameWay)
{
    Rect const left = {.x = -1920, .y = 200, .width = 1920, .height = 1000};
    EXPECT_EQ(placed(orbAt(-1900, 1100), left), (Point{.x = -1784, .y = 448}));
}

TEST(SettingsPlacement, WithoutADisplayThePlaceIsNotBounded)
{
    auto const origin = SettingsPlacement::origin(panel, {.orb = orbAt(100, 36)});
    EXPECT_EQ(origin, (Point{.x = -256, .y = -284}));
}

TEST(SettingsPlacement, WithoutAnOrbThePanelIsCentred)
{
    auto const origin = SettingsPlacement::origin(panel, {.visible = laptop});
    EXPECT_EQ(origin, (Point{.x = 550, .y = 67.5}));
}

TEST(SettingsPlacement, WithoutOrbAndDisplayThePanelStaysWhereItIs)
{
    EXPECT_EQ(SettingsPlacement::origin(panel, {}), std::nullopt);
}

} // namespace
} // namespace velmora
