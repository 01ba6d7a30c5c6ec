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
    raster_.resize(width, height);
    rows_ = height;
    stride_ = raster_.stride();
    words_ = raster_.words();
    blocks_ = stride_ / blockSize;
    plane_.resize(std::max(plane_.size(), area(stride_, rows_)));
    marks_.resize(std::max(marks_.size(), area(words_, rows_)));
    line_.resize(std::max(line_.size(),
        static_cast<std::size_t>(stride_ + 2 * BlurKernel::maximumRadius + blockSize)));
}

void RippleRing::draw(Contour const& contour, Placing const& placing, double deviation)
{
    double const blur = std::min(deviation, widestBlur);
    kernel_.fit(blur * blur);
    raster_.add(contour, placing, false);
    Placing inner = placing;
    inner.offset = -placing.offset;
    raster_.add(contour, inner, true);
    for (int y = raster_.firstRow(); y < raster_.endRow(); ++y) {
        resolve(y);
        blurRow(y);
    }
}

void RippleRing::resolve(int y)
{
    float* const differences = raster_.row(y);
    std::uint64_t* const touched = raster_.touched(y);
    std::uint64_t* const marks = marks_.data() + area(words_, y);
    float* const line = line_.data() + BlurKernel::maximumRadius;
    int const spread = (kernel_.radius + blockSize - 1) / blockSize;
    float sum = 0;
    for (int block = 0; block < blocks_; ++block) {
        float* const cells = differences + block * blockSize;
        Lanes coverage = splat(sum);
        bool const edge = has(touched, block);
        if (edge) {
            coverage = runningSum(load(cells)) + coverage;
            store(cells, splat(0));
            sum = last(coverage);
        }
        store(line + block * blockSize, min(magnitude(coverage), splat(1)));
        if (!edge && sum < 0.001F && sum > -0.001F)
            continue;
        int const end = std::min(block + spread + 1, blocks_);
        for (int near = std::max(block - spread, 0); near < end; ++near)
            set(marks, near);
    }
    std::fill_n(touched, words_, std::uint64_t{0});
}

void RippleRing::blurRow(int y)
{
    float const* const line = line_.data() + BlurKernel::maximumRadius;
    std::uint64_t const* const marks = marks_.data() + area(words_, y);
    float* const out = plane_.data() + area(stride_, y);
    for (int block = 0; block < blocks_; ++block) {
        if (!has(marks, block))
            continue;
        float const* const in = line + block * blockSize;
        Lanes sum = splat(kernel_.weights[0]) * load(in);
        for (int i = 1; i <= kernel_.radius; ++i)
            sum = sum + splat(kernel_.weights[i]) * (load(in - i) + load(in + i));
        store(out + block * blockSize, sum);
    }
}

void RippleRing::mark(int y, std::uint64_t* touched) const
{
    int const end = std::min(y + kernel_.radius + 1, rows_);
    for (int row = std::max(y - kernel_.radius, 0); row < end; ++row) {
        for (int word = 0; word < words_; ++word)
            touched[word] |= marks_[area(words_, row) + static_cast<std::size_t>(word)];
    }
}

Lanes RippleRing::coverage(int y, int x) const
{
    Lanes sum = splat(0);
    int const end = std::min(y + kernel_.radius + 1, rows_);
    for (int row = std::max(y - kernel_.radius, 0); row < end; ++row) {
        float const* const in = plane_.data() + area(stride_, row) + x;
        sum = sum + splat(kernel_.weights[row < y ? y - row : row - y]) * load(in);
    }
    return sum;
}

void RippleRing::clear()
{
    for (int y = 0; y < rows_; ++y) {
        std::uint64_t* const marks = marks_.data() + area(words_, y);
        float* const out = plane_.data() + area(stride_, y);
        for (int block = 0; block < blocks_; ++block) {
            if (has(marks, block))
                store(out + block * blockSize, splat(0));
        }
        std::fill_n(marks, words_, std::uint64_t{0});
    }
}

} // namespace velmora
