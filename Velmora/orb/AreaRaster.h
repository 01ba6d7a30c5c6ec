#pragma once

#include "Velmora/orb/Contour.h"

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
/// Differences lie in blocks of four pixels and each row knows the blocks that an edge has
/// touched, so that a reader visits only those. Whatever lies left of the raster counts as its
/// first column, whatever lies right of it is dropped. The reader clears what it has read.
class AreaRaster {
public:
    static constexpr int blockSize = 4;

    /// Makes room for `columns` x `rows` pixels. Must be all clear; allocates only to grow.
    void resize(int columns, int rows);

    /// Adds a contour, counted negatively when `subtract` is set.
    void add(Contour const& contour, Placing const& placing, bool subtract);

    /// The differences of a row; one block more than the blocks of the columns.
    [[nodiscard]] float* row(int y) { return m_differences.data() + rowOffset(y); }

    /// The touched blocks of a row, one bit each, in `words()` words.
    [[nodiscard]] std::uint64_t* touched(int y)
    {
        return m_touched.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(m_words);
    }

    [[nodiscard]] int words() const { return m_words; }
    [[nodiscard]] int stride() const { return m_stride; }
    [[nodiscard]] int rows() const { return m_rows; }

    /// The rows that edges have touched since the last `resize`: from the first up to, not
    /// including, the end.
    [[nodiscard]] int firstRow() const { return m_firstRow; }
    [[nodiscard]] int endRow() const { return m_endRow; }

private:
    [[nodiscard]] std::size_t rowOffset(int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_stride);
    }
    void addLine(float x0, float y0, float x1, float y1, float sign);
    void addInRow(int y, float left, float right, float height);
    static void addAcross(float* cells, float left, float right, float height);
    void touch(int y, int firstColumn, int lastColumn);

    std::vector<float> m_differences;
    std::vector<std::uint64_t> m_touched;
    int m_columns = 0;
    int m_rows = 0;
    int m_stride = 0;
    int m_words = 0;
    int m_firstRow = 0;
    int m_endRow = 0;
};

} // namespace velmora
