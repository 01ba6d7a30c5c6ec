#include "bench/orb/OrbCases.h"

#include <cstdlib>
#include <iostream>

/// Draws ten moments of a case over and over, for a tool that counts instructions:
/// `velmora_counted_frames <case> <frames>`. Without arguments it lists the cases.
int main(int argumentCount, char** arguments)
{
    using namespace velmora;
    for (OrbCase const& one : orbCases()) {
        if (argumentCount != 3) {
            std::cout << one.name << '\n';
            continue;
        }
        if (one.name != arguments[1])
            continue;
        OrbPicture picture(one.side());
        OrbRenderer renderer;
        int const frames = std::atoi(arguments[2]);
        for (int i = 0; i < frames; ++i) {
            renderer.render(
                orbFrame(one.state, one.seconds + i % 10 / 30.0), picture.target(one.scale));
        }
        return 0;
    }
    return argumentCount == 1 ? 0 : 2;
}
