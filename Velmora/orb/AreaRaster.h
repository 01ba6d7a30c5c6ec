#pragma once

#include "Velmora/orb/BlockMap.h"
#include "Velmora/orb/Contour.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velmora {

/// How a contour lies on a raster, in the raster's pixels.
struct Placing {
    float centerX = 0;
    float centerY = 0;
    /// Pixels to a contour of side 1.
    float scale = 1;
    /// How far every vertex is moved along its normal.
    float offset = 0;
};

/// Exact area coverage of closed contours, kept as differences along each row: the running sum of
/// a row is the share of each pixel that the contours cover, with a sign for their direction.
///
/// Differences lie in blocks of four pixels, and a map that several rasters may share knows the
/// blocks that an edge has touched, so that a reader visits only those. Whatever lies left of the
/// raster counts in its first column, whatever lies right of it is dropped. The reader clears what
/// it has read.
class AreaRaster {
public:
    static constexpr int blockSize = 4;

    /// Makes room for `columns` x `rows` pixels. Must be all clear; allocates only to grow.
    void resize(int columns, int rows);

    /// Adds a contour, counted negatively when `subtract` is set, and marks the blocks it touches
    /// in a map of `blocks()` blocks a row.
    void add(Contour const& contour, Placing const& placing, bool subtract, BlockMap& touched);

    /// The differences of a row; one block more than the blocks of the columns.
    [[nodiscard]] float* row(int y)
    {
        return m_differences.data()
            + static_cast<std::size_t>(y) * static_cast<std::size_t>(m_stride);
    }

    [[nodiscard]] int stride() const { return m_stride; }
    [[nodiscard]] int blocks() const { return m_stride / blockSize; }

    /// The rows that edges have touched since the last `resize`: from the first up to, not
    /// including, the end.
    [[nodiscard]] int firstRow() const { return m_firstRow; }
    [[nodiscard]] int endRow() const { return m_endRow; }

private:
    /// Vertices from a top one down to a bottom one, `step` apart.
    struct Run {
        float const* x;
        float const* y;
        std::ptrdiff_t step;
        std::ptrdiff_t last;
    };

    /// Where a run has got to.
    struct Pen {
        float x;
        float y;
        int row;
    };

    void addRun(Run const& run, float sign, BlockMap& touched);
    void lineTo(Pen& pen, float toX, float toY, float sign, BlockMap& touched);
    void addPiece(int y, float from, float to, float height, BlockMap& touched);
    void addClipped(int y, float left, float right, float height, BlockMap& touched);
    static void addAcross(float* cells, float left, float right, float height);

    std::vector<float> m_differences;
    /// A contour's vertices where it lies, the first once more at the end.
    std::array<float, Contour::maximumVertices + 1> m_x = {};
    std::array<float, Contour::maximumVertices + 1> m_y = {};
    int m_columns = 0;
    int m_rows = 0;
    int m_stride = 0;
    int m_firstRow = 0;
    int m_endRow = 0;
};

} // namespace velmora
