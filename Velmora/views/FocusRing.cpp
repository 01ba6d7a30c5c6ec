#include "Velmora/views/FocusRing.h"

#include "Velmora/views/SettingsLook.h"

#include <QFocusEvent>
#include <QPainter>
#include <QWidget>

namespace velmora {

namespace {

constexpr double strokeWidth = 2.0;

bool comesFromKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason;
}

/// The window lost the focus, not the control: the ring comes back with the window.
bool isOnlyLent(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

} // namespace

FocusRing::FocusRing(QWidget& control)
    : QObject(&control)
    , m_control(control)
{
    control.installEventFilter(this);
}

void FocusRing::draw(QPainter& painter, QRectF const& bounds, double radius) const
{
    if (!m_shown || !m_control.hasFocus())
        return;
    constexpr double inset = strokeWidth / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(SettingsLook::sage(), strokeWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(
        bounds.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    painter.restore();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn: {
        auto const reason = static_cast<QFocusEvent const*>(event)->reason();
        if (!isOnlyLent(reason))
            show(comesFromKeyboard(reason));
        break;
    }
    case QEvent::FocusOut:
        if (!isOnlyLent(static_cast<QFocusEvent const*>(event)->reason()))
            show(false);
        break;
    case QEvent::KeyPress:
        show(true);
        break;
    case QEvent::MouseButtonPress:
        show(false);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void FocusRing::show(bool shown)
{
    if (m_shown == shown)
        return;
    m_shown = shown;
    m_control.update();
}

} // namespace velmora
