#pragma once

#include "Velmora/geometry/Rect.h"

#include <algorithm>

namespace velmora {

/// Where a symbol of this natural size is drawn on a square of `side` pixels: as large as it fits,
/// in its own proportions, in the middle. A symbol without an extent fills the square.
[[nodiscard]] inline Rect symbolFrame(Size natural, double side)
{
    auto const longer = std::max(natural.width, natural.height);
    if (!(natural.width > 0) || !(natural.height > 0))
        return {.x = 0, .y = 0, .width = side, .height = side};
    auto const width = side * natural.width / longer;
    auto const height = side * natural.height / longer;
    return {.x = (side - width) / 2, .y = (side - height) / 2, .width = width, .height = height};
}

} // namespace velmora
