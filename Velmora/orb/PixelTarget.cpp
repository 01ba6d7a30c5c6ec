#include "Velmora/orb/PixelTarget.h"

#include "Velmora/orb/FramePaint.h"

#include <cmath>
#include <cstring>

namespace velmora {
namespace {

constexpr int largestTarget = 8192;

} // namespace

bool usable(PixelTarget const& target)
{
    return target.bytes != nullptr && target.width > 0 && target.height > 0
        && target.width <= largestTarget && target.height <= largestTarget
        && target.stride >= std::ptrdiff_t{4} * target.width;
}

std::uint32_t opaquePixel(OrbColor const& color)
{
    std::uint32_t pixel = 0xff;
    for (double part : {color.red, color.green, color.blue})
        pixel = pixel << 8U | static_cast<std::uint32_t>(std::lround(share(part) * 255));
    return pixel;
}

void fill(PixelTarget const& target, std::uint32_t pixel)
{
    for (int y = 0; y < target.height; ++y) {
        std::uint8_t* to = rowBytes(target, y);
        for (int x = 0; x < target.width; ++x, to += sizeof pixel)
            std::memcpy(to, &pixel, sizeof pixel);
    }
}

} // namespace velmora
