#include "Velmora/orb/RowPainter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velmora {
namespace {

constexpr int blockSize = AreaRaster::blockSize;
/// Runs are written in whole blocks, which may overshoot the row.
constexpr int overshoot = Backdrop::overshoot;
constexpr float nothing = 1.0F / 1024;

template <typename Buffer>
void grow(Buffer& buffer, int size)
{
    if (buffer.size() < static_cast<std::size_t>(size))
        buffer.resize(static_cast<std::size_t>(size));
}

/// `top` over `bottom`, with `coverage` of `top`.
Lanes over(Lanes bottom, Lanes top, Lanes coverage)
{
    return bottom + coverage * (top - bottom);
}

} // namespace

RowPainter::Channel::Channel(float a, float b, float c)
    : first(splat(a))
    // A stop's distance from the one before it is half of the gradient.
    , toSecond(splat(2 * (b - a)))
    , toThird(splat(2 * (c - b)))
{
}

void RowPainter::begin(SoftGrids const& grids, int width, Paint const& paint, SoftPlane const& glow,
    SoftPlane const& shadow, SoftPlane const& highlight)
{
    m_paint = paint;
    m_width = width;
    m_gradientPerPixel = 1 / paint.gradientRadius;
    auto const& stops = paint.stops;
    m_red = {stops[0].red, stops[1].red, stops[2].red};
    m_green = {stops[0].green, stops[1].green, stops[2].green};
    m_blue = {stops[0].blue, stops[1].blue, stops[2].blue};
    grow(m_gradientX2, width + 2 * blockSize);
    grow(m_pixels, width + 2 * overshoot);
    Lanes const perPixel = splat(m_gradientPerPixel);
    for (int x = 0; x < width; x += blockSize) {
        float const start = static_cast<float>(x) + 0.5F - paint.gradientX;
        Lanes const across = (splat(start) + lanes(0, 1, 2, 3)) * perPixel;
        store(m_gradientX2.data() + x, across * across);
    }
    m_backdrop.compose(
        grids.back, glow, paint.glowOpacity, paint.glow, shadow, paint.shadowOpacity, paint.full);
    m_highlight.begin(grids.light, highlight, paint.highlightOpacity, width);
    m_shadow.begin(grids.back, shadow, paint.shadowOpacity, width);
}

std::uint32_t const* RowPainter::paintRow(
    int y, AreaRaster& body, AreaRaster& rim, BlockMap& touched, RippleRing const* ring)
{
    float const down = (static_cast<float>(y) + 0.5F - m_paint.gradientY) * m_gradientPerPixel;
    m_gradientY2 = down * down;
    if (ring != nullptr)
        ring->mark(y, touched);
    m_backdrop.beginRow(y, m_width);
    m_highlight.beginRow(y);
    if (m_highlight.from() < m_highlight.end())
        m_highlight.stretch(m_highlight.from(), std::min(m_highlight.end(), m_width));
    if (ring != nullptr)
        m_shadow.beginRow(y);
    Edges edges = {.body = body.row(y), .rim = rim.row(y), .ring = ring, .y = y};
    // Behind the picture's blocks lies one that only takes what the last edges leave.
    int const blocks = body.blocks() - 1;
    std::uint8_t const* const marks = touched.row(y);
    for (int block = 0; block < blocks;) {
        int const edge = touched.next(y, block, blocks);
        paintSpan(block * blockSize, edge * blockSize, edges);
        block = edge;
        while (block < blocks && marks[block] != 0)
            ++block;
        paintEdges(edge * blockSize, block * blockSize, edges);
    }
    store(edges.body + std::ptrdiff_t{blocks} * blockSize, splat(0));
    store(edges.rim + std::ptrdiff_t{blocks} * blockSize, splat(0));
    touched.clearRow(y);
    return m_pixels.data() + overshoot;
}

/// Paints pixels that no edge touches.
void RowPainter::paintSpan(int from, int end, Edges& edges)
{
    int const litFrom = std::clamp(m_highlight.from(), from, std::max(from, end));
    int const litEnd = std::clamp(m_highlight.end(), litFrom, std::max(litFrom, end));
    // Within a wide rim no edge need pass.
    if (std::fabs(edges.rimBefore) > nothing) {
        paintEdges(from, end, edges);
    } else if (std::fabs(edges.bodyBefore) > 0.5F) {
        paintInside<false>(from, litFrom);
        paintInside<true>(litFrom, litEnd);
        paintInside<false>(litEnd, end);
    } else {
        m_backdrop.paint(m_pixels.data() + overshoot, from, litFrom);
        paintEdges(litFrom, litEnd, edges);
        m_backdrop.paint(m_pixels.data() + overshoot, litEnd, end);
    }
}

