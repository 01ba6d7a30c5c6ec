#include "Velmora/views/OrbCanvas.h"

#include <gtest/gtest.h>

#include <QImage>

#include <algorithm>

namespace velmora {
namespace {

constexpr int side = 128;
constexpr OrbState resting = {.inActiveHours = false, .showWord = true, .widgetSize = side};

QImage drawn(OrbState const& state, std::optional<OrbColor> const& ground)
{
    QImage canvas(side, side, QImage::Format_ARGB32_Premultiplied);
    OrbCanvas orb;
    OrbCaption::Texts const texts = {.words
        = {QStringLiteral("W"), QStringLiteral("W"), QStringLiteral("W"), QStringLiteral("W")},
        .status = {}};
    orb.draw(
        canvas, {.width = side, .height = side}, orbFrame(state, 800000002.25), texts, {}, ground);
    return canvas;
}

QRgb at(QImage const& canvas, int x, int y)
{
    return reinterpret_cast<QRgb const*>(canvas.constScanLine(y))[x];
}

/// The brightest that any pixel is over white.
int brightestOnWhite(QImage const& canvas)
{
    int brightest = 0;
    for (int y = 48; y < 80; ++y) {
        for (int x = 48; x < 80; ++x)
            brightest
                = std::max(brightest, qRed(at(canvas, x, y)) + 255 - qAlpha(at(canvas, x, y)));
    }
    return brightest;
}

TEST(OrbCanvas, ACaptionFadesWithTheWholeStack)
{
    double const opacity = orbFrame(resting, 800000002.25).opacity;
    ASSERT_LT(opacity, 0.8);
    auto const canvas = drawn(resting, std::nullopt);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            ASSERT_LE(qAlpha(at(canvas, x, y)), opacity * 255 + 2) << x << ' ' << y;
    }
}

TEST(OrbCanvas, LettersStayNearWhiteOnAWhiteDesktop)
{
    // Were the word faded by itself, the orb would shine through and leave about 225.
    EXPECT_NEAR(brightestOnWhite(drawn(resting, std::nullopt)), 247, 4);
    EXPECT_NEAR(
        brightestOnWhite(drawn(resting, OrbColor{.red = 1, .green = 1, .blue = 1})), 247, 4);
}

TEST(OrbCanvas, OverAGroundNothingIsSeenThrough)
{
    auto const canvas = drawn(resting, OrbColor{.red = 0.1, .green = 0.2, .blue = 0.3});
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            ASSERT_EQ(qAlpha(at(canvas, x, y)), 255) << x << ' ' << y;
    }
}

} // namespace
} // namespace velmora
