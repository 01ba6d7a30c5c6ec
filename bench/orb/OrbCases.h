#pragma once

#include "Velmora/orb/OrbRenderer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

/// A frame whose cost is measured: a look at a moment, at a size and a scale.
struct OrbCase {
    /// Such as "idle/128@100%".
    std::string name;
    OrbState state;
    /// Since 2001-01-01 00:00:00 UTC.
    double seconds = 0;
    /// Device pixels in a point.
    double scale = 1;

    /// The side of the picture, in device pixels.
    [[nodiscard]] int side() const;
};

/// Every look at every size and scale. The body hides the ring of "reminding"; "ring" is a pause
/// in a reminder, where it is seen all round.
[[nodiscard]] std::vector<OrbCase> orbCases();

/// A square picture for a renderer to draw into.
struct OrbPicture {
    int side;
    std::vector<std::uint32_t> pixels;

    explicit OrbPicture(int length)
        : side(length)
        , pixels(static_cast<std::size_t>(length) * static_cast<std::size_t>(length))
    {
    }

    [[nodiscard]] PixelTarget target(double scale)
    {
        return {.bytes = reinterpret_cast<std::uint8_t*>(pixels.data()),
            .width = side,
            .height = side,
            .stride = std::ptrdiff_t{4} * side,
            .scale = scale};
    }
};

} // namespace velmora
