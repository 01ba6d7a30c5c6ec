#pragma once

#include <QPushButton>

namespace velmora {

class FocusRing;

/// A button of the settings form. Space and Return press it.
class SettingsButton final : public QPushButton {
    Q_OBJECT

public:
    enum class Kind {
        /// White words on sage: the form's main action.
        prominent,
        /// Ink on a light face with a border.
        bordered,
        /// Words alone, underlined under the pointer.
        plain,
    };

    SettingsButton(Kind kind, QString const& text, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawFace(QPainter& painter) const;

    Kind m_kind;
    FocusRing* m_ring;
};

} // namespace velmora
