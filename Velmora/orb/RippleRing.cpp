#include "Velmora/orb/RippleRing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>

namespace velmora {
namespace {

constexpr int blockSize = AreaRaster::blockSize;
constexpr double widestBlur = 20;
/// Less of a coverage than any level shows.
constexpr float nothing = 1.0F / 2048;

/// The variance of a blur, which is cut where no kernel is wide enough.
double squared(double deviation)
{
    double const cut = std::clamp(deviation, 0.0, widestBlur);
    return cut * cut;
}

std::size_t area(int stride, int rows)
{
    return static_cast<std::size_t>(stride) * static_cast<std::size_t>(rows);
}

} // namespace

double RippleRing::reach(double deviation)
{
    BlurKernel kernel;
    kernel.fit(squared(deviation));
    // From one corner of a pixel to the far corner of the last that it sheds on.
    return std::numbers::sqrt2 * (kernel.radius + 1);
}

void RippleRing::resize(int width, int height)
{
    m_raster.resize(width, height);
    m_rows = height;
    m_stride = m_raster.stride();
    m_blocks = m_raster.blocks();
    m_plane.resize(std::max(m_plane.size(), area(m_stride, m_rows)));
    m_touched.resize(m_blocks, m_rows);
    m_marks.resize(m_blocks, m_rows);
    m_shown.resize(m_blocks, 1);
    m_line.resize(std::max(m_line.size(),
        static_cast<std::size_t>(m_stride) + std::size_t{2} * BlurKernel::maximumRadius
            + blockSize));
}

void RippleRing::draw(Contour const& contour, Placing const& placing, double deviation)
{
    m_kernel.fit(squared(deviation));
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
    float* const line = m_line.data() + BlurKernel::maximumRadius;
    std::fill_n(line, m_stride, 0.0F);
    float sum = 0;
    int behind = 0;
    // Between its two edges a wide ring is untouched, but whole.
    auto const fillUpTo = [&](int x) {
        if (behind == x || std::fabs(sum) < nothing)
            return;
        std::fill(line + behind, line + x, std::min(std::fabs(sum), 1.0F));
        mark(y, behind, x - 1);
    };
    m_touched.each(y, [&](int block) {
        int const x = block * blockSize;
        fillUpTo(x);
        Lanes const coverage = runningSum(load(differences + x)) + splat(sum);
        store(differences + x, splat(0));
        sum = last(coverage);
        store(line + x, min(magnitude(coverage), splat(1)));
        behind = x + blockSize;
        int first = x;
        int end = behind;
        while (first < end && line[first] < nothing)
            ++first;
        while (first < end && line[end - 1] < nothing)
            --end;
        if (first < end)
            mark(y, first, end - 1);
    });
    fillUpTo(m_stride);
    m_touched.clearRow(y);
}

/// Marks the blocks that the pixels `first` to `last` shed on.
void RippleRing::mark(int y, int first, int last)
{
    std::uint8_t* const marks = m_marks.row(y);
    int const end = std::min((last + m_kernel.radius) / blockSize + 1, m_blocks);
    for (int block = std::max(first - m_kernel.radius, 0) / blockSize; block < end; ++block)
        marks[block] = 1;
}

void RippleRing::blurRow(int y)
{
    float const* const weights = m_kernel.weights.data();
    float const* const line = m_line.data() + BlurKernel::maximumRadius;
    float* const out = m_plane.data() + area(m_stride, y);
    m_marks.each(y, [&](int block) {
        float const* const in = line + std::ptrdiff_t{block} * blockSize;
        Lanes sum = splat(weights[0]) * load(in);
        for (int i = 1; i <= m_kernel.radius; ++i)
            sum = sum + splat(weights[i]) * (load(in - i) + load(in + i));
        store(out + std::ptrdiff_t{block} * blockSize, sum);
    });
}

void RippleRing::beginRow(int y)
{
    m_y = y;
    m_shown.clearRow(0);
    int const end = std::min(y + m_kernel.radius + 1, m_raster.endRow());
    for (int row = std::max(y - m_kernel.radius, m_raster.firstRow()); row < end; ++row)
        m_shown.add(0, m_marks, row);
}

Lanes RippleRing::coverage(int x) const
{
    float const* const weights = m_kernel.weights.data();
    float const* in = m_plane.data() + area(m_stride, m_y) + x;
    Lanes sum = splat(weights[0]) * load(in);
    int const before = std::min(m_kernel.radius, m_y);
    for (int i = 1; i <= before; ++i)
        sum = sum + splat(weights[i]) * load(in - std::ptrdiff_t{i} * m_stride);
    int const behind = std::min(m_kernel.radius, m_rows - 1 - m_y);
    for (int i = 1; i <= behind; ++i)
        sum = sum + splat(weights[i]) * load(in + std::ptrdiff_t{i} * m_stride);
    return sum;
}

void RippleRing::clear()
{
    for (int y = m_raster.firstRow(); y < m_raster.endRow(); ++y) {
        float* const out = m_plane.data() + area(m_stride, y);
        m_marks.each(
            y, [out](int block) { store(out + std::ptrdiff_t{block} * blockSize, splat(0)); });
        m_marks.clearRow(y);
    }
}

} // namespace velmora
