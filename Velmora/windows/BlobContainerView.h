#pragma once

#include "Velmora/geometry/OrbGesture.h"
#include "Velmora/geometry/OrbHitArea.h"
#include "Velmora/views/PointerEvent.h"
#include "Velmora/windows/ResizeHandleView.h"

#include <optional>

class QImage;

namespace velmora {

class AppModel;
class OrbWindow;
class WidgetView;

/// Everything inside the orb's panel: decides which part a point belongs to, passes presses on to
/// it, and turns wheel and pinch into resizing.
class BlobContainerView {
public:
    /// Both outlive the container.
    BlobContainerView(AppModel& model, WidgetView& hosting);

    /// The window that shows the container; none makes it ignore scrolling and pinching.
    void setWindow(OrbWindow const* window) { m_window = window; }
    /// Lays the content out for a size in points.
    void layout(Size bounds);
    [[nodiscard]] Size bounds() const { return m_bounds; }
    [[nodiscard]] ResizeHandleView& resizeKnob() { return m_resizeKnob; }

    /// Draws the grip over a frame whose device pixel ratio is set.
    void drawGrip(QImage& canvas);

    [[nodiscard]] OrbHitArea::Part hitTest(Point p) const;
    /// Whether the pointer is on the orb or its grip; lights the grip exactly while it is over
    /// that. An absent point is a pointer that is elsewhere.
    bool updatePointer(std::optional<Point> windowPoint);

    void mouseDown(PointerEvent const& event);
    void mouseDragged(PointerEvent const& event);
    void mouseUp(PointerEvent const& event);
    /// The press that is under way ends without a release.
    void mouseCancelled();
    /// The desktop's origin is somewhere else now: every place counts by so much more.
    void desktopShifted(Point by);
    void scrollWheel(OrbGesture::Scroll scroll);
    /// One step of a pinch.
    void magnify(double magnification);

private:
    void resize(double size);

    AppModel& m_model;
    WidgetView& m_hosting;
    ResizeHandleView m_resizeKnob;
    OrbWindow const* m_window = nullptr;
    Size m_bounds;
    OrbHitArea::Part m_pressed = OrbHitArea::Part::nothing;
};

} // namespace velmora
