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

void paintControls(QPainter& painter, Size bounds, double size, OrbCanvas::Controls const& controls)
{
    for (std::size_t i = 0; i < OrbControls::all.size(); ++i) {
        auto const control = OrbControls::all.at(i);
        OrbControls::draw(painter, controls.symbols.at(i),
            OrbControls::frame(control, size, bounds), OrbControls::symbolSize(size),
            controls.pressed == control);
    }
}

/// Holds both buttons, in points.
QRectF controlsArea(Size bounds, double size)
{
    QRectF area;
    for (auto const control : OrbControls::all) {
        auto const frame = OrbControls::frame(control, size, bounds);
        area |= QRectF(frame.x, frame.y, frame.width, frame.height);
    }
    return area;
}

} // namespace

void OrbCanvas::draw(QImage& canvas, Size bounds, OrbFrame const& frame,
    OrbCaption::Texts const& texts, Controls const& controls, std::optional<OrbColor> const& ground)
{
    drawStack(canvas, bounds, frame, texts, ground);
    if (controls.opacity > 0)
        drawControls(canvas, bounds, frame.size, controls);
}

void OrbCanvas::drawStack(QImage& canvas, Size bounds, OrbFrame const& frame,
    OrbCaption::Texts const& texts, std::optional<OrbColor> const& ground)
{
    auto const pixels = target(canvas);
    m_renderer.render(frame, pixels, ground);
    if (!frame.caption)
        return;
    QPointF const centre(bounds.width / 2, bounds.height / 2);
    m_caption.draw(canvas,
        {.centre = centre * pixels.scale,
            .widest = frame.size,
            .scale = pixels.scale,
            .stack = {.opacity = frame.opacity, .ground = ground ? opaquePixel(*ground) : 0}},
        *frame.caption, texts);
}

void OrbCanvas::drawControls(QImage& canvas, Size bounds, double size, Controls const& controls)
{
    ControlsDrawn wanted = {
        .bounds = bounds, .size = size, .scale = canvas.devicePixelRatio(), .controls = controls};
    // One picture serves the whole fade.
    wanted.controls.opacity = 1;
    if (wanted != m_controlsDrawn) {
        m_controlsDrawn = wanted;
        m_controls = paintedOverlay(controlsArea(bounds, size), wanted.scale,
            [&](QPainter& painter) { paintControls(painter, bounds, size, controls); });
    }
    drawOver(canvas, m_controls.picture, m_controls.corner, controls.opacity);
}

} // namespace velmora
