#include "Velmora/orb/RowPainter.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace velmora {
namespace {

constexpr int blockSize = AreaRaster::blockSize;
constexpr float levelSteps = 128;
/// A run of a cell is written in whole blocks, which may overshoot the cell and the row.
constexpr int overshoot = 40;
constexpr float nothing = 1.0F / 1024;

template <typename Buffer>
void grow(Buffer& buffer, int size)
{
    if (buffer.size() < static_cast<std::size_t>(size))
        buffer.resize(static_cast<std::size_t>(size));
}

/// What a stop adds to the one before it, over half of the gradient.
LevelColor slope(LevelColor const& from, LevelColor const& to)
{
    return {.red = 2 * (to.red - from.red),
        .green = 2 * (to.green - from.green),
        .blue = 2 * (to.blue - from.blue)};
}

/// `top` over `bottom`, with `coverage` of `top`.
Lanes over(Lanes bottom, Lanes top, Lanes coverage)
{
    return bottom + coverage * (top - bottom);
}

} // namespace

void RowPainter::begin(CellGrid const& grid, int width, Paint const& paint, SoftPlane const& glow,
    SoftPlane const& shadow, SoftPlane const& highlight)
{
    grid_ = grid;
    paint_ = paint;
    width_ = width;
    gradientPerPixel_ = 1 / paint.gradientRadius;
    paint_.stops[1] = slope(paint.stops[0], paint.stops[1]);
    paint_.stops[2] = slope(paint.stops[1], paint.stops[2]);
    grow(fields_, grid.stride * grid.rows * 4);
    grow(backdrop_, grid.stride * grid.rows * 4);
    grow(fieldRow_, grid.stride * 4 + 4);
    grow(backdropRow_, grid.stride * 4 + 4);
    grow(highlightRow_, width + 2 * overshoot);
    grow(cellOf_, width + blockSize);
    grow(shareOf_, width + blockSize);
    grow(touched_, (width + leftPad) / blockSize / 64 + 2);
    grow(pixels_, width + 2 * overshoot);
    placeColumns(width);
    for (int row = 0; row < grid.rows; ++row)
        combine(row, glow, shadow, highlight);
}

void RowPainter::placeColumns(int width)
{
    float const perPixel = 1 / static_cast<float>(grid_.cell);
    int cell = grid_.margin - 1;
    int next = grid_.firstPixel(grid_.margin);
    for (int x = 0; x < width + blockSize; ++x) {
        if (x >= next) {
            ++cell;
            next += grid_.cell;
        }
        auto const offset = static_cast<float>(x - grid_.firstPixel(cell)) + grid_.firstOffset();
        cellOf_[static_cast<std::size_t>(x)] = cell;
        shareOf_[static_cast<std::size_t>(x)] = offset * perPixel;
    }
}

void RowPainter::combine(
    int row, SoftPlane const& glow, SoftPlane const& shadow, SoftPlane const& highlight)
{
    Lanes const steps = splat(levelSteps);
    Lanes const full = splat(paint_.full);
    // Steps are rounded, so a colour could creep past its alpha; this keeps alpha ahead.
    Lanes const half = splat(levelSteps / 2);
    Lanes const halfAhead = splat(levelSteps / 2 + 2 + static_cast<float>(grid_.cell));
    auto const at = static_cast<std::size_t>(row) * static_cast<std::size_t>(grid_.stride) * 4;
    for (int x = 0; x < grid_.stride; x += 4) {
        Lanes g = splat(paint_.glowOpacity) * load(glow.row(row) + x);
        Lanes s = splat(paint_.shadowOpacity) * load(shadow.row(row) + x);
        Lanes h = splat(paint_.highlightOpacity) * load(highlight.row(row) + x);
        Lanes const lit = g - g * s;
        Lanes red = over(splat(paint_.glow.red) * lit, splat(paint_.highlight.red), h);
        Lanes green = over(splat(paint_.glow.green) * lit, splat(paint_.highlight.green), h);
        Lanes blue = over(splat(paint_.glow.blue) * lit, splat(paint_.highlight.blue), h);
        Lanes alpha = over(full * (lit + s), full, h);
        alpha = alpha * steps + halfAhead;
        red = red * steps + half;
        green = green * steps + half;
        blue = blue * steps + half;
        float* const fields = fields_.data() + at + static_cast<std::size_t>(x) * 4;
        float* const backdrop = backdrop_.data() + at + static_cast<std::size_t>(x) * 4;
        Lanes none = splat(0);
        transpose(g, s, h, none);
        store(fields, g);
        store(fields + 4, s);
        store(fields + 8, h);
        store(fields + 12, none);
        if constexpr (std::endian::native == std::endian::little) {
            std::swap(blue, alpha);
            std::swap(green, red);
        }
        transpose(alpha, red, green, blue);
        store(backdrop, alpha);
        store(backdrop + 4, red);
        store(backdrop + 8, green);
        store(backdrop + 12, blue);
    }
}

