#include "Velmora/windows/ControlHelp.h"

#include "Velmora/views/WidgetView.h"

#include <QApplication>
#include <QStyle>
#include <QToolTip>
#include <QWindow>

namespace velmora {

ControlHelp::ControlHelp(QWindow const& window, WidgetView const& view)
    : m_window(window)
    , m_view(view)
{
    m_delay.setSingleShot(true);
    connect(&m_delay, &QTimer::timeout, this, &ControlHelp::show);
    connect(&view, &WidgetView::hoveredControlChanged, this, &ControlHelp::hoverChanged);
}

void ControlHelp::hoverChanged()
{
    QToolTip::hideText();
    if (m_view.hoveredControl())
        m_delay.start(QApplication::style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay));
    else
        m_delay.stop();
}

void ControlHelp::show() const
{
    auto const control = m_view.hoveredControl();
    if (!control)
        return;
    auto const button = m_view.controlFrame(*control);
    auto const below = QPointF(button.midX(), button.maxY()).toPoint();
    QToolTip::showText(m_window.position() + below, m_view.help(*control));
}

} // namespace velmora
