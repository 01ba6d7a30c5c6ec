#include "Velmora/views/PictureOverlay.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace velmora {
namespace {

QImage filled(QSize size, QRgb premultiplied)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(premultiplied);
    return image;
}

QRgb pixel(QImage const& image, int x, int y)
{
    return reinterpret_cast<QRgb const*>(image.constScanLine(y))[x];
}

/// The largest difference of any channel.
int difference(QRgb a, QRgb b)
{
    return std::max({std::abs(qAlpha(a) - qAlpha(b)), std::abs(qRed(a) - qRed(b)),
        std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

TEST(PictureOverlay, LaysAPictureOverACanvasAsTheToolkitDoes)
{
    for (int alpha = 0; alpha <= 255; alpha += 5) {
        auto const picture = filled(QSize(1, 1), qPremultiply(qRgba(250, 130, 20, alpha)));
        auto canvas = filled(QSize(1, 1), qPremultiply(qRgba(10, 90, 200, 120)));
        auto wanted = canvas.copy();
        QPainter(&wanted).drawImage(0, 0, picture);
        drawOver(canvas, picture, QPoint(0, 0));
        EXPECT_LE(difference(pixel(canvas, 0, 0), pixel(wanted, 0, 0)), 1) << alpha;
    }
}

TEST(PictureOverlay, AnOpaquePictureReplacesAndAFadedOneMixes)
{
    auto const white = filled(QSize(1, 1), qRgba(255, 255, 255, 255));
    auto canvas = filled(QSize(1, 1), qRgba(0, 0, 0, 255));
    drawOver(canvas, white, QPoint(0, 0), 0.4);
    EXPECT_EQ(pixel(canvas, 0, 0), qRgba(102, 102, 102, 255));
    drawOver(canvas, white, QPoint(0, 0), 0);
    EXPECT_EQ(pixel(canvas, 0, 0), qRgba(102, 102, 102, 255));
    drawOver(canvas, white, QPoint(0, 0));
    EXPECT_EQ(pixel(canvas, 0, 0), qRgba(255, 255, 255, 255));
}

TEST(PictureOverlay, CutsOffWhatReachesBeyondTheCanvas)
{
    auto const picture = filled(QSize(3, 3), qRgba(0, 255, 0, 255));
    auto canvas = filled(QSize(4, 4), 0);
    drawOver(canvas, picture, QPoint(-2, -2));
    drawOver(canvas, picture, QPoint(3, 3));
    drawOver(canvas, picture, QPoint(40, 0));
    int covered = 0;
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 4; ++x)
            covered += pixel(canvas, x, y) != 0 ? 1 : 0;
    }
    EXPECT_EQ(covered, 2);
    EXPECT_NE(pixel(canvas, 0, 0), 0U);
    EXPECT_NE(pixel(canvas, 3, 3), 0U);
}

/// A channel of a pixel, 0..1.
double channel(QRgb pixel, unsigned shift)
{
    return (pixel >> shift & 255U) / 255.0;
}

TEST(PictureOverlay, APictureInAStackHidesWhatTheStackShowsThereAsIfBothWereWhole)
{
    // White letters at nine tenths on an opaque orb, the whole of it at 0.78.
    constexpr double white = 235 / 255.0;
    auto const letter = filled(QSize(1, 1), qRgba(235, 235, 235, 235));
    for (double opacity : {0.0, 0.4, 0.78, 1.0}) {
        for (QRgb ground : {QRgb(0), qRgba(26, 34, 32, 255), qRgba(255, 255, 255, 255)}) {
            auto const whole = qRgba(90, 200, 140, 255);
            QRgb shown = 0;
            QRgb wanted = 0;
            for (unsigned shift = 0; shift < 32; shift += 8) {
                auto const through = channel(ground, shift) * (1 - opacity);
                auto const orb = channel(whole, shift) * opacity + through;
                auto const lettered
                    = (white + (1 - white) * channel(whole, shift)) * opacity + through;
                shown |= static_cast<QRgb>(std::lround(orb * 255)) << shift;
                wanted |= static_cast<QRgb>(std::lround(lettered * 255)) << shift;
            }
            auto canvas = filled(QSize(1, 1), shown);
            drawOver(canvas, letter, QPoint(0, 0), 1, {.opacity = opacity, .ground = ground});
            EXPECT_LE(difference(pixel(canvas, 0, 0), wanted), 2) << opacity << ' ' << ground;
        }
    }
}

TEST(PictureOverlay, NoColourInAStackExceedsItsAlphaAndAGroundStaysOpaque)
{
    for (unsigned alpha = 0; alpha <= 255; alpha += 3) {
        auto const picture = filled(QSize(1, 1), alpha << 24U | alpha << 16U | alpha / 2);
        for (unsigned under = 0; under <= 255; under += 5) {
            for (double opacity : {0.1, 0.5, 0.78, 0.99}) {
                auto clear = filled(QSize(1, 1), under << 24U | under << 8U | under);
                drawOver(clear, picture, QPoint(0, 0), 0.7, {.opacity = opacity});
                auto const seen = pixel(clear, 0, 0);
                ASSERT_LE(qRed(seen), qAlpha(seen));
                ASSERT_LE(qGreen(seen), qAlpha(seen));
                ASSERT_LE(qBlue(seen), qAlpha(seen));
                auto opaque = filled(QSize(1, 1), qRgba(0, 255, 255, 255));
                drawOver(opaque, picture, QPoint(0, 0), 0.7,
                    {.opacity = opacity, .ground = qRgba(0, 255, 255, 255)});
                ASSERT_EQ(qAlpha(pixel(opaque, 0, 0)), 255);
            }
        }
    }
}

TEST(PictureOverlay, APaintedOverlayStandsOnWholePixelsAroundItsArea)
{
    auto const overlay = paintedOverlay(QRectF(10.3, 20.5, 4, 4), 1.5,
        [](QPainter& painter) { painter.fillRect(QRectF(10.3, 20.5, 4, 4), Qt::white); });
    EXPECT_EQ(overlay.corner, QPoint(15, 30));
    EXPECT_EQ(overlay.picture.size(), QSize(7, 7));
    EXPECT_EQ(pixel(overlay.picture, 3, 3), qRgba(255, 255, 255, 255));
}

} // namespace
} // namespace velmora
