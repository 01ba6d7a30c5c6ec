#include "Velmora/orb/OrbRenderer.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

/// Draws the same moments of an orb of 128 pixels over and over, for a tool that counts
/// instructions: `velmora_counted_frames <frames> <0 idle, 1 reminding> [side]`.
int main(int argumentCount, char** arguments)
{
    using namespace velmora;
    if (argumentCount < 3)
        return 2;
    int const frames = std::atoi(arguments[1]);
    int const side = argumentCount > 3 ? std::atoi(arguments[3]) : 128;
    OrbState const state
        = {.isReminding = arguments[2][0] == '1', .widgetSize = static_cast<double>(side)};
    std::vector<std::uint32_t> pixels(
        static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    OrbRenderer renderer;
    for (int i = 0; i < frames; ++i) {
        renderer.render(orbFrame(state, 800000002 + i % 10 / 30.0),
            {.bytes = reinterpret_cast<std::uint8_t*>(pixels.data()),
                .width = side,
                .height = side,
                .stride = std::ptrdiff_t{4} * side,
                .scale = 1});
    }
    return 0;
}
