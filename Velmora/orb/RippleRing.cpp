#include "Velmora/orb/RippleRing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace velmora {
namespace {

constexpr int blockSize = AreaRaster::blockSize;
constexpr double widestBlur = 20;

std::size_t area(int stride, int rows)
{
    return static_cast<std::size_t>(stride) * static_cast<std::size_t>(rows);
}

} // namespace

void RippleRing::resize(int width, int height)
{
    m_raster.resize(width, height);
    m_rows = height;
    m_stride = m_raster.stride();
    m_blocks = m_raster.blocks();
    m_plane.resize(std::max(m_plane.size(), area(m_stride, m_rows)));
    m_touched.resize(m_blocks, m_rows);
    m_marks.resize(m_blocks, m_rows);
    m_line.resize(std::max(m_line.size(),
        static_cast<std::size_t>(m_stride) + std::size_t{2} * BlurKernel::maximumRadius
            + blockSize));
}

void RippleRing::draw(Contour const& contour, Placing const& placing, double deviation)
{
    double const blur = std::min(deviation, widestBlur);
    m_kernel.fit(blur * blur);
    m_raster.add(contour, placing, false, m_touched);
    Placing inner = placing;
    inner.offset = -placing.offset;
    m_raster.add(contour, inner, true, m_touched);
    for (int y = m_raster.firstRow(); y < m_raster.endRow(); ++y) {
        resolve(y);
        blurRow(y);
    }
}

void RippleRing::resolve(int y)
{
    float* const differences = m_raster.row(y);
    std::uint8_t* const marks = m_marks.row(y);
    float* const line = m_line.data() + BlurKernel::maximumRadius;
    int const spread = (m_kernel.radius + blockSize - 1) / blockSize;
    std::fill_n(line, m_stride, 0.0F);
    float sum = 0;
    for (int block = m_touched.next(y, 0, m_blocks); block < m_blocks;) {
        float* const cells = differences + std::ptrdiff_t{block} * blockSize;
        Lanes const coverage = runningSum(load(cells)) + splat(sum);
        store(cells, splat(0));
        sum = last(coverage);
        store(line + std::ptrdiff_t{block} * blockSize, min(magnitude(coverage), splat(1)));
        int const from = std::max(block - spread, 0);
        ++block;
        // Between its two edges a wide ring is untouched, but whole.
        int const next = m_touched.next(y, block, m_blocks);
        if (sum > 0.001F || sum < -0.001F) {
            std::fill(line + std::ptrdiff_t{block} * blockSize,
                line + std::ptrdiff_t{next} * blockSize, std::min(std::fabs(sum), 1.0F));
            block = next;
        }
        std::fill(marks + from, marks + std::min(block + spread, m_blocks), std::uint8_t{1});
        block = next;
    }
    m_touched.clearRow(y);
}

void RippleRing::blurRow(int y)
{
    float const* const weights = m_kernel.weights.data();
    float const* const line = m_line.data() + BlurKernel::maximumRadius;
    float* const out = m_plane.data() + area(m_stride, y);
    for (int block = m_marks.next(y, 0, m_blocks); block < m_blocks;
         block = m_marks.next(y, block + 1, m_blocks)) {
        float const* const in = line + std::ptrdiff_t{block} * blockSize;
        Lanes sum = splat(weights[0]) * load(in);
        for (int i = 1; i <= m_kernel.radius; ++i)
            sum = sum + splat(weights[i]) * (load(in - i) + load(in + i));
        store(out + std::ptrdiff_t{block} * blockSize, sum);
    }
}

void RippleRing::mark(int y, BlockMap& touched) const
{
    int const end = std::min(y + m_kernel.radius + 1, m_rows);
    for (int row = std::max(y - m_kernel.radius, 0); row < end; ++row)
        touched.add(y, m_marks, row);
}

Lanes RippleRing::coverage(int y, int x) const
{
    float const* const weights = m_kernel.weights.data();
    Lanes sum = splat(0);
    int const end = std::min(y + m_kernel.radius + 1, m_rows);
    for (int row = std::max(y - m_kernel.radius, 0); row < end; ++row) {
        float const* const in = m_plane.data() + area(m_stride, row) + x;
        sum = sum + splat(weights[row < y ? y - row : row - y]) * load(in);
    }
    return sum;
}

void RippleRing::clear()
{
    for (int y = m_raster.firstRow(); y < m_raster.endRow(); ++y) {
        float* const out = m_plane.data() + area(m_stride, y);
        for (int block = m_marks.next(y, 0, m_blocks); block < m_blocks;
             block = m_marks.next(y, block + 1, m_blocks))
            store(out + std::ptrdiff_t{block} * blockSize, splat(0));
        m_marks.clearRow(y);
    }
}

} // namespace velmora
