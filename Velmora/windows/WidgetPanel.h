#pragma once

#include "Velmora/model/AppModel.h"
#include "Velmora/platform/DesktopCoordinates.h"
#include "Velmora/views/OrbWindow.h"
#include "Velmora/windows/BlobContainerView.h"
#include "Velmora/windows/ControlHelp.h"
#include "Velmora/windows/FrameClock.h"
#include "Velmora/windows/FramePresenter.h"

#include <QWindow>

class QSinglePointEvent;

namespace velmora {

class Clock;
class DesktopPanel;
class Displays;
class WidgetView;

/// The borderless panel that floats above all other windows, holds the orb, and never takes the
/// keyboard.
///
/// Its frame is kept as it was set, fractions included; the toolkit's whole numbers are derived
/// from it, so that many small resizes about its centre leave the centre where it is.
class WidgetPanel final : public QWindow, public OrbWindow {
    Q_OBJECT

public:
    /// What the panel needs; everything outlives it.
    struct Seams {
        AppModel& model;
        Clock const& clock;
        Displays const& displays;
        DesktopPanel& desktop;
    };

    /// Makes the panel without showing it.
    explicit WidgetPanel(Seams seams, WidgetView& view);
    ~WidgetPanel() override;
    WidgetPanel(WidgetPanel const&) = delete;
    WidgetPanel& operator=(WidgetPanel const&) = delete;
    WidgetPanel(WidgetPanel&&) = delete;
    WidgetPanel& operator=(WidgetPanel&&) = delete;

    [[nodiscard]] Rect frame() const override;
    void setFrameOrigin(Point origin) override;
    [[nodiscard]] std::optional<DisplayId> display() const override;
    [[nodiscard]] std::optional<Rect> visibleFrame() const override;
    /// Moves and resizes the panel, in desktop points, y up, and redraws it at once.
    void setFrame(Rect const& frame);
    /// Shows the panel above everything else; whoever has the keyboard keeps it.
    void orderFrontRegardless();
    /// The displays have changed and settled: takes the panel's place and scale anew.
    void displaysSettled();

    [[nodiscard]] WidgetView& view() { return m_view; }
    /// What assistive tools see.
    [[nodiscard]] QAccessibleInterface* accessibleRoot() const override;

    /// Presses are let through to what lies underneath.
    [[nodiscard]] bool ignoresPointer() const { return m_ignoresPointer; }
    /// The clock that the orb moves by.
    [[nodiscard]] FrameClock& frameClock() { return m_frameClock; }

protected:
    bool event(QEvent* event) override;
    void exposeEvent(QExposeEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void configure();
    void applyFrame();
    void fitContent();
    void drawFrame();
    void setCursorFor(GripCursor cursor);
    [[nodiscard]] PointerEvent pointerEvent(QSinglePointEvent const& event) const;
    /// What the pointer tracking does with every news of the pointer; absent is elsewhere.
    void pointerTick(std::optional<Point> windowPoint);
    [[nodiscard]] Point windowPoint(Point screen) const;
    /// Nothing of the panel is on a screen any more.
    void vanish();
    void readPace();
    void modelChanged(AppModel::Property property);
    /// Tells assistive tools, once the model has come to rest, that the orb reads differently.
    void announceLater();

    Seams m_seams;
    WidgetView& m_view;
    BlobContainerView m_container;
    FramePresenter m_presenter;
    FrameClock m_frameClock;
    ControlHelp m_help;
    Rect m_frame;
    /// The conversion that the frame was last applied with.
    DesktopCoordinates m_coordinates;
    double m_fittedScale = 0;
    QSize m_fittedSize;
    bool m_ignoresPointer = true;
    bool m_announcing = false;
    /// The status line as it was told last.
    QString m_announced;
};

} // namespace velmora