inline Lanes RowPainter::gradientPosition(int x) const
{
    return min(squareRoot(load(m_gradientX2.data() + x) + splat(m_gradientY2)), splat(1));
}

template <bool lit>
void RowPainter::paintInside(int from, int end)
{
    Lanes const half = splat(0.5F);
    Lanes const full = splat(m_paint.full);
    std::array<Lanes, 3> const light = {splat(m_paint.highlight.red),
        splat(m_paint.highlight.green), splat(m_paint.highlight.blue)};
    std::uint32_t* const out = m_pixels.data() + overshoot;
    for (int x = from; x < end; x += blockSize) {
        Lanes const t = gradientPosition(x);
        Lanes const near = min(t, half);
        Lanes const far = t - near;
        Lanes red = m_red.at(near, far);
        Lanes green = m_green.at(near, far);
        Lanes blue = m_blue.at(near, far);
        if constexpr (lit) {
            Lanes const h = m_highlight.coverage(x);
            red = over(red, light[0], h);
            green = over(green, light[1], h);
            blue = over(blue, light[2], h);
        }
        storePixels(out + x, full, red, green, blue);
    }
}

/// Paints pixels layer by layer.
void RowPainter::paintEdges(int from, int end, Edges& edges)
{
    if (from >= end)
        return;
    m_backdrop.widen(from, std::min(end, m_width));
    if (edges.ring != nullptr) {
        m_shadow.stretch(from, std::min(end, m_width));
        for (int x = from; x < end; x += blockSize)
            paintEdgeBlock<true>(x, edges);
    } else {
        for (int x = from; x < end; x += blockSize)
            paintEdgeBlock<false>(x, edges);
    }
}

template <bool ringed>
void RowPainter::paintEdgeBlock(int x, Edges& edges)
{
    Lanes const one = splat(1);
    Lanes const bodySum = runningSum(load(edges.body + x)) + splat(edges.bodyBefore);
    Lanes const rimSum = runningSum(load(edges.rim + x)) + splat(edges.rimBefore);
    store(edges.body + x, splat(0));
    store(edges.rim + x, splat(0));
    edges.bodyBefore = last(bodySum);
    edges.rimBefore = last(rimSum);
    Lanes const body = min(magnitude(bodySum), one);
    Lanes rim = min(magnitude(rimSum), one) * splat(m_paint.rimOpacity);
    bool const lit = x >= m_highlight.from() && x < m_highlight.end();
    Lanes const light = lit ? m_highlight.coverage(x) : splat(0);
    // What each layer contributes, seen through all above it.
    Lanes through = one - light;
    rim = rim * through;
    through = through - rim;
    Lanes const filled = body * through;
    through = through - filled;
    Lanes ring = splat(0);
    Lanes ringColor = splat(0);
    if constexpr (ringed) {
        ring = edges.ring->coverage(edges.y, x) * splat(m_paint.ringOpacity) * through;
        ringColor = ring - ring * m_shadow.coverage(x);
        through = through - ring;
    }
    Lanes const behind = through * splat(1 / Backdrop::levelSteps);
    Lanes const t = gradientPosition(x);
    Lanes const near = min(t, splat(0.5F));
    Lanes const far = t - near;
    ChannelLanes const back = m_backdrop.channels(x);
    auto const sum
        = [&](Lanes soft, Lanes inside, float rimLevel, float lightLevel, float ringLevel) {
              Lanes value = soft * behind + inside * filled + splat(rimLevel) * rim;
              if (lit)
                  value = value + splat(lightLevel) * light;
              if constexpr (ringed)
                  value = value + splat(ringLevel) * ringColor;
              return value;
          };
    Paint const& p = m_paint;
    storePixels(m_pixels.data() + overshoot + x,
        back.alpha * behind + splat(p.full) * (filled + rim + light + ring),
        sum(back.red, m_red.at(near, far), p.rim.red, p.highlight.red, p.ring.red),
        sum(back.green, m_green.at(near, far), p.rim.green, p.highlight.green, p.ring.green),
        sum(back.blue, m_blue.at(near, far), p.rim.blue, p.highlight.blue, p.ring.blue));
}

} // namespace velmora
