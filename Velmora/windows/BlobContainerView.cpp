#include "Velmora/windows/BlobContainerView.h"

#include "Velmora/model/AppModel.h"
#include "Velmora/views/OrbWindow.h"
#include "Velmora/views/WidgetView.h"

namespace velmora {

using OrbHitArea::Part;

BlobContainerView::BlobContainerView(AppModel& model, WidgetView& hosting)
    : m_model(model)
    , m_hosting(hosting)
    , m_resizeKnob(model)
{
}

void BlobContainerView::layout(Size bounds)
{
    m_bounds = bounds;
    m_hosting.layout(bounds);
    m_resizeKnob.setFrame(OrbHitArea::gripFrame(bounds));
}

void BlobContainerView::drawGrip(QImage& canvas)
{
    m_resizeKnob.draw(canvas, m_bounds.height);
}

Part BlobContainerView::hitTest(Point p) const
{
    return OrbHitArea::at(p, m_bounds);
}

bool BlobContainerView::updatePointer(std::optional<Point> windowPoint)
{
    auto const part = windowPoint ? hitTest(*windowPoint) : Part::nothing;
    m_resizeKnob.setPointerHover(part == Part::grip);
    m_hosting.setPointer(part == Part::orb ? windowPoint : std::nullopt);
    return part != Part::nothing;
}

void BlobContainerView::mouseDown(PointerEvent const& event)
{
    m_pressed = hitTest(event.window);
    if (m_pressed == Part::grip)
        m_resizeKnob.mouseDown(event);
    else if (m_pressed == Part::orb)
        m_hosting.mouseDown(event);
}

void BlobContainerView::mouseDragged(PointerEvent const& event)
{
    if (m_pressed == Part::grip && m_window)
        m_resizeKnob.mouseDragged(event, m_window->display());
    else if (m_pressed == Part::orb)
        m_hosting.mouseDragged(event);
}

void BlobContainerView::mouseUp(PointerEvent const& event)
{
    if (m_pressed == Part::grip)
        m_resizeKnob.mouseUp(event);
    else if (m_pressed == Part::orb)
        m_hosting.mouseUp(event);
    m_pressed = Part::nothing;
}

void BlobContainerView::mouseCancelled()
{
    constexpr Point outside = {.x = -1, .y = -1};
    if (m_pressed == Part::grip)
        m_resizeKnob.mouseUp({.window = outside});
    else if (m_pressed == Part::orb)
        m_hosting.mouseCancelled();
    m_pressed = Part::nothing;
}

void BlobContainerView::desktopShifted(Point by)
{
    m_resizeKnob.desktopShifted(by);
    m_hosting.desktopShifted(by);
}

void BlobContainerView::scrollWheel(OrbGesture::Scroll scroll)
{
    resize(OrbGesture::scrolled(m_model.widgetSize(), scroll));
}

void BlobContainerView::magnify(double magnification)
{
    resize(OrbGesture::pinched(m_model.widgetSize(), magnification));
}

void BlobContainerView::resize(double size)
{
    if (m_window)
        m_model.applySize(size, m_window->display());
}

} // namespace velmora
