#include "bench/orb/OrbCases.h"

#include <cmath>

namespace velmora {

int OrbCase::side() const
{
    return static_cast<int>(std::lround(state.widgetSize * scale));
}

std::vector<OrbCase> orbCases()
{
    struct Look {
        char const* name;
        OrbState state;
        double seconds;
    };
    Look const looks[] = {
        {"idle", {}, 800000002},
        {"reminding", {.isReminding = true}, 800000002},
        {"ring", {.paused = true, .isReminding = true}, 800000003.3},
        {"paused", {.paused = true}, 800000002},
        {"still", {.reduceMotion = true}, 800000002},
    };
    std::vector<OrbCase> cases;
    for (Look const& look : looks) {
        for (int size : {72, 128, 316}) {
            for (int percent : {100, 125, 150, 200}) {
                OrbState state = look.state;
                state.widgetSize = size;
                cases.push_back({.name = std::string(look.name) + "/" + std::to_string(size) + "@"
                        + std::to_string(percent) + "%",
                    .state = state,
                    .seconds = look.seconds,
                    .scale = percent / 100.0});
            }
        }
    }
    return cases;
}

} // namespace velmora
