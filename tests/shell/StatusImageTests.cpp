#include "Velmora/shell/StatusImage.h"

#include <gtest/gtest.h>

#include <QImage>

namespace velmora {
namespace {

/// A symbol of two rows: the upper half covered, the lower one clear.
std::vector<std::uint32_t> upperHalf(int side)
{
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(side * side));
    std::fill_n(pixels.begin(), pixels.size() / 2, 0xff000000U);
    return pixels;
}

std::vector<std::uint32_t> noSymbol(int /*side*/)
{
    return {};
}

QImage picture(QIcon const& icon, int side)
{
    return icon.pixmap(side, side).toImage();
}

TEST(StatusImage, ShowsTheSystemsSymbolTheRightWayUp)
{
    auto const image = picture(statusImage(std::nullopt, upperHalf), 18);
    EXPECT_EQ(image.pixelColor(9, 1).alpha(), 255);
    EXPECT_EQ(image.pixelColor(9, 16).alpha(), 0);
}

TEST(StatusImage, DrawsARingAndADotWhereTheSystemHasNoSymbol)
{
    auto const image = picture(statusImage(QColor(Qt::black), noSymbol), 36);
    EXPECT_EQ(image.pixelColor(18, 18).alpha(), 255);
    EXPECT_EQ(image.pixelColor(18, 4).alpha(), 255);
    EXPECT_EQ(image.pixelColor(18, 9).alpha(), 0);
    EXPECT_EQ(image.pixelColor(1, 1).alpha(), 0);
}

TEST(StatusImage, IsATemplateInBothCases)
{
    EXPECT_TRUE(statusImage(std::nullopt, upperHalf).isMask());
    EXPECT_TRUE(statusImage(std::nullopt, noSymbol).isMask());
}

} // namespace
} // namespace velmora
