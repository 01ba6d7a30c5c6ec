#pragma once

#include <QIcon>

namespace velmora {

/// Draws the status image, a ring around a dot, for a square of `side` device pixels.
[[nodiscard]] QPixmap statusPixmap(int side, QColor const& colour);

/// The status image at every size that trays ask for.
[[nodiscard]] QIcon statusImage(QColor const& colour);

} // namespace velmora
