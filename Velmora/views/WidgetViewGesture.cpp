#include "Velmora/geometry/OrbGesture.h"
#include "Velmora/geometry/WidgetPlacement.h"
#include "Velmora/views/OrbWindow.h"
#include "Velmora/views/WidgetView.h"

namespace velmora {

namespace {

/// Measured on the desktop, so that the window's own moving does not shorten it.
OrbGesture::Translation translation(PointerEvent const& press, PointerEvent const& now)
{
    return {.x = now.screen.x - press.screen.x, .y = press.screen.y - now.screen.y};
}

} // namespace

void WidgetView::dragChanged(PointerEvent const& event)
{
    auto const t = translation(*m_press, event);
    auto const begun = m_dragging || m_resizing;
    if (!m_window || (!begun && !OrbGesture::begins(t)))
        return;
    if (!begun) {
        m_resizing = OrbGesture::chosen(event.option) == OrbGesture::Drag::resize;
        m_dragging = !m_resizing;
        if (m_resizing)
            m_resizeStart = m_model.widgetSize();
        else
            m_dragOrigin = m_window->frame().origin();
    }
    if (m_resizing && m_resizeStart)
        m_model.applySize(OrbGesture::resized(*m_resizeStart, t), m_window->display());
    else if (m_dragging && m_dragOrigin)
        move(OrbGesture::moved(*m_dragOrigin, t));
}

void WidgetView::move(Point proposed)
{
    if (auto const visible = m_window->visibleFrame())
        proposed = WidgetPlacement::drag(proposed, m_window->frame().width, *visible);
    m_window->setFrameOrigin(proposed);
}

void WidgetView::desktopShifted(Point by)
{
    auto const shifted = [by](Point p) { return Point{.x = p.x + by.x, .y = p.y + by.y}; };
    if (m_press)
        m_press->screen = shifted(m_press->screen);
    if (m_dragOrigin)
        m_dragOrigin = shifted(*m_dragOrigin);
}

void WidgetView::dragEnded(PointerEvent const& event)
{
    // The release may come from further on than the last move.
    dragChanged(event);
    if (m_window)
        m_model.saveOrigin(m_window->frame().origin());
    auto const clicked = OrbGesture::isClick(
        translation(*m_press, event), m_resizing, m_pressDepth, m_model.widgetSize());
    forgetGesture();
    if (clicked && m_model.isReminding())
        m_model.acknowledgeReminder();
}

void WidgetView::mouseCancelled()
{
    if (m_dragging && m_window)
        m_model.saveOrigin(m_window->frame().origin());
    forgetGesture();
}

void WidgetView::forgetGesture()
{
    m_press.reset();
    m_pressed.reset();
    m_dragOrigin.reset();
    m_resizeStart.reset();
    m_dragging = false;
    m_resizing = false;
}

} // namespace velmora
