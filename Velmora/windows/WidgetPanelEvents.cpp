#include "Velmora/geometry/PointerTracker.h"
#include "Velmora/platform/DesktopPanel.h"
#include "Velmora/windows/WidgetPanel.h"

#include <QEnterEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QWheelEvent>

namespace velmora {

namespace {

/// Eighths of a degree to the point, as touchpad drivers count; the toolkit's own fine measure is
/// in whatever unit the driver likes.
constexpr double anglePerPoint = 8.0;

OrbGesture::Scroll scroll(QWheelEvent const& event)
{
    auto angle = event.angleDelta();
    // The toolkit turns the wheel sideways while Alt is held; for the orb up stays up.
    if (event.modifiers().testFlag(Qt::AltModifier))
        angle = angle.transposed();
    auto const fine = event.hasPixelDelta() || !event.pixelDelta().isNull();
    return OrbGesture::scroll(
        angle.y(), fine ? std::optional(angle.y() / anglePerPoint) : std::nullopt);
}

} // namespace

PointerEvent WidgetPanel::pointerEvent(QSinglePointEvent const& event) const
{
    auto const local = event.position();
    auto const global = event.globalPosition();
    return {.window = {.x = local.x(), .y = height() - local.y()},
        .screen = m_coordinates.fromToolkit(Point{.x = global.x(), .y = global.y()}),
        .option = event.modifiers().testFlag(Qt::AltModifier)};
}

void WidgetPanel::pointerTick(std::optional<Point> windowPoint)
{
    auto& model = m_seams.model;
    if (auto const here = display(); here != model.hostScreen())
        model.setHostScreen(here);
    auto const over = m_container.updatePointer(windowPoint);
    if (model.pointerInside() != over)
        model.setPointerInside(over);
    auto const held = QGuiApplication::mouseButtons().testFlag(Qt::LeftButton);
    auto const ignores = velmora::ignoresPointer(over, held);
    if (ignores != m_ignoresPointer) {
        m_ignoresPointer = ignores;
        m_seams.desktop.setIgnoresPointer(ignores);
    }
}

Point WidgetPanel::windowPoint(Point screen) const
{
    return {.x = screen.x - m_frame.x, .y = screen.y - m_frame.y};
}

bool WidgetPanel::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Enter:
        pointerTick(pointerEvent(*static_cast<QEnterEvent*>(event)).window);
        break;
    case QEvent::Leave:
        pointerTick(std::nullopt);
        break;
    case QEvent::NativeGesture: {
        auto const* gesture = static_cast<QNativeGestureEvent*>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture) {
            m_container.magnify(gesture->value());
            pointerTick(windowPoint(pointerEvent(*gesture).screen));
        }
        return true;
    }
    default:
        break;
    }
    return QWindow::event(event);
}

void WidgetPanel::mousePressEvent(QMouseEvent* event)
{
    auto const pointer = pointerEvent(*event);
    pointerTick(pointer.window);
    if (event->button() == Qt::LeftButton)
        m_container.mouseDown(pointer);
}

void WidgetPanel::mouseMoveEvent(QMouseEvent* event)
{
    auto const pointer = pointerEvent(*event);
    if (event->buttons().testFlag(Qt::LeftButton))
        m_container.mouseDragged(pointer);
    // The drag may have moved the panel from under the place that the event was counted from.
    pointerTick(windowPoint(pointer.screen));
}

void WidgetPanel::mouseReleaseEvent(QMouseEvent* event)
{
    auto const pointer = pointerEvent(*event);
    if (event->button() == Qt::LeftButton)
        m_container.mouseUp(pointer);
    pointerTick(windowPoint(pointer.screen));
}

void WidgetPanel::wheelEvent(QWheelEvent* event)
{
    m_container.scrollWheel(scroll(*event));
    pointerTick(windowPoint(pointerEvent(*event).screen));
}

void WidgetPanel::exposeEvent(QExposeEvent* /*event*/)
{
    m_presenter.invalidate();
    if (!isExposed()) {
        vanish();
        return;
    }
    bool const stood = !m_frameClock.running();
    m_frameClock.set(FrameClock::Unseen::hidden, false);
    // A clock that starts gives a frame by itself.
    if (!stood || !m_frameClock.running())
        drawFrame();
}

void WidgetPanel::resizeEvent(QResizeEvent* /*event*/)
{
    fitContent();
}

void WidgetPanel::hideEvent(QHideEvent* /*event*/)
{
    vanish();
}

void WidgetPanel::vanish()
{
    m_frameClock.set(FrameClock::Unseen::hidden, true);
    m_container.mouseCancelled();
    pointerTick(std::nullopt);
}

} // namespace velmora
