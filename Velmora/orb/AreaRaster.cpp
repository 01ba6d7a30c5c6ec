#include "Velmora/orb/AreaRaster.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

constexpr unsigned bitsPerWord = 64;

/// Also turns what is not a number into 0.
float limited(float x, float high)
{
    return x > 0 ? std::min(x, high) : 0;
}

} // namespace

void AreaRaster::resize(int columns, int rows)
{
    m_columns = columns;
    m_rows = rows;
    int const blocks = (columns + blockSize - 1) / blockSize + 1;
    m_stride = blocks * blockSize;
    m_words = (blocks + static_cast<int>(bitsPerWord) - 1) / static_cast<int>(bitsPerWord);
    // Rasters of cells change by a row or two from frame to frame: room for those at once.
    auto const height = static_cast<std::size_t>(rows);
    auto const stride = static_cast<std::size_t>(m_stride);
    if (m_differences.size() < height * stride)
        m_differences.resize((height + 2) * (stride + std::size_t{2} * blockSize));
    auto const words = static_cast<std::size_t>(m_words);
    if (m_touched.size() < height * words)
        m_touched.resize((height + 2) * (words + 1));
    m_firstRow = rows;
    m_endRow = 0;
}

void AreaRaster::add(Contour const& contour, Placing const& placing, bool subtract)
{
    auto const x = [&](Contour::Vertex const& v) {
        return placing.centerX + v.x * placing.scale + v.normalX * placing.offset;
    };
    auto const y = [&](Contour::Vertex const& v) {
        return placing.centerY + v.y * placing.scale + v.normalY * placing.offset;
    };
    float const sign = subtract ? -1.0F : 1.0F;
    Contour::Vertex const& lastVertex = contour.end()[-1];
    float fromX = x(lastVertex);
    float fromY = y(lastVertex);
    for (Contour::Vertex const& vertex : contour) {
        float const toX = x(vertex);
        float const toY = y(vertex);
        addLine(fromX, fromY, toX, toY, sign);
        fromX = toX;
        fromY = toY;
    }
}

inline void AreaRaster::touch(int y, int firstColumn, int lastColumn)
{
    std::uint64_t* const words = touched(y);
    unsigned const first = static_cast<unsigned>(firstColumn) / blockSize;
    unsigned const last = static_cast<unsigned>(lastColumn) / blockSize;
    std::uint64_t const fromFirst = ~std::uint64_t{0} << first % bitsPerWord;
    std::uint64_t const toLast = ~std::uint64_t{0} >> (bitsPerWord - 1 - last % bitsPerWord);
    unsigned word = first / bitsPerWord;
    unsigned const lastWord = last / bitsPerWord;
    if (word == lastWord) {
        words[word] |= fromFirst & toLast;
        return;
    }
    words[word] |= fromFirst;
    for (++word; word < lastWord; ++word)
        words[word] = ~std::uint64_t{0};
    words[lastWord] |= toLast;
}

inline void AreaRaster::addAcross(float* cells, float left, float right, float height)
{
    int const first = static_cast<int>(left);
    int const last = static_cast<int>(right);
    // The line crosses pixels: a triangle in the first, trapezoids, a triangle in the last.
    float const perColumn = height / (right - left);
    float const start = static_cast<float>(first + 1) - left;
    float const rest = right - static_cast<float>(last);
    float const firstArea = 0.5F * perColumn * start * start;
    float const lastArea = 0.5F * perColumn * rest * rest;
    // What each pixel holds is the area left of its right edge; its difference is stored.
    float covered = firstArea;
    cells[first] += firstArea;
    float atEdge = perColumn * start;
    for (int column = first + 1; column < last; ++column) {
        float const area = atEdge + 0.5F * perColumn;
        cells[column] += area - covered;
        covered = area;
        atEdge += perColumn;
    }
    // In the last pixel the line ends at `rest`; right of that the full height is covered.
    float const lastPixel = atEdge * rest + lastArea + height * (1 - rest);
    cells[last] += lastPixel - covered;
    cells[last + 1] += height - lastPixel;
}

inline void AreaRaster::addInRow(int y, float left, float right, float height)
{
    int const first = static_cast<int>(left);
    int const last = static_cast<int>(right);
    float* const cells = row(y);
    touch(y, first, last + 1);
    if (first == last) {
        float const past = height * ((left + right) * 0.5F - static_cast<float>(first));
        cells[first] += height - past;
        cells[first + 1] += past;
        return;
    }
    addAcross(cells, left, right, height);
}

void AreaRaster::addLine(float x0, float y0, float x1, float y1, float sign)
{
    if (y0 > y1) {
        std::swap(x0, x1);
        std::swap(y0, y1);
        sign = -sign;
    }
    auto const height = static_cast<float>(m_rows);
    if (!(y0 < y1) || y1 <= 0 || y0 >= height)
        return;
    float const slope = (x1 - x0) / (y1 - y0);
    float const top = std::max(y0, 0.0F);
    float const bottom = std::min(y1, height);
    float x = x0 + (top - y0) * slope;
    int const first = static_cast<int>(top);
    int const last = static_cast<int>(bottom);
    int const end = static_cast<float>(last) < bottom ? last + 1 : last;
    m_firstRow = std::min(m_firstRow, first);
    m_endRow = std::max(m_endRow, end);
    auto const width = static_cast<float>(m_columns);
    // A line well within the raster stays within it whatever the rounding, unless it is so flat
    // that its slope is no number.
    bool const within = std::min(x0, x1) > 1 && std::max(x0, x1) < width - 1 && y1 - y0 > 1e-6F;
    float from = top;
    for (int row = first; row < end; ++row) {
        float const to = std::min(static_cast<float>(row + 1), bottom);
        float const next = x + slope * (to - from);
        float const left = std::min(x, next);
        float const right = std::max(x, next);
        if (within)
            addInRow(row, left, right, sign * (to - from));
        else
            addInRow(row, limited(left, width), limited(right, width), sign * (to - from));
        x = next;
        from = to;
    }
}

} // namespace velmora
