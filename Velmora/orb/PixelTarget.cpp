#include "Velmora/orb/PixelTarget.h"

#include <algorithm>
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

void clear(PixelTarget const& target)
{
    for (int y = 0; y < target.height; ++y)
        std::memset(rowBytes(target, y), 0, static_cast<std::size_t>(target.width) * 4);
}

void multiplyOpacity(PixelTarget const& target, double opacity)
{
    if (!usable(target))
        return;
    // Times 65536, so that the product of a channel is rounded once.
    double const share = opacity > 0 ? std::min(opacity, 1.0) : 0;
    auto const factor = static_cast<std::uint32_t>(std::lround(share * 65536));
    if (factor == 65536)
        return;
    for (int y = 0; y < target.height; ++y) {
        std::uint8_t* const row = rowBytes(target, y);
        for (int i = 0; i < target.width * 4; ++i)
            row[i] = static_cast<std::uint8_t>((row[i] * factor + 32768) >> 16U);
    }
}

} // namespace velmora
