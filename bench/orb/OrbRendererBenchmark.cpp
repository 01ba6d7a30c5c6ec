#include "tests/orb/CountedAllocations.h"
#include "tests/orb/ReferenceRenderer.h"

#include "Velmora/orb/OrbRenderer.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace velmora {
namespace {

constexpr double now = 800000002.25;

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

void drawFrames(benchmark::State& run, OrbState state, double size, double scale)
{
    state.widgetSize = size;
    int const side = static_cast<int>(std::lround(size * scale));
    std::vector<std::uint32_t> pixels(
        static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    PixelTarget const target = {.bytes = reinterpret_cast<std::uint8_t*>(pixels.data()),
        .width = side,
        .height = side,
        .stride = std::ptrdiff_t{4} * side,
        .scale = scale};
    OrbRenderer renderer;
    OrbFrame const frame = orbFrame(state, now);
    renderer.render(frame, target);
    long const before = allocationCount();
    for (auto _ : run)
        renderer.render(frame, target);
    run.counters["allocations"] = static_cast<double>(allocationCount() - before);
    double const one = microsecondsOf(50, [&] { renderer.render(frame, target); });
    double const fill = microsecondsOf(200, [&] {
        std::memset(pixels.data(), 1, pixels.size() * 4);
        benchmark::ClobberMemory();
    });
    double const slow = microsecondsOf(
        1, [&] { benchmark::DoNotOptimize(referencePicture(frame, side, side, scale)); });
    run.counters["x_memset"] = one / fill;
    run.counters["x_reference"] = one / slow;
}

void registerAll()
{
    struct Look {
        char const* name;
        OrbState state;
    };
    Look const looks[] = {{"idle", {}}, {"reminding", {.isReminding = true}},
        {"paused", {.paused = true}}, {"still", {.reduceMotion = true}}};
    for (Look const& look : looks) {
        for (double size : {72.0, 128.0, 316.0}) {
            for (double scale : {1.0, 1.25, 1.5, 2.0}) {
                std::string const name = std::string(look.name) + "/"
                    + std::to_string(static_cast<int>(size)) + "@"
                    + std::to_string(std::lround(scale * 100)) + "%";
                benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& run) {
                    drawFrames(run, look.state, size, scale);
                })->Unit(benchmark::kMicrosecond);
            }
        }
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
