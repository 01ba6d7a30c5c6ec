#include "Velmora/geometry/GripState.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr Point somewhere = {.x = 500, .y = 400};

GripState dragged()
{
    return {.hovering = true, .dragging = true, .startSize = 100, .startScreen = somewhere};
}

TEST(GripState, HoveringLightsItAndShowsTheResizeCursor)
{
    auto const change = gripHovered({}, true);
    EXPECT_TRUE(change.state.highlighted());
    EXPECT_EQ(change.cursor, GripCursor::resize);
}

TEST(GripState, LeavingRestoresTheArrow)
{
    auto const change = gripHovered({.hovering = true}, false);
    EXPECT_FALSE(change.state.highlighted());
    EXPECT_EQ(change.cursor, GripCursor::arrow);
}

TEST(GripState, HearingTheSameAgainChangesNothing)
{
    EXPECT_EQ(gripHovered({}, false), GripChange{});
    EXPECT_EQ(gripHovered(dragged(), true), (GripChange{.state = dragged()}));
}

TEST(GripState, ADragThatRunsOffTheGripStaysLitAndKeepsItsCursor)
{
    auto const change = gripHovered(dragged(), false);
    EXPECT_FALSE(change.state.hovering);
    EXPECT_TRUE(change.state.highlighted());
    EXPECT_EQ(change.cursor, GripCursor::unchanged);
}

TEST(GripState, APressRemembersWhereTheDragBegan)
{
    auto const change = gripPressed({.hovering = true}, 100, somewhere);
    EXPECT_EQ(change.state, dragged());
    EXPECT_EQ(change.cursor, GripCursor::resize);
}

TEST(GripState, ReleasedInsideItStaysLit)
{
    auto const change = gripReleased(dragged(), true);
    EXPECT_TRUE(change.state.highlighted());
    EXPECT_FALSE(change.state.dragging);
    EXPECT_EQ(change.cursor, GripCursor::unchanged);
}

TEST(GripState, ReleasedOutsideItGoesDarkAndRestoresTheArrow)
{
    EXPECT_FALSE(gripReleased(dragged(), false).state.highlighted());
    EXPECT_EQ(gripReleased(dragged(), false).cursor, GripCursor::arrow);
    auto const afterRunningOff = gripHovered(dragged(), false).state;
    EXPECT_EQ(gripReleased(afterRunningOff, false).cursor, GripCursor::arrow);
}

TEST(GripState, RightAndDownEnlargeLeftAndUpShrink)
{
    EXPECT_DOUBLE_EQ(gripSize(dragged(), {.x = 510, .y = 390}), 120);
    EXPECT_DOUBLE_EQ(gripSize(dragged(), {.x = 530, .y = 410}), 120);
    EXPECT_DOUBLE_EQ(gripSize(dragged(), {.x = 300, .y = 700}), -400);
}

TEST(GripState, ADesktopWhosePlacesCountFromElsewhereLeavesTheSizeAlone)
{
    auto const shifted = gripShifted(dragged(), {.x = -1280, .y = 32});
    EXPECT_DOUBLE_EQ(gripSize(shifted, {.x = 510 - 1280, .y = 390 + 32}), 120);
}

} // namespace
} // namespace velmora
