#include "Velmora/views/Fade.h"

#include <algorithm>

namespace velmora {

namespace {

// The two inner control points of the timing curve lie at (0.42, 0) and (0.58, 1).
constexpr double firstX = 0.42;
constexpr double secondX = 0.58;

constexpr double curveX(double s)
{
    auto const r = 1 - s;
    return 3 * r * r * s * firstX + 3 * r * s * s * secondX + s * s * s;
}

constexpr double curveY(double s)
{
    return s * s * (3 - 2 * s);
}

/// Ease-in-out of a share of the time, both 0..1.
double eased(double x)
{
    double low = 0;
    double high = 1;
    // Halving the interval thirty times leaves less than a billionth.
    for (int i = 0; i < 30; ++i) {
        auto const middle = (low + high) / 2;
        (curveX(middle) < x ? low : high) = middle;
    }
    return curveY((low + high) / 2);
}

} // namespace

void Fade::set(bool shown, double now)
{
    if (shown == m_shown)
        return;
    m_from = at(now);
    m_start = now;
    m_shown = shown;
}

double Fade::at(double now) const
{
    if (!moving(now))
        return target();
    auto const share = std::clamp((now - m_start) / m_duration, 0.0, 1.0);
    return m_from + (target() - m_from) * eased(share);
}

bool Fade::moving(double now) const
{
    return m_from != target() && now >= m_start && now < m_start + m_duration;
}

} // namespace velmora
