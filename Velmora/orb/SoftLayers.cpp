#include "Velmora/orb/SoftLayers.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr int maximumMargin = 24;
constexpr int maximumCell = 32;

std::size_t area(int stride, int rows)
{
    return static_cast<std::size_t>(stride) * static_cast<std::size_t>(rows);
}

/// The variance that a cell's width and linear interpolation between cells add, in pixels.
double ownVariance(int cell)
{
    double const square = static_cast<double>(cell) * cell;
    double const interpolation = cell % 2 == 0 ? square / 6 + 1.0 / 12 : (square - 1) / 6;
    return square / 12 + interpolation;
}

void grow(std::vector<float>& buffer, std::size_t needed, std::size_t room)
{
    if (buffer.size() < needed)
        buffer.resize(room);
}

} // namespace

CellGrid CellGrid::covering(int width, int height, double wanted, double overhang)
{
    CellGrid grid;
    grid.cell = std::clamp(static_cast<int>(wanted), 1, maximumCell);
    double const beyond = std::clamp(overhang / grid.cell, 0.0, 1.0 * maximumMargin);
    grid.margin = std::min(1 + static_cast<int>(std::ceil(beyond)), maximumMargin);
    int const blockSize = AreaRaster::blockSize;
    int const wholeWidth = (width + blockSize - 1) / blockSize * blockSize;
    grid.columns = (wholeWidth + grid.cell - 1) / grid.cell + 2 * grid.margin;
    grid.rows = (height + grid.cell - 1) / grid.cell + 2 * grid.margin;
    grid.stride = (grid.columns + 7) / 8 * 8;
    return grid;
}

void BlurKernel::fit(double variance)
{
    radius = 0;
    weights[0] = 1;
    if (!(variance > 0))
        return;
    if (variance < 0.7) {
        // Too narrow to be sampled: these five weights have the variance and, as far as none is
        // negative, the fourth moment.
        double const outer = std::max((3 * variance * variance - variance) / 24, 0.0);
        radius = outer > 0 ? 2 : 1;
        double const inner = variance / 2 - 4 * outer;
        weights[0] = static_cast<float>(1 - 2 * (inner + outer));
        weights[1] = static_cast<float>(inner);
        weights[2] = static_cast<float>(outer);
        return;
    }
    double const limit = maximumRadius / 3.0;
    double const deviation = std::min(std::sqrt(variance), limit);
    radius = static_cast<int>(std::ceil(3.0 * deviation));
    // Each weight is the one before times a ratio that itself shrinks by a constant factor.
    double const first = std::exp(-0.5 / (deviation * deviation));
    double const shrink = first * first;
    double ratio = first;
    double weight = 1;
    double sum = 1;
    for (int i = 1; i <= radius; ++i) {
        weight *= ratio;
        ratio *= shrink;
        weights[static_cast<std::size_t>(i)] = static_cast<float>(weight);
        sum += 2 * weight;
    }
    for (std::size_t i = 0; i <= static_cast<std::size_t>(radius); ++i)
        weights[i] = static_cast<float>(weights[i] / sum);
}

void SoftPlane::resize(CellGrid const& grid)
{
    m_stride = grid.stride;
    m_raster.resize(grid.stride, grid.rows);
    m_touched.resize(m_raster.blocks(), grid.rows);
    std::size_t const line
        = static_cast<std::size_t>(grid.stride) + std::size_t{2} * BlurKernel::maximumRadius + 4;
    grow(m_line, line, line + 8);
    grow(m_across, area(grid.stride, grid.rows), grid.room());
    grow(m_plane, area(grid.stride, grid.rows), grid.room());
}

void SoftPlane::draw(
    CellGrid const& grid, Contour const& contour, Placing const& placing, double deviation)
{
    resize(grid);
    double const cell = grid.cell;
    m_kernel.fit((deviation * deviation + 1.0 / 12 - ownVariance(grid.cell)) / (cell * cell));
    m_raster.add(contour,
        {.centerX = grid.position(placing.centerX),
            .centerY = grid.position(placing.centerY),
            .scale = static_cast<float>(placing.scale / cell)},
        false, m_touched);
    blurRows(grid);
    blurColumns(grid);
}

void SoftPlane::resolveRow(int y, float* line)
{
    float* const differences = m_raster.row(y);
    Lanes const zero = splat(0);
    Lanes const one = splat(1);
    Lanes sum = zero;
    for (int x = 0; x < m_stride; x += 4) {
        sum = runningSum(load(differences + x)) + splat(last(sum));
        store(line + x, min(magnitude(sum), one));
        store(differences + x, zero);
    }
    store(differences + m_stride, zero);
}

void SoftPlane::blurRows(CellGrid const& grid)
{
    int const radius = m_kernel.radius;
    float* const line = m_line.data() + radius;
    std::fill_n(m_line.data(), radius, 0.0F);
    std::fill_n(line + m_stride, radius, 0.0F);
    float const* const weights = m_kernel.weights.data();
    for (int y = m_raster.firstRow(); y < m_raster.endRow(); ++y) {
        resolveRow(y, line);
        float* const out = m_across.data() + area(grid.stride, y);
        for (int x = 0; x < m_stride; x += 8) {
            Lanes const center = splat(weights[0]);
            Lanes left = center * load(line + x);
            Lanes right = center * load(line + x + 4);
            for (int i = 1; i <= radius; ++i) {
                Lanes const weight = splat(weights[i]);
                left = left + weight * (load(line + x - i) + load(line + x + i));
                right = right + weight * (load(line + x + 4 - i) + load(line + x + 4 + i));
            }
            store(out + x, left);
            store(out + x + 4, right);
        }
    }
}

void SoftPlane::blurColumns(CellGrid const& grid)
{
    int const radius = m_kernel.radius;
    int const first = m_raster.firstRow();
    int const end = m_raster.endRow();
    for (int y = 0; y < grid.rows; ++y) {
        float* const out = m_plane.data() + area(m_stride, y);
        int const from = std::max(first, y - radius);
        int const to = std::min(end, y + radius + 1);
        if (from >= to) {
            std::fill_n(out, m_stride, 0.0F);
            continue;
        }
        for (int x = 0; x < m_stride; x += 8)
            sumColumns(out + x, x, y, from, to);
    }
}

void SoftPlane::sumColumns(float* out, int x, int y, int from, int to) const
{
    float const* in = m_across.data() + area(m_stride, from) + x;
    Lanes left = splat(0);
    Lanes right = splat(0);
    auto const addRow = [&](float share) {
        Lanes const weight = splat(share);
        left = left + weight * load(in);
        right = right + weight * load(in + 4);
        in += m_stride;
    };
    float const* const weights = m_kernel.weights.data();
    int row = from;
    for (; row < std::min(y, to); ++row)
        addRow(weights[y - row]);
    for (; row < to; ++row)
        addRow(weights[row - y]);
    store(out, left);
    store(out + 4, right);
}

} // namespace velmora
