#include "Velmora/views/PictureOverlay.h"

#include <QPainter>
#include <QRect>
#include <QRgb>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace velmora {

namespace {

constexpr std::uint32_t evenBytes = 0x00ff00ff;

/// All four bytes times `factor` / 255, rounded.
std::uint32_t scaled(std::uint32_t pixel, std::uint32_t factor)
{
    constexpr std::uint32_t half = 0x00800080;
    auto even = (pixel & evenBytes) * factor;
    even = ((even + ((even >> 8U) & evenBytes) + half) >> 8U) & evenBytes;
    auto odd = ((pixel >> 8U) & evenBytes) * factor;
    odd = (odd + ((odd >> 8U) & evenBytes) + half) & ~evenBytes;
    return even | odd;
}

} // namespace

void drawOver(QImage& canvas, QImage const& picture, QPoint corner, double opacity)
{
    constexpr std::uint32_t whole = 255;
    auto const area = QRect(corner, picture.size()).intersected(QRect(QPoint(0, 0), canvas.size()));
    auto const factor
        = static_cast<std::uint32_t>(std::lround(std::clamp(opacity, 0.0, 1.0) * whole));
    if (area.isEmpty() || factor == 0)
        return;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        auto const* source = reinterpret_cast<QRgb const*>(picture.constScanLine(y - corner.y()));
        auto* target = reinterpret_cast<QRgb*>(canvas.scanLine(y));
        for (int x = area.left(); x <= area.right(); ++x) {
            auto const pixel = source[x - corner.x()];
            // Most of a picture of words is empty.
            if (pixel == 0)
                continue;
            auto const over = factor == whole ? pixel : scaled(pixel, factor);
            target[x] = over + scaled(target[x], whole - (over >> 24U));
        }
    }
}

void drawUnder(QImage& canvas, QColor const& ground)
{
    constexpr std::uint32_t whole = 255;
    auto const colour = ground.rgba();
    // What is seen of the ground through each alpha: a frame has far more pixels than that.
    std::array<std::uint32_t, 256> seen = {};
    for (std::uint32_t alpha = 0; alpha < seen.size(); ++alpha)
        seen[alpha] = scaled(colour, whole - alpha);
    // Asked once: the toolkit's answers cost more than a pixel.
    auto const width = canvas.width();
    auto const height = canvas.height();
    for (int y = 0; y < height; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(canvas.scanLine(y));
        for (int x = 0; x < width; ++x)
            row[x] += seen[row[x] >> 24U];
    }
}

PictureOverlay paintedOverlay(
    QRectF const& area, double scale, std::function<void(QPainter&)> const& paint)
{
    auto const pixels = QRectF(area.topLeft() * scale, area.size() * scale).toAlignedRect();
    PictureOverlay overlay{
        QImage(pixels.size(), QImage::Format_ARGB32_Premultiplied), pixels.topLeft()};
    overlay.picture.fill(Qt::transparent);
    QPainter painter(&overlay.picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-pixels.topLeft());
    painter.scale(scale, scale);
    paint(painter);
    return overlay;
}

} // namespace velmora
