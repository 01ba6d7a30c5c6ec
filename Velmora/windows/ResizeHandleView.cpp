#include "Velmora/windows/ResizeHandleView.h"

#include "Velmora/model/AppModel.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace velmora {

namespace {

constexpr double discInset = 4.0;
constexpr double markInset = 0.28;
constexpr double markLift = 2.0;
constexpr double markWidth = 0.07;
constexpr double thinnestMark = 2.4;

QColor withAlpha(Qt::GlobalColor colour, double alpha)
{
    QColor result(colour);
    result.setAlphaF(static_cast<float>(alpha));
    return result;
}

/// A corner bracket along the bottom and up the right side; y grows downwards.
QPainterPath mark(Rect const& frame)
{
    QRectF const inner = QRectF(0, 0, frame.width, frame.height)
                             .adjusted(frame.width * markInset, frame.height * markInset,
                                 -frame.width * markInset, -frame.height * markInset);
    QPainterPath path(QPointF(inner.left(), inner.bottom() - markLift));
    path.lineTo(inner.right(), inner.bottom() - markLift);
    path.lineTo(inner.right(), inner.top());
    return path;
}

} // namespace

ResizeHandleView::ResizeHandleView(AppModel& model)
    : m_model(model)
{
}

void ResizeHandleView::setPointerHover(bool over)
{
    take(gripHovered(m_state, over));
}

void ResizeHandleView::mouseDown(PointerEvent const& event)
{
    take(gripPressed(m_state, m_model.widgetSize(), event.screen));
}

void ResizeHandleView::mouseDragged(PointerEvent const& event, std::optional<DisplayId> display)
{
    m_model.applySize(gripSize(m_state, event.screen), display);
}

void ResizeHandleView::mouseUp(PointerEvent const& event)
{
    take(gripReleased(m_state, m_frame.contains(event.window)));
}

void ResizeHandleView::take(GripChange const& change)
{
    m_state = change.state;
    if (change.cursor != GripCursor::unchanged && onCursor)
        onCursor(change.cursor);
}

void ResizeHandleView::draw(QPainter& painter) const
{
    auto const lit = m_state.highlighted();
    QRectF const bounds(0, 0, m_frame.width, m_frame.height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(withAlpha(Qt::black, lit ? 0.18 : 0.08));
    painter.drawEllipse(bounds.adjusted(discInset, discInset, -discInset, -discInset));
    auto const width = std::max(m_frame.width * markWidth, thinnestMark);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(withAlpha(Qt::white, lit ? 0.98 : 0.72), width, Qt::SolidLine, Qt::RoundCap,
        Qt::RoundJoin));
    painter.drawPath(mark(m_frame));
}

} // namespace velmora
