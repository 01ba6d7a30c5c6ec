#include "Velmora/orb/BodyGradient.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr float levelSteps = 1 << BodyGradient::levelBits;
constexpr std::int16_t halfLevel = 1 << (BodyGradient::levelBits - 1);
/// The whole gradient's length, in the steps of a place along it; places beyond are cut to it.
constexpr float length = 32768;
/// Far beyond the gradient's end, near enough to stay a whole number.
constexpr float farthestSquare = 4e9F;

/// A level in steps, rounded down, so that no colour is ever lifted above its alpha.
std::int16_t steps(float level)
{
    return static_cast<std::int16_t>(std::floor(level * levelSteps));
}

float squared(float x)
{
    return std::min(x * x, farthestSquare);
}

} // namespace

BodyGradient::Channel::Channel(float a, float b, float c)
    : first(splatNumber(static_cast<std::int16_t>(steps(a) + halfLevel)))
    // From one stop to the next a place counts up to a quarter of 65536.
    , toSecond(splatNumber(static_cast<std::int16_t>(std::floor(4 * levelSteps * (b - a)))))
    , toThird(splatNumber(static_cast<std::int16_t>(std::floor(4 * levelSteps * (c - b)))))
{
}

void BodyGradient::begin(Paint const& paint, int width)
{
    m_centerY = paint.gradientY;
    m_perPixel = length / paint.gradientRadius;
    auto const& stops = paint.stops;
    m_row.red = {stops[0].red, stops[1].red, stops[2].red};
    m_row.green = {stops[0].green, stops[1].green, stops[2].green};
    m_row.blue = {stops[0].blue, stops[1].blue, stops[2].blue};
    auto const lifted = [](float level) {
        return splatNumber(static_cast<std::int16_t>(steps(level) + halfLevel));
    };
    m_light = {.red = lifted(paint.highlight.red),
        .green = lifted(paint.highlight.green),
        .blue = lifted(paint.highlight.blue)};
    m_alpha = static_cast<std::int16_t>(steps(paint.full) + halfLevel);
    std::size_t const room = static_cast<std::size_t>(width) + 16;
    m_across.resize(std::max(m_across.size(), room));
    Lanes const most = splat(farthestSquare);
    for (int x = 0; x < width + 8; x += 4) {
        float const start = static_cast<float>(x) + 0.5F - paint.gradientX;
        Lanes const across = (splat(start) + lanes(0, 1, 2, 3)) * splat(m_perPixel);
        store(m_across.data() + x, min(across * across, most));
    }
}

void BodyGradient::beginRow(int y)
{
    m_row.down = splat(squared((static_cast<float>(y) + 0.5F - m_centerY) * m_perPixel));
}

void BodyGradient::paint(std::uint32_t* row, int from, int end) const
{
    // Writing pixels may change any number for all that the compiler knows: these stay.
    Row const here = m_row;
    float const* const across = m_across.data();
    auto const alpha = static_cast<std::int16_t>(m_alpha >> levelBits);
    for (int x = from; x < end; x += 8) {
        Colors const c = here.colors(across + x);
        storePixels<levelBits>(row + x, end - x, alpha, c.red, c.green, c.blue);
    }
}

void BodyGradient::paintLit(std::uint32_t* row, int from, int end, CellRow const& highlight) const
{
    Row const here = m_row;
    Colors const light = m_light;
    float const* const across = m_across.data();
    auto const alpha = static_cast<std::int16_t>(m_alpha >> levelBits);
    for (int x = from; x < end; x += 8) {
        Colors const c = here.colors(across + x);
        Numbers const coverage = highlight.coverage(x);
        // A coverage is half of what it would be in 65536ths.
        auto const lit = [coverage](Numbers color, Numbers above) {
            return color + highProduct(above - color + above - color, coverage);
        };
        storePixels<levelBits>(row + x, end - x, alpha, lit(c.red, light.red),
            lit(c.green, light.green), lit(c.blue, light.blue));
    }
}

} // namespace velmora
