#include "Velmora/orb/Backdrop.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

namespace velmora {
namespace {

constexpr std::int16_t half = 64;
/// Each of four roundings may lift a colour or lower its alpha by a step.
constexpr float alphaAhead = 5;

template <typename Buffer>
void grow(Buffer& buffer, int size)
{
    if (buffer.size() < static_cast<std::size_t>(size))
        buffer.resize(static_cast<std::size_t>(size));
}

std::size_t index(int at)
{
    return static_cast<std::size_t>(at);
}

std::int16_t place(float share)
{
    return static_cast<std::int16_t>(
        std::lround(std::clamp((share - 0.5F) * 65536, -32768.0F, 32767.0F)));
}

/// Two values with a share between them, given as `place`.
PixelPair between(PixelPair from, PixelPair to, PixelPair place)
{
    return average(from, to) + highProduct(to - from, place);
}

} // namespace

void Backdrop::compose(CellGrid const& grid, SoftPlane const& glow, float glowOpacity,
    LevelColor const& color, SoftPlane const& shadow, float shadowOpacity, float full)
{
    bool const otherCells = m_places.empty() || grid.cell != m_grid.cell;
    m_grid = grid;
    if (m_cells.size() < index((grid.rows + 1) * grid.stride) * 4)
        m_cells.resize(grid.room() * 4);
    if (m_row.size() < index(grid.stride + 2) * 4)
        m_row.resize(index(grid.stride + 10) * 4);
    if (otherCells) {
        m_places.resize(index(grid.cell + AreaRaster::blockSize) * 4);
        for (int x = 0; x < grid.cell + AreaRaster::blockSize; ++x) {
            float const offset = static_cast<float>(x) + grid.firstOffset();
            std::fill_n(m_places.data() + std::ptrdiff_t{4} * x, 4,
                place(offset / static_cast<float>(grid.cell)));
        }
    }
    Lanes const steps = splat(levelSteps);
    Lanes const rounding = splat(static_cast<float>(half));
    for (int row = 0; row < grid.rows; ++row) {
        std::int16_t* out = m_cells.data() + index(row * grid.stride) * 4;
        for (int x = 0; x < grid.stride; x += 4, out += 16) {
            Lanes const g = splat(glowOpacity) * load(glow.row(row) + x);
            Lanes const s = splat(shadowOpacity) * load(shadow.row(row) + x);
            Lanes const lit = (g - g * s) * steps;
            Lanes alpha
                = (lit + s * steps) * splat(full) + splat(static_cast<float>(half) + alphaAhead);
            Lanes red = lit * splat(color.red) + rounding;
            Lanes green = lit * splat(color.green) + rounding;
            Lanes blue = lit * splat(color.blue) + rounding;
            if constexpr (std::endian::native == std::endian::little) {
                std::swap(blue, alpha);
                std::swap(green, red);
            }
            transpose(alpha, red, green, blue);
            store(out, pixelPair(alpha, red));
            store(out + 8, pixelPair(green, blue));
        }
    }
}

void Backdrop::beginRow(int y, int width)
{
    grow(m_wide, (width + 2 * overshoot) * 4);
    int const shifted = y - m_grid.cell / 2 + m_grid.margin * m_grid.cell;
    PixelPair const down = splatNumber(m_places[index(shifted % m_grid.cell) * 4]);
    int const length = m_grid.stride * 4;
    std::int16_t const* const above = m_cells.data() + index(shifted / m_grid.cell * length);
    for (int i = 0; i < m_grid.columns * 4; i += 8)
        store(m_row.data() + i, between(load(above + i), load(above + length + i), down));
}

template <typename Sink>
void Backdrop::run(int from, int end, Sink const& sink) const
{
    int const shifted = from - m_grid.cell / 2 + m_grid.margin * m_grid.cell;
    std::int16_t const* cell = m_row.data() + index(shifted / m_grid.cell) * 4;
    int const offset = shifted % m_grid.cell;
    std::int16_t const* places = m_places.data() + index(offset) * 4;
    int x = from;
    int stop = from - offset + m_grid.cell;
    while (x < end) {
        PixelPair const both = load(cell);
        PixelPair const left = firstTwice(both);
        PixelPair const right = secondTwice(both);
        PixelPair const middle = average(left, right);
        PixelPair const step = right - left;
        stop = std::min(stop, end);
        for (int at = x; at < stop; at += 4, places += 16) {
            sink(at, middle + highProduct(step, load(places)),
                middle + highProduct(step, load(places + 8)));
        }
        x = stop;
        stop += m_grid.cell;
        cell += 4;
        places = m_places.data();
    }
}

void Backdrop::paint(std::uint32_t* row, int from, int end) const
{
    run(from, end,
        [row](int x, PixelPair first, PixelPair second) { storePixels(row + x, first, second); });
}

void Backdrop::widen(int from, int end)
{
    PixelPair const rounding = splatNumber(half);
    std::int16_t* const out = m_wide.data() + index(overshoot) * 4;
    run(from, end, [=](int x, PixelPair first, PixelPair second) {
        store(out + std::ptrdiff_t{4} * x, first - rounding);
        store(out + std::ptrdiff_t{4} * x + 8, second - rounding);
    });
}

} // namespace velmora
