#pragma once

#include "Velmora/orb/AreaRaster.h"
#include "Velmora/orb/SoftLayers.h"

#include <vector>

namespace velmora {

/// The blurred stroke of a contour at full resolution, worked out only where it shows.
class RippleRing {
public:
    /// How far from an edge any pixel shows its blur, given in device pixels as well.
    [[nodiscard]] static double reach(double deviation);

    /// Makes room for pictures of a size, so that a ring may appear without allocating.
    void resize(int width, int height);

    /// Draws the ring whose edges are the contour moved by `placing.offset` to either side,
    /// blurred with `deviation` device pixels (at most 20).
    void draw(Contour const& contour, Placing const& placing, double deviation);

    /// Makes ready for row `y`.
    void beginRow(int y);

    /// The first block from `from` on in which the ring shows in the row, or `limit`.
    [[nodiscard]] int nextBlock(int from, int limit) const { return m_shown.next(0, from, limit); }

    /// Whether the ring shows in a block of the row.
    [[nodiscard]] bool shows(int block) const { return nextBlock(block, block + 1) == block; }

    /// The ring's coverage of the four pixels of the row from column `x`, a multiple of four.
    [[nodiscard]] Lanes coverage(int x) const;

    /// Forgets the ring; must follow every `draw`.
    void clear();

private:
    void resolve(int y);
    void mark(int y, int first, int last);
    void blurRow(int y);

    AreaRaster m_raster;
    BlurKernel m_kernel;
    std::vector<float> m_line;
    std::vector<float> m_plane;
    BlockMap m_touched;
    /// Of each row by itself, and of the row at hand with all that its neighbours shed on it.
    BlockMap m_marks;
    BlockMap m_shown;
    int m_y = 0;
    int m_rows = 0;
    int m_stride = 0;
    int m_blocks = 0;
};

} // namespace velmora
