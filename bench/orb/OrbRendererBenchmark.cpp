#include "bench/orb/OrbCases.h"

#include "tests/orb/CountedAllocations.h"
#include "tests/orb/ReferenceRenderer.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <string>

namespace velmora {
namespace {

/// How many instructions a frame of each case takes, counted beforehand: a line for each, in the
/// file that the environment names.
std::map<std::string, double> countedInstructions()
{
    std::map<std::string, double> counts;
    char const* const path = std::getenv("VELMORA_ORB_INSTRUCTIONS");
    if (path == nullptr)
        return counts;
    std::ifstream file(path);
    std::string name;
    double count = 0;
    while (file >> name >> count)
        counts[name] = count;
    return counts;
}

/// The quickest of all rounds, which other programs have disturbed the least.
double microsecondsOf(int rounds, auto const& work)
{
    double quickest = 1e12;
    for (int i = 0; i < rounds; ++i) {
        auto const start = std::chrono::steady_clock::now();
        work();
        std::chrono::duration<double, std::micro> const passed
            = std::chrono::steady_clock::now() - start;
        quickest = std::min(quickest, passed.count());
    }
    return quickest;
}

void drawFrames(benchmark::State& run, OrbCase const& one)
{
    OrbPicture picture(one.side());
    PixelTarget const target = picture.target(one.scale);
    OrbRenderer renderer;
    OrbFrame const frame = orbFrame(one.state, one.seconds);
    renderer.render(frame, target);
    long const before = allocationCount();
    for (auto _ : run)
        renderer.render(frame, target);
    run.counters["allocations"] = static_cast<double>(allocationCount() - before);
    double const quick = microsecondsOf(50, [&] { renderer.render(frame, target); });
    double const fill = microsecondsOf(200, [&] {
        std::memset(picture.pixels.data(), 1, picture.pixels.size() * 4);
        benchmark::ClobberMemory();
    });
    double const slow = microsecondsOf(1, [&] {
        benchmark::DoNotOptimize(referencePicture(frame, picture.side, picture.side, one.scale));
    });
    run.counters["x_memset"] = quick / fill;
    run.counters["x_reference"] = quick / slow;
}

void registerAll()
{
    std::map<std::string, double> const counts = countedInstructions();
    for (OrbCase const& one : orbCases()) {
        auto const count = counts.find(one.name);
        double const instructions = count == counts.end() ? 0 : count->second;
        auto const draw = [one, instructions](benchmark::State& run) {
            drawFrames(run, one);
            if (instructions > 0)
                run.counters["instructions"] = instructions;
        };
        benchmark::RegisterBenchmark(one.name.c_str(), draw)->Unit(benchmark::kMicrosecond);
    }
}

} // namespace
} // namespace velmora

int main(int argumentCount, char** arguments)
{
    velmora::registerAll();
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
