#include "Velmora/views/OrbControls.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using OrbControls::Control;

constexpr Size square(double side)
{
    return {.width = side, .height = side};
}

TEST(OrbControls, TwoButtonsStandSideBySideInTheLowerHalf)
{
    auto const pause = OrbControls::frame(Control::pause, 200, square(200));
    auto const settings = OrbControls::frame(Control::settings, 200, square(200));
    EXPECT_DOUBLE_EQ(pause.width, 36);
    EXPECT_DOUBLE_EQ(pause.y + pause.height, 200 - 44);
    EXPECT_DOUBLE_EQ(settings.x - (pause.x + pause.width), 12);
    EXPECT_DOUBLE_EQ((pause.x + settings.x + settings.width) / 2, 100);
}

TEST(OrbControls, ButtonsAndSymbolsHaveASmallestSize)
{
    EXPECT_DOUBLE_EQ(OrbControls::frame(Control::pause, 72, square(72)).width, 22);
    EXPECT_DOUBLE_EQ(OrbControls::symbolSize(72), 10);
    EXPECT_DOUBLE_EQ(OrbControls::symbolSize(200), 18);
}

TEST(OrbControls, AButtonIsItsCircleAndNotItsSquare)
{
    auto const pause = OrbControls::frame(Control::pause, 200, square(200));
    EXPECT_EQ(
        OrbControls::at({.x = pause.midX(), .y = pause.midY()}, 200, square(200)), Control::pause);
    EXPECT_EQ(
        OrbControls::at({.x = pause.x + 1, .y = pause.y + 1}, 200, square(200)), std::nullopt);
}

} // namespace
} // namespace velmora
