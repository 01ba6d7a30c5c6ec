#include "Velmora/geometry/PointerTracker.h"

#include <gtest/gtest.h>

#include <array>

namespace velmora {
namespace {

constexpr ScreenFrames display(double x, double y)
{
    Rect const frame = {.x = x, .y = y, .width = 1000, .height = 800};
    return {.frame = frame, .visible = frame};
}

constexpr std::array twoSideBySide = {display(0, 0), display(1000, 0)};

Rect panelAt(double x, double y)
{
    return {.x = x, .y = y, .width = 100, .height = 100};
}

TEST(PointerTracker, ThePanelIgnoresThePointerExactlyWhileItIsElsewhereAndNoButtonIsHeld)
{
    EXPECT_TRUE(ignoresPointer(false, false));
    EXPECT_FALSE(ignoresPointer(true, false));
    EXPECT_FALSE(ignoresPointer(false, true));
    EXPECT_FALSE(ignoresPointer(true, true));
}

TEST(PointerTracker, ThePanelsDisplayHoldsMostOfIt)
{
    EXPECT_EQ(displayHolding(panelAt(930, 100), twoSideBySide), 0U);
    EXPECT_EQ(displayHolding(panelAt(970, 100), twoSideBySide), 1U);
}

TEST(PointerTracker, TheFirstOfTwoEqualsIsThePanelsDisplay)
{
    EXPECT_EQ(displayHolding(panelAt(950, 100), twoSideBySide), 0U);
}

TEST(PointerTracker, APanelOffEveryDisplayHasNone)
{
    EXPECT_EQ(displayHolding(panelAt(-100, 100), twoSideBySide), std::nullopt);
    EXPECT_EQ(displayHolding(panelAt(0, 0), {}), std::nullopt);
}

} // namespace
} // namespace velmora
