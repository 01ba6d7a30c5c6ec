#pragma once

#include "Velmora/geometry/Rect.h"
#include "Velmora/model/AppModel.h"
#include "Velmora/orb/OrbTransitions.h"
#include "Velmora/views/OrbCanvas.h"
#include "Velmora/views/OrbControls.h"
#include "Velmora/views/PointerEvent.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace velmora {

class OrbWindow;

/// What lives inside the orb's panel: the animated orb, its two buttons, the gesture that moves the
/// panel or resizes the orb, the click that ends a reminder, and the words for those who listen.
class WidgetView final : public QObject {
    Q_OBJECT

public:
    /// One of the things that assistive tools can do with the orb.
    struct NamedAction {
        QString name;
        std::function<void()> run;
    };

    /// The model outlives the view.
    explicit WidgetView(AppModel& model);

    /// The window that shows the view; while there is none, drags move nothing.
    void setWindow(OrbWindow* window) { m_window = window; }
    /// The space offered, in points.
    void layout(Size bounds) { m_bounds = bounds; }
    [[nodiscard]] Size bounds() const { return m_bounds; }

    /// Whether the buttons and the status line are visible.
    [[nodiscard]] bool showChrome() const;
    /// Whether the caption's word is visible by itself.
    [[nodiscard]] bool showWord() const { return m_showWord; }

    /// What a picture shows where the orb does not hide it.
    enum class Ground {
        /// The desktop.
        clear,
        /// A quiet dark colour, for a desktop that cannot show through.
        dark,
    };

    /// Draws the frame of an instant (seconds) over a premultiplied picture that fills the bounds
    /// and whose device pixel ratio is set.
    void draw(QImage& canvas, double now, Ground ground);

    // The pointer. Presses come only from inside the disc that belongs to the orb.

    /// Where the pointer is over the orb, in the panel; absent when it is elsewhere.
    void setPointer(std::optional<Point> windowPoint);
    void mouseDown(PointerEvent const& event);
    void mouseDragged(PointerEvent const& event);
    void mouseUp(PointerEvent const& event);
    /// The desktop's origin is somewhere else now: every place counts by so much more.
    void desktopShifted(Point by);
    /// Forgets a press that will never be released; what it moved is saved where it stands.
    void mouseCancelled();

    // The buttons.

    [[nodiscard]] OrbControls::Symbol symbol(OrbControls::Control control) const;
    /// What the tooltip says.
    [[nodiscard]] QString help(OrbControls::Control control) const;
    /// What assistive tools call the button.
    [[nodiscard]] QString label(OrbControls::Control control) const;
    /// Where the button stands, y down.
    [[nodiscard]] Rect controlFrame(OrbControls::Control control) const;
    void activate(OrbControls::Control control);
    /// The button that is held down.
    [[nodiscard]] std::optional<OrbControls::Control> pressedControl() const { return m_pressed; }
    /// The button under the pointer, while the buttons show.
    [[nodiscard]] std::optional<OrbControls::Control> hoveredControl() const { return m_hovered; }

    // The view as one element, for assistive tools.

    [[nodiscard]] static QString accessibleLabel();
    [[nodiscard]] QString accessibleValue() const;
    [[nodiscard]] static QString accessibleHint();
    /// Always the same three, in their order; the first one's name tells what it would do.
    [[nodiscard]] std::vector<NamedAction> accessibleActions();

Q_SIGNALS:
    /// The pointer came over a button or left it.
    void hoveredControlChanged();

private:
    [[nodiscard]] Point inView(Point windowPoint) const;
    [[nodiscard]] std::optional<OrbControls::Control> controlAt(Point windowPoint) const;
    void setHovered(std::optional<OrbControls::Control> control);
    void modelChanged(AppModel::Property property);

    [[nodiscard]] OrbState orbState() const;

    void dragChanged(PointerEvent const& event);
    void dragEnded(PointerEvent const& event);
    void forgetGesture();
    void move(Point proposed);

    AppModel& m_model;
    OrbWindow* m_window = nullptr;
    Size m_bounds;

    std::optional<PointerEvent> m_press;
    /// How far below the orb's top the press was, in points.
    double m_pressDepth = 0;
    std::optional<Point> m_dragOrigin;
    std::optional<double> m_resizeStart;
    bool m_dragging = false;
    bool m_resizing = false;
    bool m_showWord = false;

    OrbCanvas m_canvas;
    OrbTransitions m_transitions;

    std::optional<OrbControls::Control> m_pressed;
    std::optional<OrbControls::Control> m_hovered;
};

} // namespace velmora
