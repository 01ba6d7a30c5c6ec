#include "Velmora/orb/CellRow.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace velmora {
namespace {

constexpr int blockSize = AreaRaster::blockSize;
/// A fifth of a level of white.
constexpr std::int16_t nothing = 26;

std::size_t area(int stride, int rows)
{
    return static_cast<std::size_t>(stride) * static_cast<std::size_t>(rows);
}

} // namespace

void CellRow::begin(CellGrid const& grid, SoftPlane const& plane, float opacity, int width)
{
    m_grid = grid;
    m_width = width;
    m_row = -1;
    m_from = 0;
    m_end = 0;
    m_places.fit(grid, 1);
    if (m_cells.size() < area(grid.stride, grid.rows))
        m_cells.resize(grid.room());
    if (m_ranges.size() < area(1, grid.rows))
        m_ranges.resize(area(1, grid.rows + 3));
    auto const room = area(1, width + 2 * overshoot);
    m_middle.resize(std::max(m_middle.size(), room));
    m_step.resize(std::max(m_step.size(), room));
    quantize(plane, opacity);
}

void CellRow::quantize(SoftPlane const& plane, float opacity)
{
    Lanes const steps = splat(opacity * whole);
    Numbers const least = splatNumber(nothing);
    for (int y = 0; y < m_grid.rows; ++y) {
        std::int16_t* const out = m_cells.data() + area(m_grid.stride, y);
        Range& range = m_ranges[static_cast<std::size_t>(y)];
        range = {.first = m_grid.stride, .end = 0};
        if (!plane.shows(y)) {
            std::fill_n(out, m_grid.stride, std::int16_t{0});
            continue;
        }
        float const* const in = plane.row(y);
        for (int x = 0; x < m_grid.stride; x += 8) {
            Numbers const cells = numbers(steps * load(in + x), steps * load(in + x + 4));
            store(out + x, cells);
            if (unsigned const shown = above(cells, least); shown != 0) {
                range.first = std::min(range.first, x + std::countr_zero(shown));
                range.end = x + static_cast<int>(std::bit_width(shown));
            }
        }
    }
}

void CellRow::beginRow(int y)
{
    int const shifted = y - m_grid.cell / 2 + m_grid.margin * m_grid.cell;
    m_down = m_places.of(shifted % m_grid.cell);
    if (shifted / m_grid.cell != m_row)
        widen(shifted / m_grid.cell);
}

void CellRow::widen(int row)
{
    m_row = row;
    auto const index = static_cast<std::size_t>(row);
    int const first = std::min(m_ranges[index].first, m_ranges[index + 1].first);
    int const end = std::max(m_ranges[index].end, m_ranges[index + 1].end);
    m_from = std::max(m_grid.firstPixel(first - 1), 0) / blockSize * blockSize;
    m_end = std::min(m_grid.firstPixel(end), m_width + blockSize - 1) / blockSize * blockSize;
    m_end = std::max(m_from, m_end);
    if (m_from == m_end)
        return;
    int const shifted = m_from - m_grid.cell / 2 + m_grid.margin * m_grid.cell;
    int cell = shifted / m_grid.cell;
    std::int16_t const* const above = m_cells.data() + area(m_grid.stride, row);
    std::int16_t const* const below = above + m_grid.stride;
    for (int x = m_grid.firstPixel(cell); x < m_end; x += m_grid.cell, ++cell) {
        Numbers const aboveLeft = splatNumber(above[cell]);
        Numbers const aboveRight = splatNumber(above[cell + 1]);
        Numbers const belowLeft = splatNumber(below[cell]);
        Numbers const belowRight = splatNumber(below[cell + 1]);
        Numbers const aboveMiddle = average(aboveLeft, aboveRight);
        Numbers const belowMiddle = average(belowLeft, belowRight);
        for (int i = 0; i < m_grid.cell; i += 8) {
            Numbers const place = m_places.from(i);
            Numbers const top = aboveMiddle + highProduct(aboveRight - aboveLeft, place);
            Numbers const bottom = belowMiddle + highProduct(belowRight - belowLeft, place);
            store(m_middle.data() + overshoot + x + i, average(top, bottom));
            store(m_step.data() + overshoot + x + i, bottom - top);
        }
    }
}

} // namespace velmora
