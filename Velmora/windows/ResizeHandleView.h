#pragma once

#include "Velmora/geometry/GripState.h"
#include "Velmora/platform/Displays.h"
#include "Velmora/views/PictureOverlay.h"
#include "Velmora/views/PointerEvent.h"

#include <functional>
#include <optional>

namespace velmora {

class AppModel;

/// The small round grip in the orb's bottom-right corner: hovering lights it, dragging it resizes
/// the orb.
class ResizeHandleView {
public:
    /// The model outlives the grip.
    explicit ResizeHandleView(AppModel& model);

    /// Where the grip stands in its container, y up.
    void setFrame(Rect const& frame) { m_frame = frame; }
    [[nodiscard]] Rect const& frame() const { return m_frame; }
    [[nodiscard]] GripState const& state() const { return m_state; }

    /// The pointer is over the grip's claimed area or is not.
    void setPointerHover(bool over);
    void mouseDown(PointerEvent const& event);
    /// Resizes the orb on the display that holds it.
    void mouseDragged(PointerEvent const& event, std::optional<DisplayId> display);
    void mouseUp(PointerEvent const& event);
    /// The desktop's origin is somewhere else now: every place counts by so much more.
    void desktopShifted(Point by);

    /// Draws the grip over a frame of its container, which is `height` points high and whose device
    /// pixel ratio is set.
    void draw(QImage& canvas, double height);

    /// Told which cursor to show.
    std::function<void(GripCursor)> onCursor;

private:
    void take(GripChange const& change);

    AppModel& m_model;
    Rect m_frame;
    GripState m_state;

    /// What the grip was drawn for last.
    struct Drawn {
        QRectF area;
        double scale = 0;
        bool lit = false;

        bool operator==(Drawn const&) const = default;
    };
    Drawn m_drawn;
    PictureOverlay m_picture;
};

} // namespace velmora
