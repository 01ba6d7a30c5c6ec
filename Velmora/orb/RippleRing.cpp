#include "Velmora/orb/RippleRing.h"

#include <algorithm>
#include <cstddef>

namespace velmora {
namespace {

constexpr int blockSize = AreaRaster::blockSize;
constexpr double widestBlur = 20;

std::size_t area(int stride, int rows)
{
    return static_cast<std::size_t>(stride) * static_cast<std::size_t>(rows);
}

bool has(std::uint64_t const* words, int block)
{
    return (words[block / 64] >> (static_cast<unsigned>(block) % 64U) & 1U) != 0;
}

void set(std::uint64_t* words, int block)
{
    words[block / 64] |= std::uint64_t{1} << (static_cast<unsigned>(block) % 64U);
}

} // namespace

void RippleRing::resize(int width, int height)
{
    m_raster.resize(width, height);
    m_rows = height;
    m_stride = m_raster.stride();
    m_words = m_raster.words();
    m_blocks = m_stride / blockSize;
    m_plane.resize(std::max(m_plane.size(), area(m_stride, m_rows)));
    m_marks.resize(std::max(m_marks.size(), area(m_words, m_rows)));
    m_line.resize(std::max(m_line.size(),
        static_cast<std::size_t>(m_stride) + std::size_t{2} * BlurKernel::maximumRadius
            + blockSize));
}

void RippleRing::draw(Contour const& contour, Placing const& placing, double deviation)
{
    double const blur = std::min(deviation, widestBlur);
    m_kernel.fit(blur * blur);
    m_raster.add(contour, placing, false);
    Placing inner = placing;
    inner.offset = -placing.offset;
    m_raster.add(contour, inner, true);
    for (int y = m_raster.firstRow(); y < m_raster.endRow(); ++y) {
        resolve(y);
        blurRow(y);
    }
}

void RippleRing::resolve(int y)
{
    float* const differences = m_raster.row(y);
    std::uint64_t* const touched = m_raster.touched(y);
    std::uint64_t* const marks = m_marks.data() + area(m_words, y);
    float* const line = m_line.data() + BlurKernel::maximumRadius;
    int const spread = (m_kernel.radius + blockSize - 1) / blockSize;
    float sum = 0;
    for (int block = 0; block < m_blocks; ++block) {
        float* const cells = differences + std::ptrdiff_t{block} * blockSize;
        Lanes coverage = splat(sum);
        bool const edge = has(touched, block);
        if (edge) {
            coverage = runningSum(load(cells)) + coverage;
            store(cells, splat(0));
            sum = last(coverage);
        }
        store(line + std::ptrdiff_t{block} * blockSize, min(magnitude(coverage), splat(1)));
        if (!edge && sum < 0.001F && sum > -0.001F)
            continue;
        int const end = std::min(block + spread + 1, m_blocks);
        for (int near = std::max(block - spread, 0); near < end; ++near)
            set(marks, near);
    }
    std::fill_n(touched, m_words, std::uint64_t{0});
}

void RippleRing::blurRow(int y)
{
    float const* const weights = m_kernel.weights.data();
    float const* const line = m_line.data() + BlurKernel::maximumRadius;
    std::uint64_t const* const marks = m_marks.data() + area(m_words, y);
    float* const out = m_plane.data() + area(m_stride, y);
    for (int block = 0; block < m_blocks; ++block) {
        if (!has(marks, block))
            continue;
        float const* const in = line + std::ptrdiff_t{block} * blockSize;
        Lanes sum = splat(weights[0]) * load(in);
        for (int i = 1; i <= m_kernel.radius; ++i)
            sum = sum + splat(weights[i]) * (load(in - i) + load(in + i));
        store(out + std::ptrdiff_t{block} * blockSize, sum);
    }
}

void RippleRing::mark(int y, std::uint64_t* touched) const
{
    int const end = std::min(y + m_kernel.radius + 1, m_rows);
    for (int row = std::max(y - m_kernel.radius, 0); row < end; ++row) {
        for (int word = 0; word < m_words; ++word)
            touched[word] |= m_marks[area(m_words, row) + static_cast<std::size_t>(word)];
    }
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
    for (int y = 0; y < m_rows; ++y) {
        std::uint64_t* const marks = m_marks.data() + area(m_words, y);
        float* const out = m_plane.data() + area(m_stride, y);
        for (int block = 0; block < m_blocks; ++block) {
            if (has(marks, block))
                store(out + std::ptrdiff_t{block} * blockSize, splat(0));
        }
        std::fill_n(marks, m_words, std::uint64_t{0});
    }
}

} // namespace velmora
