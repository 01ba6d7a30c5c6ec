#pragma once

#include "Velmora/orb/Palette.h"

#include <cstddef>
#include <cstdint>

namespace velmora {

/// Where pixels go: rows from the top, each pixel a native-endian 32-bit 0xAARRGGBB with colours
/// premultiplied by alpha.
struct PixelTarget {
    std::uint8_t* bytes = nullptr;
    /// Device pixels.
    int width = 0;
    /// Device pixels.
    int height = 0;
    /// From one row to the next, in bytes; at least four times the width.
    std::ptrdiff_t stride = 0;
    /// Device pixels in a point.
    double scale = 1;
};

/// Whether there are pixels to write: a picture with a stride that holds its rows, at most 8192
/// wide and high.
[[nodiscard]] bool usable(PixelTarget const& target);

/// The first byte of row `y`.
[[nodiscard]] inline std::uint8_t* rowBytes(PixelTarget const& target, int y)
{
    return target.bytes + target.stride * y;
}

/// A colour, each part clamped to 0..1, as a pixel.
[[nodiscard]] std::uint32_t opaquePixel(OrbColor const& color);

/// Makes all pixels the same.
void fill(PixelTarget const& target, std::uint32_t pixel);

} // namespace velmora
