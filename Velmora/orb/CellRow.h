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
    [[nodiscard]] int from() const { return from_; }
    [[nodiscard]] int end() const { return end_; }

    /// Prepares `coverage` for the pixels `from` up to `end`.
    void stretch(int from, int end);

    /// The coverage, times the opacity, of the four pixels from `x`, which `stretch` has prepared.
    [[nodiscard]] Lanes coverage(int x) const { return load(pixels_.data() + overshoot + x); }

private:
    CellGrid grid_;
    SoftPlane const* plane_ = nullptr;
    float opacity_ = 0;
    int width_ = 0;
    int from_ = 0;
    int end_ = 0;
    std::vector<float> cells_;
    std::vector<float> pixels_;
    /// How far each pixel of a cell lies between the cells' centres, 0..1.
    std::vector<float> shares_;
};

} // namespace velmora
