#pragma once

#include <QColor>
#include <QIcon>

#include <optional>

namespace velmora {

/// Draws the status image, a ring around a dot, for a square of `side` device pixels.
///
/// It has the colour that the panel wants. Where the panel does not tell, it is light on a dark
/// disc of its own, so that it can be read on any panel.
[[nodiscard]] QPixmap statusPixmap(int side, std::optional<QColor> const& ink);

/// The status image at every size that trays ask for.
[[nodiscard]] QIcon statusImage(std::optional<QColor> const& ink);

} // namespace velmora
