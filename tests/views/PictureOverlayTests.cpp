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

TEST(PictureOverlay, AGroundShowsThroughWhatIsNotOpaque)
{
    auto canvas = filled(QSize(2, 1), 0);
    canvas.setPixel(1, 0, qRgba(100, 0, 0, 255));
    drawUnder(canvas, QColor(26, 34, 32));
    EXPECT_EQ(pixel(canvas, 0, 0), qRgba(26, 34, 32, 255));
    EXPECT_EQ(pixel(canvas, 1, 0), qRgba(100, 0, 0, 255));
}

TEST(PictureOverlay, AGroundShowsThroughEachAlphaInItsShare)
{
    auto canvas = filled(QSize(256, 1), 0);
    for (int alpha = 0; alpha <= 255; ++alpha)
        reinterpret_cast<QRgb*>(canvas.scanLine(0))[alpha] = qRgba(0, 0, 0, alpha);
    drawUnder(canvas, QColor(26, 200, 255));
    for (int alpha = 0; alpha <= 255; ++alpha) {
        auto const share = [alpha](int level) {
            return static_cast<int>(std::lround(level * (255 - alpha) / 255.0));
        };
        EXPECT_EQ(pixel(canvas, alpha, 0), qRgba(share(26), share(200), share(255), 255)) << alpha;
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
