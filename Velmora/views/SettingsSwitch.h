#pragma once

#include <QCheckBox>

namespace velmora {

class FocusRing;

/// A named switch: its words at the leading edge, the track at the trailing one, all of it
/// clickable. To assistive programs it is a check box.
class SettingsSwitch final : public QCheckBox {
    Q_OBJECT

public:
    SettingsSwitch(QString const& text, QWidget* parent);

    /// Shows a state without telling anybody.
    void showState(bool on);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user turned it on or off: with the pointer, a key or an assistive program.
    void edited(bool on);

protected:
    [[nodiscard]] bool hitButton(QPoint const& position) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void drawTrack(QPainter& painter, QRectF const& track) const;

    bool m_showing = false;
    FocusRing* m_ring;
};

} // namespace velmora
