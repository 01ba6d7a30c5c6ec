#include "Velmora/windows/WidgetAccessible.h"

#include "Velmora/views/WidgetView.h"
#include "Velmora/windows/ButtonAccessible.h"
#include "Velmora/windows/WidgetPanel.h"

#include <QGuiApplication>

#include <algorithm>

namespace velmora {

namespace {

QAccessibleInterface* accessibleFor(QString const& /*className*/, QObject* object)
{
    auto* panel = qobject_cast<WidgetPanel*>(object);
    return panel ? new WidgetAccessible(*panel) : nullptr;
}

} // namespace

void WidgetAccessible::install()
{
    QAccessible::installFactory(accessibleFor);
}

void WidgetAccessible::announce(WidgetPanel& panel, QString const& before)
{
    if (!QAccessible::isActive())
        return;
    auto const* accessible = panel.accessibleRoot();
    if (!accessible)
        return;
    QAccessibleTextUpdateEvent line(&panel, 0, before, accessible->text(QAccessible::Value));
    QAccessible::updateAccessibility(&line);
    for (int i = 0; i < accessible->childCount(); ++i) {
        QAccessibleEvent name(accessible->child(i), QAccessible::NameChanged);
        QAccessible::updateAccessibility(&name);
    }
}

WidgetAccessible::WidgetAccessible(WidgetPanel& panel)
    : QAccessibleObject(&panel)
    , m_panel(panel)
    , m_view(panel.view())
{
    std::ranges::transform(OrbControls::all, m_buttons.begin(), [&panel](auto control) {
        return QAccessible::registerAccessibleInterface(new ButtonAccessible(panel, control));
    });
}

WidgetAccessible::~WidgetAccessible()
{
    for (auto const button : m_buttons)
        QAccessible::deleteAccessibleInterface(button);
}

QAccessibleInterface* WidgetAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(qGuiApp);
}

int WidgetAccessible::childCount() const
{
    return static_cast<int>(m_buttons.size());
}

QAccessibleInterface* WidgetAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    return QAccessible::accessibleInterface(m_buttons.at(static_cast<std::size_t>(index)));
}

int WidgetAccessible::indexOfChild(QAccessibleInterface const* wanted) const
{
    for (int i = 0; i < childCount(); ++i) {
        if (child(i) == wanted)
            return i;
    }
    return -1;
}

QWindow* WidgetAccessible::window() const
{
    return &m_panel;
}

QRect WidgetAccessible::rect() const
{
    return m_panel.geometry();
}

QString WidgetAccessible::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Name:
        return WidgetView::accessibleLabel();
    case QAccessible::Description:
        return WidgetView::accessibleHint();
    case QAccessible::Value:
        return m_view.accessibleValue();
    default:
        return {};
    }
}

QAccessible::State WidgetAccessible::state() const
{
    QAccessible::State state;
    state.invisible = !m_panel.isVisible();
    state.movable = true;
    state.sizeable = true;
    state.readOnly = true;
    return state;
}

void* WidgetAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface*>(this);
    return nullptr;
}

QStringList WidgetAccessible::actionNames() const
{
    QStringList names;
    for (auto const& action : m_view.accessibleActions())
        names.push_back(action.name);
    return names;
}

void WidgetAccessible::doAction(QString const& name)
{
    auto const actions = m_view.accessibleActions();
    auto const action = std::ranges::find(actions, name, &WidgetView::NamedAction::name);
    if (action != actions.end())
        action->run();
}

void WidgetAccessible::selection(int /*index*/, int* start, int* end) const
{
    *start = 0;
    *end = 0;
}

QString WidgetAccessible::text(int start, int end) const
{
    auto const line = m_view.accessibleValue();
    return end < 0 ? line.mid(start) : line.mid(start, end - start);
}

int WidgetAccessible::characterCount() const
{
    return static_cast<int>(m_view.accessibleValue().size());
}

QString WidgetAccessible::attributes(int /*offset*/, int* start, int* end) const
{
    *start = 0;
    *end = characterCount();
    return {};
}

} // namespace velmora
