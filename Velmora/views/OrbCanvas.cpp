#include "Velmora/views/OrbCanvas.h"

#include <QImage>
#include <QPainter>

namespace velmora {

namespace {

/// A plain ball in the colours of the active hours.
void drawBall(QPainter& painter, OrbCanvas::Look const& look, double scale)
{
    QPointF const centre(look.bounds.width * scale / 2, look.bounds.height * scale / 2);
    auto const side = look.size * scale;
    QRadialGradient gradient(centre - QPointF(side, side) * 0.1, side * 0.42);
    gradient.setColorAt(0, QColor::fromRgbF(0.90F, 0.97F, 0.90F));
    gradient.setColorAt(0.5, QColor::fromRgbF(0.42F, 0.74F, 0.58F));
    gradient.setColorAt(1, QColor::fromRgbF(0.18F, 0.52F, 0.46F));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawEllipse(centre, side * 0.31, side * 0.31);
}

void drawControls(QPainter& painter, OrbCanvas::Look const& look)
{
    if (look.chromeShown <= 0)
        return;
    painter.setOpacity(look.chromeShown);
    for (std::size_t i = 0; i < OrbControls::all.size(); ++i) {
        auto const control = OrbControls::all.at(i);
        OrbControls::draw(painter, look.symbols.at(i),
            OrbControls::frame(control, look.size, look.bounds), OrbControls::symbolSize(look.size),
            look.pressed == control);
    }
}

} // namespace

void OrbCanvas::draw(QImage& canvas, Look const& look)
{
    auto const scale = canvas.devicePixelRatio();
    {
        // The caption is laid out in device pixels.
        canvas.setDevicePixelRatio(1);
        QPainter painter(&canvas);
        drawBall(painter, look, scale);
        m_caption.draw(painter,
            QPointF(look.bounds.width * scale / 2, look.bounds.height * scale / 2),
            {.word = look.word,
                .status = look.status,
                .size = look.size,
                .scale = scale,
                .wordShown = look.wordShown,
                .statusShown = look.statusShown,
                .lifted = look.chromeShown});
    }
    canvas.setDevicePixelRatio(scale);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    drawControls(painter, look);
}

} // namespace velmora
