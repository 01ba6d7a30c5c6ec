#include "Velmora/shell/StatusImage.h"

#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace velmora {

namespace {

/// The image is described on a square of this side; other sizes are scaled from it.
constexpr double designSide = 18.0;
constexpr double ringInset = 2.2;
constexpr double ringWidth = 1.5;
constexpr double dotInset = 6.2;

/// What the image is drawn in, and on, where nobody knows the panel's colours.
QColor const unknownInk(0xf4, 0xf4, 0xf4);
QColor const unknownGround(0x22, 0x26, 0x2a, 0xd8);
constexpr double groundInset = 0.4;

QRectF inset(double by)
{
    return {by, by, designSide - 2 * by, designSide - 2 * by};
}

void fillCircle(QPainter& painter, QColor const& colour, double insetBy)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(inset(insetBy));
}

QPixmap pixmapOf(std::vector<std::uint32_t> const& pixels, int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    auto const width = static_cast<std::size_t>(side);
    for (int y = 0; y < side; ++y) {
        std::copy_n(pixels.begin() + static_cast<std::ptrdiff_t>(y) * side, width,
            reinterpret_cast<std::uint32_t*>(image.scanLine(y)));
    }
    return QPixmap::fromImage(image);
}

} // namespace

QPixmap statusPixmap(int side, std::optional<QColor> const& ink)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / designSide, side / designSide);
    if (!ink)
        fillCircle(painter, unknownGround, groundInset);
    auto const colour = ink.value_or(unknownInk);
    painter.setPen(QPen(colour, ringWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(inset(ringInset));
    fillCircle(painter, colour, dotInset);
    return pixmap;
}

QIcon statusImage(std::optional<QColor> const& ink, StatusSymbol const& symbol)
{
    QIcon icon;
    for (int const side : {16, 18, 20, 22, 24, 32, 36, 44, 48, 64}) {
        auto const pixels = symbol(side);
        icon.addPixmap(pixels.empty() ? statusPixmap(side, ink) : pixmapOf(pixels, side));
    }
    icon.setIsMask(true);
    return icon;
}

} // namespace velmora
