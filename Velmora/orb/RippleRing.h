#pragma once

#include "Velmora/orb/AreaRaster.h"
#include "Velmora/orb/SoftLayers.h"

#include <vector>

namespace velmora {

/// The blurred stroke of a contour at full resolution, worked out only where it shows.
class RippleRing {
public:
    /// Makes room for pictures of a size, so that a ring may appear without allocating.
    void resize(int width, int height);

    /// Draws the ring whose edges are the contour moved by `placing.offset` to either side,
    /// blurred with `deviation` device pixels (at most 20).
    void draw(Contour const& contour, Placing const& placing, double deviation);

    /// Adds the blocks of row `y` that the ring touches to `touched`.
    void mark(int y, BlockMap& touched) const;

    /// The ring's coverage of the four pixels from column `x`, a multiple of four.
    [[nodiscard]] Lanes coverage(int y, int x) const;

    /// Forgets the ring; must follow every `draw`.
    void clear();

private:
    void resolve(int y);
    void blurRow(int y);

    AreaRaster m_raster;
    BlurKernel m_kernel;
    std::vector<float> m_line;
    std::vector<float> m_plane;
    BlockMap m_touched;
    BlockMap m_marks;
    int m_rows = 0;
    int m_stride = 0;
    int m_blocks = 0;
};

} // namespace velmora
