#include "Velmora/views/PictureOverlay.h"

#include <QPainter>
#include <QRect>
#include <QRgb>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace velmora {

namespace {

constexpr std::uint32_t whole = 255;
/// All four bytes times `factor` / 255, rounded.
std::uint32_t scaled(std::uint32_t pixel, std::uint32_t factor)
{
    // Side by side in one number, with room for what each grows to.
    constexpr std::uint64_t everyOther = 0x00ff00ff00ff00ff;
    constexpr std::uint64_t half = 0x0080008000800080;
    auto bytes = (std::uint64_t{pixel} | std::uint64_t{pixel} << 24U) & everyOther;
    bytes = bytes * factor + half;
    bytes = ((bytes + ((bytes >> 8U) & everyOther)) >> 8U) & everyOther;
    return static_cast<std::uint32_t>(bytes | bytes >> 24U);
}

/// A share of 0..1 in bytes.
std::uint32_t byte(double share)
{
    return static_cast<std::uint32_t>(std::lround(std::clamp(share, 0.0, 1.0) * whole));
}

} // namespace

void drawOver(
    QImage& canvas, QImage const& picture, QPoint corner, double opacity, PictureStack const& stack)
{
    auto const area = QRect(corner, picture.size()).intersected(QRect(QPoint(0, 0), canvas.size()));
    auto const factor = byte(opacity);
    auto const stacked = byte(stack.opacity);
    if (area.isEmpty() || factor == 0)
        return;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        auto const* source = reinterpret_cast<QRgb const*>(picture.constScanLine(y - corner.y()));
        auto* target = reinterpret_cast<QRgb*>(canvas.scanLine(y));
        for (int x = area.left(); x <= area.right(); ++x) {
            auto over = source[x - corner.x()];
            // Most of a picture of words is empty.
            if (over == 0)
                continue;
            if (factor != whole)
                over = scaled(over, factor);
            auto const alpha = over >> 24U;
            if (stacked != whole) {
                over = scaled(over, stacked);
                over += scaled(stack.ground, alpha - (over >> 24U));
            }
            target[x] = over + scaled(target[x], whole - alpha);
        }
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
