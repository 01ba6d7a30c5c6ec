#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

/// The settings form's colours and fonts: a warm light look that no desktop theme changes.
namespace velmora::SettingsLook {

/// The accent: tracks, switches, the chosen chip, the prominent button. `opacity` is 0 to 1.
[[nodiscard]] QColor sage(double opacity = 1.0);

/// The text colour; secondary text is the same at less opacity.
[[nodiscard]] QColor ink(double opacity = 1.0);

/// Black at an opacity of 0 to 1, for fills on the cards.
[[nodiscard]] QColor shade(double opacity);

/// The form's and its window's background.
[[nodiscard]] QColor background();

/// The desktop's own font at `size` desktop points. It grows with the desktop's text size, so what
/// holds text asks the font for its measures.
[[nodiscard]] QFont font(double size, QFont::Weight weight = QFont::Normal);

/// The font of a control's own words.
[[nodiscard]] QFont controlFont(QFont::Weight weight = QFont::Normal);

/// Opacity of a control that cannot be used.
inline constexpr double disabledOpacity = 0.45;

/// Every role in every state, so that nothing of a dark desktop shines through.
[[nodiscard]] QPalette palette();

} // namespace velmora::SettingsLook