void RowPainter::interpolateRow(int y, bool withFields)
{
    int const shifted = y - grid_.cell / 2 + grid_.margin * grid_.cell;
    int const row = shifted / grid_.cell;
    float const offset = static_cast<float>(shifted % grid_.cell) + grid_.firstOffset();
    Lanes const share = splat(offset / static_cast<float>(grid_.cell));
    std::size_t const length = static_cast<std::size_t>(grid_.stride) * 4;
    std::size_t const at = static_cast<std::size_t>(row) * length;
    auto const mix = [&](std::vector<float> const& grid, std::vector<float>& out) {
        float const* const above = grid.data() + at;
        float const* const below = above + length;
        for (int i = 0; i < grid_.columns * 4; i += 4)
            store(out.data() + i, over(load(above + i), load(below + i), share));
    };
    mix(backdrop_, backdropRow_);
    // Above and below the orb the composed cells are all that a row needs.
    if (withFields)
        mix(fields_, fieldRow_);
}

std::uint32_t const* RowPainter::paintRow(
    int y, AreaRaster& body, AreaRaster& rim, RippleRing const* ring)
{
    float const down = (static_cast<float>(y) + 0.5F - paint_.gradientY) * gradientPerPixel_;
    gradientY2_ = down * down;
    int const words = body.words();
    for (int i = 0; i < words; ++i)
        touched_[static_cast<std::size_t>(i)] = body.touched(y)[i] | rim.touched(y)[i];
    if (ring != nullptr)
        ring->mark(y, touched_.data());
    std::fill_n(body.touched(y), words, std::uint64_t{0});
    std::fill_n(rim.touched(y), words, std::uint64_t{0});
    interpolateRow(y, nextTouched(0, body.stride() / blockSize) < body.stride() / blockSize);
    Edges const edges = {.body = body.row(y), .rim = rim.row(y), .ring = ring, .y = y};
    bodyBefore_ = 0;
    rimBefore_ = 0;
    int const blocks = body.stride() / blockSize;
    int const painted = blocks - 1;
    int block = 0;
    int next = nextTouched(0, painted);
    while (block < blocks) {
        // The pads on either side only add up; within a wide rim no edge need pass.
        if (block == 0 || block >= next || std::fabs(rimBefore_) > nothing) {
            paintEdges(block, edges);
            ++block;
            if (block > next)
                next = nextTouched(block, painted);
            continue;
        }
        int const end = next;
        int const from = (block - 1) * blockSize;
        if (std::fabs(bodyBefore_) > 0.5F)
            paintInside(from, (end - 1) * blockSize);
        else
            paintBackdrop(from, (end - 1) * blockSize);
        block = end;
    }
    return pixels_.data() + overshoot;
}

int RowPainter::nextTouched(int block, int limit) const
{
    while (block < limit) {
        auto const shift = static_cast<unsigned>(block) % 64U;
        std::uint64_t const rest = touched_[static_cast<std::size_t>(block / 64)] >> shift;
        if (rest != 0)
            return std::min(block + std::countr_zero(rest), limit);
        block = (block / 64 + 1) * 64;
    }
    return limit;
}

void RowPainter::paintBackdrop(int from, int end)
{
    Lanes const perPixel = splat(1 / static_cast<float>(grid_.cell));
    std::uint32_t* const out = pixels_.data() + overshoot;
    int x = from;
    int cell = cellOf_[static_cast<std::size_t>(from)];
    int cellEnd = grid_.firstPixel(cell + 1);
    float offset = static_cast<float>(x - grid_.firstPixel(cell)) + grid_.firstOffset();
    while (x < end) {
        float const* const channels = backdropRow_.data() + static_cast<std::size_t>(cell) * 4;
        Lanes const start = load(channels);
        Lanes const step = (load(channels + 4) - start) * perPixel;
        Lanes const value = start + step * splat(offset);
        PixelPair first = pixelPair(value, value + step);
        Lanes const two = step + step;
        PixelPair const twoSteps = pixelPair(two, two);
        PixelPair second = first + twoSteps;
        PixelPair const fourSteps = twoSteps + twoSteps;
        int const stop = std::min(cellEnd, end);
        storePixels(out + x, first, second);
        for (int at = x + 4; at < stop; at += 4) {
            first = first + fourSteps;
            second = second + fourSteps;
            storePixels(out + at, first, second);
        }
        x = stop;
        ++cell;
        cellEnd += grid_.cell;
        offset = grid_.firstOffset();
    }
}

void RowPainter::expandHighlight(int from, int end)
{
    float const perPixel = 1 / static_cast<float>(grid_.cell);
    float* const out = highlightRow_.data() + overshoot;
    Lanes const ramp = lanes(0, 1, 2, 3);
    int cell = cellOf_[static_cast<std::size_t>(from)];
    for (int x = grid_.firstPixel(cell); x < end; x += grid_.cell, ++cell) {
        float const* const field = fieldRow_.data() + static_cast<std::size_t>(cell) * 4 + 2;
        float const step = (field[4] - field[0]) * perPixel;
        Lanes value = splat(field[0] + step * grid_.firstOffset()) + splat(step) * ramp;
        Lanes const four = splat(4 * step);
        int const stop = std::min(x + grid_.cell, end);
        for (int at = x; at < stop; at += 4) {
            store(out + at, value);
            value = value + four;
        }
    }
}

