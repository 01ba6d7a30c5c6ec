#include "Velmora/orb/OrbRenderer.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

/// Draws the same moments of an orb of 128 pixels over and over, for a tool that counts
/// instructions: `velmora_counted_frames <frames> <look> [side]`, with 0 for an idle orb, 1 for a
/// reminder, whose ring the body hides, and 2 for a pause in one, where the ring is seen around it.
int main(int argumentCount, char** arguments)
{
    using namespace velmora;
    if (argumentCount < 3)
        return 2;
    int const frames = std::atoi(arguments[1]);
    int const side = argumentCount > 3 ? std::atoi(arguments[3]) : 128;
    int const look = std::atoi(arguments[2]);
    OrbState const state
        = {.paused = look == 2, .isReminding = look > 0, .widgetSize = static_cast<double>(side)};
    double const start = look == 2 ? 800000003.3 : 800000002;
    std::vector<std::uint32_t> pixels(
        static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    OrbRenderer renderer;
    for (int i = 0; i < frames; ++i) {
        renderer.render(orbFrame(state, start + i % 10 / 30.0),
            {.bytes = reinterpret_cast<std::uint8_t*>(pixels.data()),
                .width = side,
                .height = side,
                .stride = std::ptrdiff_t{4} * side,
                .scale = 1});
    }
    return 0;
}
