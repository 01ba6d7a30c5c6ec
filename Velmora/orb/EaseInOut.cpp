#include "Velmora/orb/EaseInOut.h"

#include <cmath>

namespace velmora {
namespace {

// The curve's x and y at its parameter s, from the control points.
double curveX(double s)
{
    return ((3 * 0.42 - 3 * 0.58 + 1) * s + (3 * 0.58 - 6 * 0.42)) * s * s + 3 * 0.42 * s;
}

double curveY(double s)
{
    return s * s * (3 - 2 * s);
}

} // namespace

double easeInOut(double progress)
{
    if (!(progress > 0))
        return 0;
    if (progress >= 1)
        return 1;
    // x grows with s, so halving the interval finds s to the last bit that matters.
    double low = 0;
    double high = 1;
    for (int i = 0; i < 52; ++i) {
        double const middle = (low + high) / 2;
        (curveX(middle) < progress ? low : high) = middle;
    }
    return curveY((low + high) / 2);
}

EasedNumber::EasedNumber(double value, double duration)
    : m_from(value)
    , m_goal(value)
    , m_duration(duration)
    , m_elapsed(duration)
{
}

void EasedNumber::jump(double value)
{
    m_from = value;
    m_goal = value;
    m_elapsed = m_duration;
}

void EasedNumber::aim(double goal)
{
    if (goal == m_goal)
        return;
    m_from = value();
    m_goal = goal;
    m_elapsed = 0;
}

void EasedNumber::advance(double seconds)
{
    if (!settled())
        m_elapsed += seconds;
}

double EasedNumber::value() const
{
    if (settled())
        return m_goal;
    return m_from + (m_goal - m_from) * easeInOut(m_elapsed / m_duration);
}

} // namespace velmora
