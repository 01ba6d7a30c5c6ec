#pragma once

#include "Velmora/orb/Lanes.h"
#include "Velmora/orb/SoftLayers.h"

#include <vector>

namespace velmora {

/// One soft layer's coverage along rows of pixels, stretched from the cells.
class CellRow {
public:
    /// What may be written past the end of a stretch, in pixels.
    static constexpr int overshoot = 40;

    /// Reads `plane`, times `opacity` (0..1), for pictures of `width` pixels. The plane must live
    /// as long as rows are read.
    void begin(CellGrid const& grid, SoftPlane const& plane, float opacity, int width);

    /// Makes ready for pixels of row `y`.
    void beginRow(int y);

    /// The pixels of the row, in whole blocks, outside of which the layer does not show: from the
    /// first up to, not including, the end.
    [[nodiscard]] int from() const { return m_from; }
    [[nodiscard]] int end() const { return m_end; }

    /// Prepares `coverage` for the pixels `from` up to `end`.
    void stretch(int from, int end);

    /// The coverage, times the opacity, of the four pixels from `x`, which `stretch` has prepared.
    [[nodiscard]] Lanes coverage(int x) const { return load(m_pixels.data() + overshoot + x); }

private:
    CellGrid m_grid;
    SoftPlane const* m_plane = nullptr;
    float m_opacity = 0;
    int m_width = 0;
    int m_from = 0;
    int m_end = 0;
    std::vector<float> m_cells;
    std::vector<float> m_pixels;
    /// How far each pixel of a cell lies between the cells' centres, 0..1.
    std::vector<float> m_shares;
};

} // namespace velmora
