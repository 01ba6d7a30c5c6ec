#include "Velmora/views/OrbCanvas.h"

#include <QImage>
#include <QPainter>

namespace velmora {

namespace {

PixelTarget target(QImage& canvas)
{
    return {.bytes = canvas.bits(),
        .width = canvas.width(),
        .height = canvas.height(),
        .stride = canvas.bytesPerLine(),
        .scale = canvas.devicePixelRatio()};
}

void drawControls(QImage& canvas, Size bounds, double size, OrbCanvas::Controls const& controls)
{
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(controls.opacity);
    for (std::size_t i = 0; i < OrbControls::all.size(); ++i) {
        auto const control = OrbControls::all.at(i);
        OrbControls::draw(painter, controls.symbols.at(i),
            OrbControls::frame(control, size, bounds), OrbControls::symbolSize(size),
            controls.pressed == control);
    }
}

} // namespace

void OrbCanvas::draw(QImage& canvas, Size bounds, OrbFrame const& frame,
    OrbCaption::Texts const& texts, Controls const& controls)
{
    drawStack(canvas, bounds, frame, texts);
    if (controls.opacity > 0)
        drawControls(canvas, bounds, frame.size, controls);
}

void OrbCanvas::drawStack(
    QImage& canvas, Size bounds, OrbFrame const& frame, OrbCaption::Texts const& texts)
{
    auto const pixels = target(canvas);
    if (!frame.caption) {
        m_renderer.render(frame, pixels);
        return;
    }
    m_renderer.render(frame, pixels, StackOpacity::deferred);
    {
        // The caption is laid out in device pixels.
        canvas.setDevicePixelRatio(1);
        QPainter painter(&canvas);
        QPointF const centre(bounds.width / 2, bounds.height / 2);
        m_caption.draw(
            painter, centre * pixels.scale, *frame.caption, texts, frame.size, pixels.scale);
    }
    canvas.setDevicePixelRatio(pixels.scale);
    multiplyOpacity(pixels, frame.opacity);
}

} // namespace velmora
