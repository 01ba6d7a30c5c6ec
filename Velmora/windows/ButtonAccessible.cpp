#include "Velmora/windows/ButtonAccessible.h"

#include "Velmora/views/WidgetView.h"
#include "Velmora/windows/WidgetPanel.h"

namespace velmora {

ButtonAccessible::ButtonAccessible(WidgetPanel& panel, OrbControls::Control control)
    : m_panel(panel)
    , m_view(panel.view())
    , m_control(control)
{
}

QWindow* ButtonAccessible::window() const
{
    return &m_panel;
}

QAccessibleInterface* ButtonAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(&m_panel);
}

QString ButtonAccessible::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name)
        return m_view.label(m_control);
    if (kind == QAccessible::Description)
        return m_view.help(m_control);
    return {};
}

QRect ButtonAccessible::rect() const
{
    auto const square = m_view.controlFrame(m_control);
    return QRectF(square.x, square.y, square.width, square.height)
        .toAlignedRect()
        .translated(m_panel.position());
}

void* ButtonAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

QStringList ButtonAccessible::actionNames() const
{
    return {pressAction()};
}

void ButtonAccessible::doAction(QString const& name)
{
    if (name == pressAction())
        m_view.activate(m_control);
}

} // namespace velmora
