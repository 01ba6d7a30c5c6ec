#pragma once

#include "Velmora/orb/AreaRaster.h"
#include "Velmora/orb/Lanes.h"

#include <array>
#include <cstddef>
#include <vector>

namespace velmora {

/// A grid of cells, each a square of device pixels, that covers a picture with a margin around.
struct CellGrid {
    /// Pixels along a cell's side.
    int cell = 1;
    /// Cells beyond each edge of the picture.
    int margin = 1;
    int columns = 0;
    int rows = 0;
    /// The columns rounded up to whole lanes.
    int stride = 0;

    /// The grid for a picture of `width` x `height` pixels whose outlines overhang it by
    /// `overhang` pixels, with cells of about `wanted` pixels.
    static CellGrid covering(int width, int height, double wanted, double overhang);

    /// The cells to make room for: a breath moves the margin by one, and that must not allocate.
    [[nodiscard]] std::size_t room() const
    {
        return static_cast<std::size_t>(stride + 8) * static_cast<std::size_t>(rows + 3);
    }

    /// Where a pixel position along an axis lies on the grid, in cells.
    [[nodiscard]] float position(double pixels) const
    {
        return static_cast<float>(pixels / cell + margin);
    }

    /// The first pixel at or behind the centre of cell `index`.
    [[nodiscard]] int firstPixel(int index) const { return (index - margin) * cell + cell / 2; }

    /// The first pixel's distance from the cell's centre, in pixels.
    [[nodiscard]] float firstOffset() const { return cell % 2 == 0 ? 0.5F : 0.0F; }
};

/// Half of a symmetric kernel: the weight of the centre and of each distance to either side.
struct BlurKernel {
    static constexpr int maximumRadius = 64;

    int radius = 0;
    std::array<float, std::size_t{maximumRadius} + 1> weights = {1};

    /// A kernel of `variance` (in squared steps), cut where it no longer shows. A variance that
    /// is not positive gives no blur; one too large for the radius gives the widest there is.
    void fit(double variance);
};

/// Draws blurred, filled contours at the size of cells: exact areas there, a short kernel, and a
/// deviation that makes up for the cells' own width and for the interpolation between them.
class SoftPlane {
public:
    void resize(CellGrid const& grid);

    /// Fills the contour and blurs it with `deviation` device pixels. The contour is placed in
    /// device pixels.
    void draw(
        CellGrid const& grid, Contour const& contour, Placing const& placing, double deviation);

    /// Whether a row of cells can hold anything but zeros.
    [[nodiscard]] bool shows(int y) const
    {
        return y >= m_raster.firstRow() - m_kernel.radius
            && y < m_raster.endRow() + m_kernel.radius;
    }

    /// The coverage of a row of cells, 0..1.
    [[nodiscard]] float const* row(int y) const
    {
        return m_plane.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(m_stride);
    }

private:
    void resolveRow(int y, float* line);
    void blurRows(CellGrid const& grid);
    void blurColumns(CellGrid const& grid);
    void sumColumns(float* out, int x, int y, int from, int to) const;

    AreaRaster m_raster;
    BlockMap m_touched;
    BlurKernel m_kernel;
    std::vector<float> m_line;
    std::vector<float> m_across;
    std::vector<float> m_plane;
    int m_stride = 0;
};

} // namespace velmora
