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
QPainterPath mark(QRectF const& frame)
{
    auto const inset = QMarginsF(frame.width() * markInset, frame.height() * markInset,
        frame.width() * markInset, frame.height() * markInset);
    auto const inner = frame.marginsRemoved(inset);
    QPainterPath path(QPointF(inner.left(), inner.bottom() - markLift));
    path.lineTo(inner.right(), inner.bottom() - markLift);
    path.lineTo(inner.right(), inner.top());
    return path;
}

void paint(QPainter& painter, QRectF const& frame, bool lit)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(withAlpha(Qt::black, lit ? 0.18 : 0.08));
    painter.drawEllipse(
        frame.marginsRemoved(QMarginsF(discInset, discInset, discInset, discInset)));
    auto const width = std::max(frame.width() * markWidth, thinnestMark);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(withAlpha(Qt::white, lit ? 0.98 : 0.72), width, Qt::SolidLine, Qt::RoundCap,
        Qt::RoundJoin));
    painter.drawPath(mark(frame));
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

void ResizeHandleView::desktopShifted(Point by)
{
    m_state = gripShifted(m_state, by);
}

void ResizeHandleView::take(GripChange const& change)
{
    m_state = change.state;
    if (change.cursor != GripCursor::unchanged && onCursor)
        onCursor(change.cursor);
}

void ResizeHandleView::draw(QImage& canvas, double height)
{
    Drawn const wanted
        = {.area = QRectF(m_frame.x, height - m_frame.maxY(), m_frame.width, m_frame.height),
            .scale = canvas.devicePixelRatio(),
            .lit = m_state.highlighted()};
    if (wanted != m_drawn) {
        m_drawn = wanted;
        m_picture = paintedOverlay(wanted.area, wanted.scale,
            [&wanted](QPainter& painter) { paint(painter, wanted.area, wanted.lit); });
    }
    drawOver(canvas, m_picture.picture, m_picture.corner);
}

} // namespace velmora
