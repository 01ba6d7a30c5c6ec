#include "Velmora/views/WidgetView.h"

#include "Velmora/geometry/OrbHitArea.h"

#include <utility>

namespace velmora {

using OrbControls::Control;
using OrbControls::Symbol;

WidgetView::WidgetView(AppModel& model)
    : m_model(model)
    , m_showWord(model.isReminding())
{
    connect(&model, &AppModel::changed, this, &WidgetView::modelChanged);
}

void WidgetView::modelChanged(AppModel::Property property)
{
    if (property == AppModel::Property::isReminding)
        m_showWord = m_model.isReminding();
}

bool WidgetView::showChrome() const
{
    return m_model.pointerInside() || m_dragging || m_resizing;
}

Point WidgetView::inView(Point windowPoint) const
{
    return {.x = windowPoint.x, .y = m_bounds.height - windowPoint.y};
}

std::optional<Control> WidgetView::controlAt(Point windowPoint) const
{
    if (!showChrome())
        return std::nullopt;
    return OrbControls::at(inView(windowPoint), m_model.widgetSize(), m_bounds);
}

void WidgetView::setPointer(std::optional<Point> windowPoint)
{
    auto const gesture = m_press || m_pressed;
    setHovered(windowPoint && !gesture ? controlAt(*windowPoint) : std::nullopt);
}

void WidgetView::setHovered(std::optional<Control> control)
{
    if (std::exchange(m_hovered, control) != control)
        Q_EMIT hoveredControlChanged();
}

void WidgetView::mouseDown(PointerEvent const& event)
{
    setHovered(std::nullopt);
    m_pressed = controlAt(event.window);
    if (m_pressed || !OrbHitArea::insideContent(event.window, m_bounds))
        return;
    m_press = event;
    m_pressDepth = inView(event.window).y;
}

void WidgetView::mouseDragged(PointerEvent const& event)
{
    if (m_press)
        dragChanged(event);
}

void WidgetView::mouseUp(PointerEvent const& event)
{
    if (m_press)
        dragEnded(event);
    auto const pressed = std::exchange(m_pressed, std::nullopt);
    if (pressed && controlAt(event.window) == pressed)
        activate(*pressed);
}

Symbol WidgetView::symbol(Control control) const
{
    if (control == Control::settings)
        return Symbol::sliders;
    return m_model.paused() ? Symbol::play : Symbol::pause;
}

QString WidgetView::help(Control control) const
{
    if (control == Control::settings)
        return tr("Settings");
    return m_model.paused() ? tr("Resume reminders") : tr("Pause reminders");
}

QString WidgetView::label(Control control) const
{
    if (control == Control::settings)
        return tr("Settings");
    return m_model.paused() ? tr("Resume") : tr("Pause");
}

Rect WidgetView::controlFrame(Control control) const
{
    return OrbControls::frame(control, m_model.widgetSize(), m_bounds);
}

void WidgetView::activate(Control control)
{
    if (control == Control::pause)
        m_model.togglePaused();
    else
        m_model.setShowingSettings(!m_model.showingSettings());
}

QString WidgetView::accessibleLabel()
{
    return tr("Breathing reminder");
}

QString WidgetView::accessibleValue() const
{
    return QString::fromStdString(m_model.statusLine());
}

QString WidgetView::accessibleHint()
{
    return tr("Click during a reminder when you are done. Drag to move.");
}

std::vector<WidgetView::NamedAction> WidgetView::accessibleActions()
{
    return {{.name = help(Control::pause), .run = [this] { m_model.togglePaused(); }},
        {.name = tr("Velmora now"), .run = [this] { m_model.velmoraNow(); }},
        // Opens only, where the button opens and closes.
        {.name = tr("Settings"), .run = [this] { m_model.setShowingSettings(true); }}};
}

} // namespace velmora
