#pragma once

#include "Velmora/orb/CellPlaces.h"
#include "Velmora/orb/FramePaint.h"
#include "Velmora/orb/Numbers.h"
#include "Velmora/orb/SoftLayers.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velmora {

/// The glow under the shadow: composed once a cell, in whole numbers of 1/128 of a level, and
/// stretched over the pixels between.
class Backdrop {
public:
    /// A pixel's channels are this many steps a level, as a power of two.
    static constexpr int levelBits = 7;

    /// Composes the cells, for a picture of `width` pixels.
    void compose(CellGrid const& grid, Paint const& paint, SoftPlane const& glow,
        SoftPlane const& shadow, int width);

    /// Makes ready for pixels of row `y`.
    void beginRow(int y);

    /// Writes the pixels `from` up to `end`, in whole blocks.
    void paint(std::uint32_t* row, int from, int end) const;

    /// The four pixels from `x`, lifted by half a level, so that rounding down rounds to the
    /// nearest.
    [[nodiscard]] FourPixels channels(int x) const
    {
        std::ptrdiff_t const at = std::ptrdiff_t{4} * (overshoot + x);
        std::int16_t const* const middle = m_middle.data() + at;
        std::int16_t const* const step = m_step.data() + at;
        return {.first = load(middle) + highProduct(load(step), m_down),
            .second = load(middle + 8) + highProduct(load(step + 8), m_down)};
    }

private:
    /// What is written past either end of a row, in pixels.
    static constexpr int overshoot = 40;

    void widen(int row);

    CellGrid m_grid;
    int m_width = 0;
    /// The row of cells above the pixels, or -1.
    int m_row = -1;
    Numbers m_down = {};
    /// Four channels a cell.
    std::vector<std::int16_t> m_cells;
    /// Half way between the rows of cells above and below, and from the one to the other.
    std::vector<std::int16_t> m_middle;
    std::vector<std::int16_t> m_step;
    CellPlaces m_places;
};

} // namespace velmora
