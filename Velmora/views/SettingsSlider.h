#pragma once

#include <QSlider>
#include <QTimer>

namespace velmora {

class FocusRing;

/// A horizontal slider over a range of numbers, tinted with the accent.
///
/// It follows the pointer at once, also from a press beside the knob. The wheel moves it only while
/// it has the focus, so that scrolling the form changes nothing by accident.
class SettingsSlider final : public QSlider {
    Q_OBJECT

public:
    /// The values it offers: from `minimum` on in steps, and `maximum`, also where it lies between
    /// two steps.
    struct Scale {
        double minimum = 0;
        double maximum = 1;
        /// What the pointer can tell apart.
        double step = 1;
        /// What an arrow key and what Page Up or Page Down move by, in steps.
        int arrowSteps = 1;
        int pageSteps = 10;

        bool operator==(Scale const&) const = default;
    };

    explicit SettingsSlider(QWidget* parent);

    /// A range without extent leaves the slider disabled at its one value.
    void setScale(Scale const& scale);
    [[nodiscard]] Scale const& scale() const { return m_scale; }

    /// The number on display, which the user or `showNumber` set; it may lie between two steps.
    [[nodiscard]] double current() const { return m_current; }
    /// Shows a number, held inside the range, without telling anybody.
    void showNumber(double number);
    /// Takes a number as if the user had dragged the knob there and let go: to the nearest step.
    void enter(double number);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user moved the knob.
    void edited(double number);
    /// The user is done with one movement: the button or the key was released, or the wheel has
    /// come to rest.
    void editingEnded();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int positionOf(double number) const;
    [[nodiscard]] double numberAt(int position) const;
    /// The knob's centre, in the widget's coordinates.
    [[nodiscard]] double knobX() const;
    [[nodiscard]] int positionUnder(double x) const;
    void take(int position);
    void endEditing();

    Scale m_scale;
    double m_current = 0;
    bool m_showing = false;
    bool m_editing = false;
    double m_grabOffset = 0;
    QTimer m_wheelRest;
    FocusRing* m_ring;
};

} // namespace velmora
