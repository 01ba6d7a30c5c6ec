#include "Velmora/orb/AreaRaster.h"

#include <algorithm>

namespace velmora {
namespace {

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
    m_stride = ((columns + blockSize - 1) / blockSize + 1) * blockSize;
    // Rasters of cells change by a row or two from frame to frame: room for those at once.
    auto const height = static_cast<std::size_t>(rows);
    auto const stride = static_cast<std::size_t>(m_stride);
    if (m_differences.size() < height * stride)
        m_differences.resize((height + 2) * (stride + std::size_t{2} * blockSize));
    m_firstRow = rows;
    m_endRow = 0;
}

void AreaRaster::add(
    Contour const& contour, Placing const& placing, bool subtract, BlockMap& touched)
{
    auto& x = m_x;
    auto& y = m_y;
    std::size_t const count = contour.count();
    Contour::Vertices const& vertices = contour.vertices();
    for (std::size_t i = 0; i < count; ++i)
        x[i] = placing.centerX + vertices.x[i] * placing.scale
            + vertices.normalX[i] * placing.offset;
    for (std::size_t i = 0; i < count; ++i)
        y[i] = placing.centerY + vertices.y[i] * placing.scale
            + vertices.normalY[i] * placing.offset;
    x[count] = x[0];
    y[count] = y[0];
    float const sign = subtract ? -1.0F : 1.0F;
    for (std::size_t from = 0; from < count;) {
        std::size_t to = from;
        while (to < count && y[to + 1] >= y[to])
            ++to;
        auto const down = static_cast<std::ptrdiff_t>(to - from);
        addRun({.x = &x[from], .y = &y[from], .step = 1, .last = down}, sign, touched);
        from = to;
        while (to < count && !(y[to + 1] >= y[to]))
            ++to;
        auto const up = static_cast<std::ptrdiff_t>(to - from);
        addRun({.x = &x[to], .y = &y[to], .step = -1, .last = up}, -sign, touched);
        from = to;
    }
}

void AreaRaster::addRun(Run const& run, float sign, BlockMap& touched)
{
    float const bottom = run.y[run.step * run.last];
    float x = run.x[0];
    float y = run.y[0];
    auto const height = static_cast<float>(m_rows);
    if (!(bottom > 0 && y < height && y < bottom))
        return;
    std::ptrdiff_t i = 1;
    if (y < 0) {
        for (; run.y[i * run.step] <= 0; ++i) {
            x = run.x[i * run.step];
            y = run.y[i * run.step];
        }
        x -= (run.x[i * run.step] - x) * (y / (run.y[i * run.step] - y));
        y = 0;
    }
    Pen pen = {.x = x, .y = y, .row = static_cast<int>(y)};
    m_firstRow = std::min(m_firstRow, pen.row);
    m_endRow = std::max(m_endRow, static_cast<int>(std::min(bottom, height - 1)) + 1);
    for (; i <= run.last && pen.row < m_rows; ++i)
        lineTo(pen, run.x[i * run.step], run.y[i * run.step], sign, touched);
}

/// Moves the pen down to a vertex, piece by piece.
inline void AreaRaster::lineTo(Pen& pen, float toX, float toY, float sign, BlockMap& touched)
{
    auto edge = static_cast<float>(pen.row + 1);
    if (toY >= edge) {
        // Here `edge` is greater than the pen's `y`, so that the slope is a number.
        float const slope = (toX - pen.x) / (toY - pen.y);
        float x = pen.x + slope * (edge - pen.y);
        addPiece(pen.row, pen.x, x, sign * (edge - pen.y), touched);
        int row = pen.row + 1;
        for (edge += 1; toY >= edge && row < m_rows; edge += 1, ++row) {
            addPiece(row, x, x + slope, sign, touched);
            x += slope;
        }
        pen = {.x = x, .y = edge - 1, .row = row};
    }
    if (toY > pen.y && pen.row < m_rows)
        addPiece(pen.row, pen.x, toX, sign * (toY - pen.y), touched);
    pen.x = toX;
    pen.y = toY;
}

inline void AreaRaster::addPiece(int y, float from, float to, float height, BlockMap& touched)
{
    float const left = std::min(from, to);
    float const right = std::max(from, to);
    if (!(left >= 0 && right <= static_cast<float>(m_columns))) {
        addClipped(y, left, right, height, touched);
        return;
    }
    int const first = static_cast<int>(left);
    int const last = static_cast<int>(right);
    float* const cells = row(y);
    std::uint8_t* const marks = touched.row(y);
    marks[first / blockSize] = 1;
    marks[(last + 1) / blockSize] = 1;
    // What each pixel holds is the area left of its right edge; its difference is stored.
    if (first == last) {
        float const past = height * ((left + right) * 0.5F - static_cast<float>(first));
        cells[first] += height - past;
        cells[first + 1] += past;
        return;
    }
    if (last == first + 1) {
        // A triangle on either side of the column's edge.
        float const half = 0.5F * height / (right - left);
        float const start = static_cast<float>(last) - left;
        float const rest = right - static_cast<float>(last);
        float const covered = half * start * start;
        float const missing = half * rest * rest;
        cells[first] += covered;
        cells[last] += height - missing - covered;
        cells[last + 1] += missing;
        return;
    }
    for (int block = first / blockSize + 1; block <= last / blockSize; ++block)
        marks[block] = 1;
    addAcross(cells, left, right, height);
}

void AreaRaster::addClipped(int y, float left, float right, float height, BlockMap& touched)
{
    auto const width = static_cast<float>(m_columns);
    float const span = right - left;
    float const before = span > 0 ? limited(-left, span) / span : left < 0 ? 1.0F : 0.0F;
    float const behind = span > 0 ? limited(right - width, span) / span : 0;
    row(y)[0] += height * before;
    touched.row(y)[0] = 1;
    if (left < width && right > 0)
        addPiece(y, limited(left, width), limited(right, width), height * (1 - before - behind),
            touched);
}

void AreaRaster::addAcross(float* cells, float left, float right, float height)
{
    int const first = static_cast<int>(left);
    int const last = static_cast<int>(right);
    // The line crosses pixels: a triangle in the first, trapezoids, a triangle in the last.
    float const perColumn = height / (right - left);
    float const start = static_cast<float>(first + 1) - left;
    float const rest = right - static_cast<float>(last);
    float const firstArea = 0.5F * perColumn * start * start;
    float const missing = 0.5F * perColumn * rest * rest;
    cells[first] += firstArea;
    cells[first + 1] += perColumn * (start + 0.5F) - firstArea;
    for (int column = first + 2; column < last; ++column)
        cells[column] += perColumn;
    float const lastButOne = perColumn * (start + static_cast<float>(last - first - 2) + 0.5F);
    cells[last] += height - missing - lastButOne;
    cells[last + 1] += missing;
}

} // namespace velmora
