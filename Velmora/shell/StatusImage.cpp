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

QRectF inset(double by)
{
    return {by, by, designSide - 2 * by, designSide - 2 * by};
}

} // namespace

QPixmap statusPixmap(int side, QColor const& colour)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / designSide, side / designSide);
    painter.setPen(QPen(colour, ringWidth));
    painter.drawEllipse(inset(ringInset));
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(inset(dotInset));
    return pixmap;
}

QIcon statusImage(QColor const& colour)
{
    QIcon icon;
    for (int const side : {16, 18, 20, 22, 24, 32, 36, 44, 48, 64})
        icon.addPixmap(statusPixmap(side, colour));
    return icon;
}

} // namespace velmora
