#include "Velmora/orb/Backdrop.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr int blockSize = AreaRaster::blockSize;
constexpr float levelSteps = 1 << Backdrop::levelBits;
/// Each of four roundings may lift a colour or lower its alpha by a step.
constexpr float alphaAhead = 5;

/// One channel of the ground, and how far the glow and the shadow take it from there.
class Mixture {
public:
    Mixture(float ground, float glow, float shadow, float rounding = levelSteps / 2)
        : m_ground(splat(ground * levelSteps + rounding))
        , m_toGlow(splat((glow - ground) * levelSteps))
        , m_toShadow(splat((shadow - ground) * levelSteps))
    {
    }

    /// Four pixels, in steps, twice.
    [[nodiscard]] Numbers of(Lanes lit, Lanes dark) const
    {
        Lanes const sum = m_ground + lit * m_toGlow + dark * m_toShadow;
        return numbers(sum, sum);
    }

private:
    Lanes m_ground;
    Lanes m_toGlow;
    Lanes m_toShadow;
};

std::size_t index(int at)
{
    return static_cast<std::size_t>(at);
}

} // namespace

void Backdrop::compose(CellGrid const& grid, Paint const& paint, SoftPlane const& glow,
    SoftPlane const& shadow, int width)
{
    m_grid = grid;
    m_width = width;
    m_row = -1;
    m_places.fit(grid, 4);
    if (m_cells.size() < index((grid.rows + 1) * grid.stride) * 4)
        m_cells.resize(grid.room() * 4);
    std::size_t const room = index(width + 2 * overshoot) * 4;
    m_middle.resize(std::max(m_middle.size(), room));
    m_step.resize(std::max(m_step.size(), room));
    Mixture const alpha(paint.bare, paint.full, paint.full, levelSteps / 2 + alphaAhead);
    Mixture const red(paint.ground.red, paint.glow.red, paint.shadow.red);
    Mixture const green(paint.ground.green, paint.glow.green, paint.shadow.green);
    Mixture const blue(paint.ground.blue, paint.glow.blue, paint.shadow.blue);
    Lanes const glowOpacity = splat(paint.glowOpacity);
    Lanes const shadowOpacity = splat(paint.shadowOpacity);
    for (int row = 0; row < grid.rows; ++row) {
        std::int16_t* out = m_cells.data() + index(row * grid.stride) * 4;
        for (int x = 0; x < grid.stride; x += 4, out += 16) {
            Lanes const light = glowOpacity * load(glow.row(row) + x);
            Lanes const dark = shadowOpacity * load(shadow.row(row) + x);
            Lanes const lit = light - light * dark;
            FourPixels const four = pixels(
                alpha.of(lit, dark), red.of(lit, dark), green.of(lit, dark), blue.of(lit, dark));
            store(out, four.first);
            store(out + 8, four.second);
        }
    }
}

void Backdrop::beginRow(int y)
{
    int const shifted = y - m_grid.cell / 2 + m_grid.margin * m_grid.cell;
    m_down = m_places.of(shifted % m_grid.cell);
    if (shifted / m_grid.cell != m_row)
        widen(shifted / m_grid.cell);
}

void Backdrop::widen(int row)
{
    m_row = row;
    int const first = m_grid.margin - 1;
    std::int16_t const* above = m_cells.data() + index(row * m_grid.stride + first) * 4;
    std::int16_t const* below = above + std::ptrdiff_t{4} * m_grid.stride;
    for (int x = m_grid.firstPixel(first); x < m_width; x += m_grid.cell, above += 4, below += 4) {
        Numbers const aboveBoth = load(above);
        Numbers const belowBoth = load(below);
        Numbers const aboveMiddle = average(firstTwice(aboveBoth), secondTwice(aboveBoth));
        Numbers const belowMiddle = average(firstTwice(belowBoth), secondTwice(belowBoth));
        Numbers const aboveStep = secondTwice(aboveBoth) - firstTwice(aboveBoth);
        Numbers const belowStep = secondTwice(belowBoth) - firstTwice(belowBoth);
        std::int16_t* middle = m_middle.data() + std::ptrdiff_t{4} * (overshoot + x);
        std::int16_t* step = m_step.data() + std::ptrdiff_t{4} * (overshoot + x);
        for (int i = 0; i < m_grid.cell; i += 2, middle += 8, step += 8) {
            Numbers const place = m_places.from(i);
            Numbers const top = aboveMiddle + highProduct(aboveStep, place);
            Numbers const bottom = belowMiddle + highProduct(belowStep, place);
            store(middle, average(top, bottom));
            store(step, bottom - top);
        }
    }
}

void Backdrop::paint(std::uint32_t* row, int from, int end) const
{
    // Writing pixels may change any number for all that the compiler knows: these stay.
    std::int16_t const* const middle = m_middle.data() + std::ptrdiff_t{4} * overshoot;
    std::int16_t const* const step = m_step.data() + std::ptrdiff_t{4} * overshoot;
    Numbers const down = m_down;
    for (int x = from; x < end; x += blockSize) {
        std::ptrdiff_t const at = std::ptrdiff_t{4} * x;
        storePixels<levelBits>(row + x,
            {.first = load(middle + at) + highProduct(load(step + at), down),
                .second = load(middle + at + 8) + highProduct(load(step + at + 8), down)});
    }
}

} // namespace velmora
