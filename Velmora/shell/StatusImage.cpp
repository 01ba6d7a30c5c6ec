#include "Velmora/shell/StatusImage.h"

#include <QPainter>
#include <QPixmap>

namespace velmora {

namespace {

/// The image is described on a square of this side; other sizes are scaled from it.
constexpr double designSide = 18.0;
constexpr double ringInset = 2.2;
constexpr double ringWidth = 1.5;
constexpr double dotInset = 6.2;

/// What the image is drawn in on a panel whose colours nobody knows.
QColor const unknownInk(0xf4, 0xf4, 0xf4);
constexpr QColor unknownRim(0, 0, 0, 0xa0);
constexpr double rimWidth = 1.2;

QRectF inset(double by)
{
    return {by, by, designSide - 2 * by, designSide - 2 * by};
}

void draw(QPainter& painter, QColor const& colour, double wider)
{
    painter.setPen(QPen(colour, ringWidth + 2 * wider));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(inset(ringInset));
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(inset(dotInset - wider));
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
        draw(painter, unknownRim, rimWidth);
    draw(painter, ink.value_or(unknownInk), 0);
    return pixmap;
}

QIcon statusImage(std::optional<QColor> const& ink)
{
    QIcon icon;
    for (int const side : {16, 18, 20, 22, 24, 32, 36, 44, 48, 64})
        icon.addPixmap(statusPixmap(side, ink));
    return icon;
}

} // namespace velmora
