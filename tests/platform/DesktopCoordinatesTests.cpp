#include "Velmora/platform/DesktopCoordinates.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmora {
namespace {

constexpr Rect primary = {.x = 0, .y = 0, .width = 1920, .height = 1080};
constexpr DesktopCoordinates convert(primary);

TEST(DesktopCoordinates, ThePrimaryDisplayStartsAtTheOrigin)
{
    EXPECT_EQ(convert.fromToolkit(primary), primary);
    EXPECT_EQ(convert.fromToolkit(Point{.x = 0, .y = 1080}), (Point{.x = 0, .y = 0}));
    EXPECT_EQ(convert.fromToolkit(Point{.x = 5, .y = 0}), (Point{.x = 5, .y = 1080}));
}

TEST(DesktopCoordinates, ADisplayAboveThePrimaryLiesAboveItsHeight)
{
    EXPECT_EQ(convert.fromToolkit(Rect{.x = 0, .y = -1200, .width = 1600, .height = 1200}),
        (Rect{.x = 0, .y = 1080, .width = 1600, .height = 1200}));
}

TEST(DesktopCoordinates, ADisplayBelowThePrimaryHasANegativeOrigin)
{
    EXPECT_EQ(convert.fromToolkit(Rect{.x = 0, .y = 1080, .width = 1280, .height = 800}),
        (Rect{.x = 0, .y = -800, .width = 1280, .height = 800}));
}

TEST(DesktopCoordinates, ALowerDisplayToTheLeftKeepsItsOffset)
{
    EXPECT_EQ(convert.fromToolkit(Rect{.x = -1280, .y = 280, .width = 1280, .height = 1024}),
        (Rect{.x = -1280, .y = -224, .width = 1280, .height = 1024}));
}

TEST(DesktopCoordinates, APrimaryAwayFromTheToolkitsOriginIsStillTheOrigin)
{
    // Two displays side by side of which the right one is the primary, and a display of scale
    // factor 2 whose size is halved while its corner stays in pixels.
    DesktopCoordinates const right({.x = 1280, .y = 0, .width = 1920, .height = 1080});
    EXPECT_EQ(right.fromToolkit(Rect{.x = 0, .y = 0, .width = 1280, .height = 1024}),
        (Rect{.x = -1280, .y = 56, .width = 1280, .height = 1024}));
    EXPECT_EQ(right.fromToolkit(Rect{.x = 3200, .y = 0, .width = 1280, .height = 720}),
        (Rect{.x = 1920, .y = 360, .width = 1280, .height = 720}));
}

TEST(DesktopCoordinates, BothWaysGiveBackWhatWasPutIn)
{
    DesktopCoordinates const offset({.x = 1280, .y = -300, .width = 1920, .height = 1080});
    std::vector<Rect> const rects
        = {primary, {.x = -7.5, .y = 12.25, .width = 128.5, .height = 128.5},
            {.x = 4000, .y = -900, .width = 1, .height = 2}};
    for (auto const& rect : rects) {
        EXPECT_EQ(offset.toToolkit(offset.fromToolkit(rect)), rect);
        EXPECT_EQ(offset.toToolkit(offset.fromToolkit(rect.origin())), rect.origin());
    }
}

} // namespace
} // namespace velmora
