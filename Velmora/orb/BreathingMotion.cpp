#include "Velmora/orb/BreathingMotion.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace velmora::BreathingMotion {
namespace {

constexpr double reminderPeriod = 10.0;
constexpr double idlePeriod = 10.5;
constexpr double inhaleEnd = 0.42;
constexpr double holdEnd = 0.52;
constexpr double rippleEnd = 0.45;

double cyclePosition(double seconds, double period)
{
    return std::fmod(seconds, period) / period;
}

double envelope(double position)
{
    if (position < inhaleEnd)
        return smoothstep(position / inhaleEnd);
    if (position < holdEnd)
        return 1;
    return 1 - smoothstep((position - holdEnd) / 0.48);
}

} // namespace

double smoothstep(double x)
{
    if (std::isnan(x))
        return 0;
    double const clamped = std::clamp(x, 0.0, 1.0);
    return clamped * clamped * (3 - 2 * clamped);
}

double breathScale(double seconds, OrbState const& state)
{
    if (state.reduceMotion || state.paused)
        return state.paused ? 0.96 : 1.0;
    double const period = state.isReminding ? reminderPeriod : idlePeriod;
    double const amplitude = state.isReminding ? 0.16 : 0.045;
    return 1 + amplitude * envelope(cyclePosition(seconds, period));
}

double rippleProgress(double seconds, OrbState const& state)
{
    if (state.reduceMotion || !state.isReminding)
        return 0;
    double const position = cyclePosition(seconds, reminderPeriod);
    return position <= rippleEnd ? smoothstep(position / rippleEnd) : 0;
}

double wobblePhase(double seconds, OrbState const& state)
{
    return state.reduceMotion ? 0 : seconds * 0.32;
}

double pulse(double seconds, OrbState const& state)
{
    if (!state.reduceMotion)
        return 1;
    double const angle = 2 * std::numbers::pi * cyclePosition(seconds, idlePeriod);
    return 0.9 + 0.1 * (0.5 + 0.5 * std::sin(angle));
}

double dimming(OrbState const& state)
{
    return state.inActiveHours || state.paused ? 1.0 : 0.78;
}

} // namespace velmora::BreathingMotion
