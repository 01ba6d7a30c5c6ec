#pragma once

#include <QMargins>
#include <QObject>
#include <QRectF>

class QPainter;
class QWidget;

namespace velmora {

/// Knows whether a control shows its focus ring: after the keyboard brought the focus or was used
/// on it, not after a click. The control draws the ring and owns this object.
class FocusRing final : public QObject {
    Q_OBJECT

public:
    /// The room around a control's shape that a ring outside of it takes, in desktop points.
    static constexpr int room = 3;
    static constexpr QMargins margins{room, room, room, room};

    explicit FocusRing(QWidget& control);

    [[nodiscard]] bool isShown() const { return m_shown; }

    /// Strokes a rounded rectangle just inside `bounds` if the ring is shown; the widget's own
    /// coordinates.
    void draw(QPainter& painter, QRectF const& bounds, double radius) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show(bool shown);

    QWidget& m_control;
    bool m_shown = false;
};

} // namespace velmora
