#pragma once

#include "Velmora/orb/CellPlaces.h"
#include "Velmora/orb/Numbers.h"
#include "Velmora/orb/SoftLayers.h"

#include <cstdint>
#include <vector>

namespace velmora {

/// One soft layer's coverage along rows of pixels, stretched from the cells in whole numbers of
/// 1/32767.
class CellRow {
public:
    /// What may be read past the end of a row, in pixels.
    static constexpr int overshoot = 40;
    /// The number of a whole coverage.
    static constexpr float whole = 32767;

    /// Reads `plane`, times `opacity` (0..1), for pictures of `width` pixels.
    void begin(CellGrid const& grid, SoftPlane const& plane, float opacity, int width);

    /// Makes ready for pixels of row `y`.
    void beginRow(int y);

    /// The pixels of the row, in whole blocks, outside of which the layer does not show: from the
    /// first up to, not including, the end.
    [[nodiscard]] int from() const { return m_from; }
    [[nodiscard]] int end() const { return m_end; }

    /// The coverage, times the opacity, of the eight pixels from `x`, of which the first must show.
    [[nodiscard]] Numbers coverage(int x) const
    {
        return load(m_middle.data() + overshoot + x)
            + highProduct(load(m_step.data() + overshoot + x), m_down);
    }

private:
    /// The cells of a row that show, from the first up to, not including, the end.
    struct Range {
        int first;
        int end;
    };

    void quantize(SoftPlane const& plane, float opacity);
    void widen(int row);

    CellGrid m_grid;
    int m_width = 0;
    int m_from = 0;
    int m_end = 0;
    /// The row of cells above the pixels, or -1.
    int m_row = -1;
    Numbers m_down = {};
    std::vector<std::int16_t> m_cells;
    std::vector<Range> m_ranges;
    /// Half way between the rows of cells above and below, and from the one to the other.
    std::vector<std::int16_t> m_middle;
    std::vector<std::int16_t> m_step;
    CellPlaces m_places;
};

} // namespace velmora
