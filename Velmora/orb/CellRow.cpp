#include "Velmora/orb/CellRow.h"

#include <algorithm>
#include <cstddef>

namespace velmora {
namespace {

constexpr int blockSize = AreaRaster::blockSize;
/// A tenth of a level of white.
constexpr float nothing = 0.1F / 255;

void grow(std::vector<float>& buffer, int size)
{
    if (buffer.size() < static_cast<std::size_t>(size))
        buffer.resize(static_cast<std::size_t>(size));
}

} // namespace

void CellRow::begin(CellGrid const& grid, SoftPlane const& plane, float opacity, int width)
{
    m_grid = grid;
    m_plane = &plane;
    m_opacity = opacity;
    m_width = width;
    if (m_cells.size() < static_cast<std::size_t>(grid.stride) + blockSize)
        grow(m_cells, grid.stride + 8 + blockSize);
    grow(m_pixels, width + 2 * overshoot);
    grow(m_shares, grid.cell + blockSize);
    for (int x = 0; x < grid.cell + blockSize; ++x) {
        m_shares[static_cast<std::size_t>(x)]
            = (static_cast<float>(x) + grid.firstOffset()) / static_cast<float>(grid.cell);
    }
}

void CellRow::beginRow(int y)
{
    int const shifted = y - m_grid.cell / 2 + m_grid.margin * m_grid.cell;
    int const row = shifted / m_grid.cell;
    m_from = 0;
    m_end = 0;
    if (!m_plane->shows(row) && !m_plane->shows(row + 1)) {
        std::fill_n(m_cells.data(), m_grid.stride, 0.0F);
        return;
    }
    float const below = m_shares[static_cast<std::size_t>(shifted % m_grid.cell)] * m_opacity;
    Lanes const first = splat(m_opacity - below);
    Lanes const second = splat(below);
    float const* const upper = m_plane->row(row);
    float const* const lower = m_plane->row(row + 1);
    int left = m_grid.stride;
    int right = 0;
    for (int i = 0; i < m_grid.stride; i += 4) {
        Lanes const value = first * load(upper + i) + second * load(lower + i);
        store(m_cells.data() + i, value);
        if (!anyAbove(value, splat(nothing)))
            continue;
        left = std::min(left, i);
        right = i + 4;
    }
    m_from = std::max(m_grid.firstPixel(left - 1), 0) / blockSize * blockSize;
    m_end = std::min(m_grid.firstPixel(right), m_width + blockSize - 1) / blockSize * blockSize;
    m_end = std::max(m_from, m_end);
}

void CellRow::stretch(int from, int end)
{
    int const shifted = from - m_grid.cell / 2 + m_grid.margin * m_grid.cell;
    float const* cell = m_cells.data() + shifted / m_grid.cell;
    int const offset = shifted % m_grid.cell;
    float const* shares = m_shares.data() + offset;
    float* const out = m_pixels.data() + overshoot;
    int stop = from - offset + m_grid.cell;
    for (int x = from; x < end; stop += m_grid.cell, ++cell, shares = m_shares.data()) {
        Lanes const left = splat(cell[0]);
        Lanes const step = splat(cell[1] - cell[0]);
        int const until = std::min(stop, end);
        for (int at = x; at < until; at += 4, shares += 4)
            store(out + at, left + step * load(shares));
        x = until;
    }
}

} // namespace velmora
