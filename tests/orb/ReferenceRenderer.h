#pragma once

#include "Velmora/orb/OrbFrame.h"

#include <cstdint>
#include <vector>

namespace velmora {

/// A picture of 0xAARRGGBB pixels, premultiplied, rows from the top without gaps.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// Draws the frame the plain way: coverage from 32 x 32 samples a pixel, a true Gaussian in
/// floating point, layers put over each other in the order of the list, rounded once.
Picture referencePicture(OrbFrame const& frame, int width, int height, double scale);

} // namespace velmora
