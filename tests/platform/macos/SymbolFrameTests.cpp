#include "Velmora/platform/macos/SymbolFrame.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(SymbolFrame, AWideSymbolFillsTheWidthAndStandsInTheMiddle)
{
    EXPECT_EQ(symbolFrame({.width = 20, .height = 10}, 36),
        (Rect{.x = 0, .y = 9, .width = 36, .height = 18}));
}

TEST(SymbolFrame, ATallSymbolFillsTheHeightAndStandsInTheMiddle)
{
    EXPECT_EQ(symbolFrame({.width = 10, .height = 20}, 36),
        (Rect{.x = 9, .y = 0, .width = 18, .height = 36}));
}

TEST(SymbolFrame, ASymbolWithoutAnExtentFillsTheSquare)
{
    Rect const square = {.x = 0, .y = 0, .width = 18, .height = 18};
    EXPECT_EQ(symbolFrame({}, 18), square);
    EXPECT_EQ(symbolFrame({.width = 5, .height = 0}, 18), square);
}

} // namespace
} // namespace velmora