Lanes RowPainter::gradientPosition(int x) const
{
    Lanes const across
        = (splat(static_cast<float>(x) + 0.5F - paint_.gradientX) + lanes(0, 1, 2, 3))
        * splat(gradientPerPixel_);
    return min(squareRoot(across * across + splat(gradientY2_)), splat(1));
}

namespace {

/// The gradient's channels at a place, as the first stop plus two slopes.
struct Channel {
    Lanes first;
    Lanes toSecond;
    Lanes toThird;

    Channel(float a, float b, float c)
        : first(splat(a))
        , toSecond(splat(b))
        , toThird(splat(c))
    {
    }

    [[nodiscard]] Lanes at(Lanes near, Lanes far) const
    {
        return first + toSecond * near + toThird * far;
    }
};

struct Gradient {
    Channel red;
    Channel green;
    Channel blue;

    explicit Gradient(std::array<LevelColor, 3> const& stops)
        : red(stops[0].red, stops[1].red, stops[2].red)
        , green(stops[0].green, stops[1].green, stops[2].green)
        , blue(stops[0].blue, stops[1].blue, stops[2].blue)
    {
    }
};

} // namespace

void RowPainter::paintInside(int from, int end)
{
    expandHighlight(from, end);
    Gradient const gradient(paint_.stops);
    Lanes const half = splat(0.5F);
    Lanes const full = splat(paint_.full);
    Lanes const red = splat(paint_.highlight.red);
    Lanes const green = splat(paint_.highlight.green);
    Lanes const blue = splat(paint_.highlight.blue);
    std::uint32_t* const out = pixels_.data() + overshoot;
    float const* const highlight = highlightRow_.data() + overshoot;
    for (int x = from; x < end; x += 4) {
        Lanes const t = gradientPosition(x);
        Lanes const near = min(t, half);
        Lanes const far = t - near;
        Lanes const h = load(highlight + x);
        storePixels(out + x, full, over(gradient.red.at(near, far), red, h),
            over(gradient.green.at(near, far), green, h),
            over(gradient.blue.at(near, far), blue, h));
    }
}

void RowPainter::paintEdges(int block, Edges const& edges)
{
    int const column = block * blockSize;
    Lanes const zero = splat(0);
    Lanes const one = splat(1);
    Lanes const bodySum = runningSum(load(edges.body + column)) + splat(bodyBefore_);
    Lanes const rimSum = runningSum(load(edges.rim + column)) + splat(rimBefore_);
    store(edges.body + column, zero);
    store(edges.rim + column, zero);
    bodyBefore_ = last(bodySum);
    rimBefore_ = last(rimSum);
    int const x = column - leftPad;
    if (x < 0 || x >= width_)
        return;
    Lanes field[4];
    for (int i = 0; i < 4; ++i) {
        auto const at = static_cast<std::size_t>(x + i);
        float const* const cell = fieldRow_.data() + static_cast<std::size_t>(cellOf_[at]) * 4;
        field[i] = over(load(cell), load(cell + 4), splat(shareOf_[at]));
    }
    transpose(field[0], field[1], field[2], field[3]);
    Lanes const g = field[0];
    Lanes const s = field[1];
    Lanes const h = field[2];
    Lanes const b = min(magnitude(bodySum), one);
    Lanes const m = min(magnitude(rimSum), one) * splat(paint_.rimOpacity);
    Lanes const r = edges.ring != nullptr
        ? edges.ring->coverage(edges.y, column) * splat(paint_.ringOpacity)
        : zero;
    Lanes const t = gradientPosition(x);
    Lanes const near = min(t, splat(0.5F));
    Lanes const far = t - near;
    auto const composed
        = [&](float glow, float ring, Lanes shadow, Lanes body, float rim, float light) {
              Lanes const soft = over(splat(glow) * g, splat(ring), r);
              Lanes const filled = over(over(soft, shadow, s), body, b);
              return over(over(filled, splat(rim), m), splat(light), h);
          };
    Gradient const gradient(paint_.stops);
    Paint const& p = paint_;
    Lanes const full = splat(p.full);
    storePixels(pixels_.data() + overshoot + x,
        composed(p.full, p.full, full, full, p.full, p.full),
        composed(
            p.glow.red, p.ring.red, zero, gradient.red.at(near, far), p.rim.red, p.highlight.red),
        composed(p.glow.green, p.ring.green, zero, gradient.green.at(near, far), p.rim.green,
            p.highlight.green),
        composed(p.glow.blue, p.ring.blue, zero, gradient.blue.at(near, far), p.rim.blue,
            p.highlight.blue));
}

} // namespace velmora
