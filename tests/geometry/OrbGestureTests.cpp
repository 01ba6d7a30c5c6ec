#include "Velmora/geometry/OrbGesture.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using namespace OrbGesture;

TEST(OrbGesture, ADragBeginsAtThreePoints)
{
    EXPECT_FALSE(begins({.x = 2.9, .y = 0}));
    EXPECT_TRUE(begins({.x = 3, .y = 0}));
    EXPECT_TRUE(begins({.x = -2.2, .y = 2.2}));
}

TEST(OrbGesture, TheOptionKeyChoosesResizing)
{
    EXPECT_EQ(chosen(true), Drag::resize);
    EXPECT_EQ(chosen(false), Drag::move);
}

TEST(OrbGesture, APressThatMovesThreeAndAHalfPointsIsAClickAndOneThatMovesFourIsNot)
{
    EXPECT_TRUE(isClick({.x = 3.5, .y = 0}, false, 50, 120));
    EXPECT_FALSE(isClick({.x = 0, .y = -4}, false, 50, 120));
    EXPECT_TRUE(isClick({}, false, 50, 120));
}

TEST(OrbGesture, AResizeIsNoClick)
{
    EXPECT_FALSE(isClick({.x = 1, .y = -1}, true, 50, 120));
}

TEST(OrbGesture, ClicksCountInTheUpperSixtyTwoPerCent)
{
    EXPECT_TRUE(isClick({}, false, 0.61 * 120, 120));
    EXPECT_FALSE(isClick({}, false, 0.62 * 120, 120));
    EXPECT_FALSE(isClick({}, false, 0.7 * 120, 120));
}

TEST(OrbGesture, BelowOnePointTheLimitIsThatOfOnePoint)
{
    EXPECT_TRUE(isClick({}, false, 0.61, 0.2));
    EXPECT_FALSE(isClick({}, false, 0.62, 0));
}

TEST(OrbGesture, MovingTurnsDownIntoUp)
{
    EXPECT_EQ(moved({.x = 100, .y = 200}, {.x = 7, .y = 5}), (Point{.x = 107, .y = 195}));
}

TEST(OrbGesture, ResizingAddsTheTwoComponents)
{
    EXPECT_DOUBLE_EQ(resized(120, {.x = 10, .y = 5}), 135);
    EXPECT_DOUBLE_EQ(resized(120, {.x = 30, .y = -30}), 120);
}

TEST(OrbGesture, AWheelNotchIsEightPoints)
{
    EXPECT_DOUBLE_EQ(scrolled(100, scroll(120, {})), 108);
    EXPECT_DOUBLE_EQ(scrolled(100, scroll(-120, {})), 92);
    EXPECT_DOUBLE_EQ(scrolled(100, scroll(15, {})), 101);
}

TEST(OrbGesture, APreciseDeltaOfTenIsSixPoints)
{
    EXPECT_DOUBLE_EQ(scrolled(100, scroll(80, 10)), 106);
    EXPECT_DOUBLE_EQ(scrolled(100, scroll(-80, -10)), 94);
}

TEST(OrbGesture, AWheelThatIsAlsoCountedFinelyStillTurnsByNotches)
{
    EXPECT_EQ(scroll(-240, -240), (Scroll{.delta = -2, .precise = false}));
}

TEST(OrbGesture, APinchScalesTheOrb)
{
    EXPECT_DOUBLE_EQ(pinched(100, 0.1), 110);
    EXPECT_DOUBLE_EQ(pinched(100, -0.5), 50);
}

} // namespace
} // namespace velmora
