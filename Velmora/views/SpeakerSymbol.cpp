#include "Velmora/views/SpeakerSymbol.h"

#include "Velmora/views/SettingsLook.h"

#include <QPainter>
#include <QPainterPath>

namespace velmora {

namespace {

/// The symbol is drawn in a box of 16 by 12 units.
constexpr QSizeF box(16.0, 12.0);
constexpr double captionSize = 11.0;
constexpr double symbolOpacity = 0.5;
constexpr int degree = 16;

} // namespace

SpeakerSymbol::SpeakerSymbol(QWidget* parent)
    : QWidget(parent)
{
    setFont(SettingsLook::font(captionSize));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize SpeakerSymbol::sizeHint() const
{
    double const height = fontMetrics().ascent() + 1.0;
    return QSizeF(height * box.width() / box.height(), height).toSize();
}

void SpeakerSymbol::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isRightToLeft()) {
        painter.translate(width(), 0);
        painter.scale(-1.0, 1.0);
    }
    painter.scale(width() / box.width(), height() / box.height());

    QPainterPath body;
    body.moveTo(0.8, 4.2);
    body.lineTo(3.2, 4.2);
    body.lineTo(7.0, 1.2);
    body.lineTo(7.0, 10.8);
    body.lineTo(3.2, 7.8);
    body.lineTo(0.8, 7.8);
    body.closeSubpath();

    // Drawn whole and then dimmed: the strokes must not darken where they meet.
    auto const ink = SettingsLook::ink(symbolOpacity);
    QPainterPathStroker soften;
    soften.setWidth(0.8);
    soften.setJoinStyle(Qt::RoundJoin);
    painter.fillPath(body.united(soften.createStroke(body)).simplified(), ink);

    painter.setPen(QPen(ink, 1.2, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(5.6, 3.0, 6.0, 6.0), -45 * degree, 90 * degree);
    painter.drawArc(QRectF(3.6, 1.0, 10.0, 10.0), -48 * degree, 96 * degree);
}

} // namespace velmora
