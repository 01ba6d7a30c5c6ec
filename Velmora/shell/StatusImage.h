#pragma once

#include <QColor>
#include <QIcon>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace velmora {

/// Draws the status image, a ring around a dot, for a square of `side` device pixels.
///
/// It has the colour that the panel wants. Where the panel does not tell, it is light on a dark
/// disc of its own, so that it can be read on any panel.
[[nodiscard]] QPixmap statusPixmap(int side, std::optional<QColor> const& ink);

/// The system's own picture for a square of `side` device pixels, as `PlatformServices` gives it;
/// empty where it has none.
using StatusSymbol = std::function<std::vector<std::uint32_t>(int side)>;

/// The status image at every size that trays ask for: the system's own symbol, or the drawn one. It
/// is marked as a template, which systems that tint such images do.
[[nodiscard]] QIcon statusImage(std::optional<QColor> const& ink, StatusSymbol const& symbol);

} // namespace velmora
