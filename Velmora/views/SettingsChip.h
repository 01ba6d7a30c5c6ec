#pragma once

#include <QPushButton>

namespace velmora {

class FocusRing;

/// A small capsule that offers one value. `isChecked()` says whether it is the value in force;
/// pressing a chip never changes that by itself.
class SettingsChip final : public QPushButton {
    Q_OBJECT

public:
    SettingsChip(QString const& text, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    /// The model decides which chip is chosen.
    void nextCheckState() override { }
    void paintEvent(QPaintEvent* event) override;

private:
    FocusRing* m_ring;
};

} // namespace velmora
