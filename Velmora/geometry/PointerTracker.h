#pragma once

#include "Velmora/geometry/ScreenFrames.h"

#include <cstddef>
#include <optional>
#include <span>

namespace velmora {

/// Whether the orb's panel lets the pointer through to what lies underneath: while the pointer is
/// off the orb and its grip, and never while a button is held, so that a drag that leaves the orb
/// keeps its events.
[[nodiscard]] constexpr bool ignoresPointer(bool pointerOver, bool buttonHeld)
{
    return !pointerOver && !buttonHeld;
}

/// The display that holds most of a panel, as an index; the first of equals, and none when no
/// display holds any of it.
[[nodiscard]] std::optional<std::size_t> displayHolding(
    Rect const& panel, std::span<ScreenFrames const> displays);

} // namespace velmora
