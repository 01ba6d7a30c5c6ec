#include "Velmora/orb/RowPainter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velmora {
namespace {

constexpr int blockSize = AreaRaster::blockSize;
constexpr float nothing = 1.0F / 1024;
/// Every layer comes in these steps a level, and a weight halves them.
constexpr float levelSteps = 1 << Backdrop::levelBits;
constexpr int mixedBits = Backdrop::levelBits - 1;

/// Adds a layer of each pixel's own weight, in 1/32767.
void mix(FourPixels& sum, FourPixels layer, Lanes weight)
{
    FourPixels const weights = inEachChannel(weight);
    sum.first = sum.first + highProduct(layer.first, weights.first);
    sum.second = sum.second + highProduct(layer.second, weights.second);
}

void mix(FourPixels& sum, Numbers color, Lanes weight)
{
    mix(sum, {.first = color, .second = color}, weight);
}

/// A level in steps, rounded down, so that no colour is ever lifted above its alpha.
Numbers lifted(float level)
{
    return splatNumber(static_cast<std::int16_t>(std::floor(level * levelSteps) + levelSteps / 2));
}

/// One colour in each of two pixels, lifted by half a level.
Numbers flat(LevelColor const& levels, float full)
{
    return pixels(lifted(full), lifted(levels.red), lifted(levels.green), lifted(levels.blue))
        .first;
}

} // namespace

void RowPainter::begin(SoftGrids const& grids, int width, Paint const& paint, SoftPlane const& glow,
    SoftPlane const& shadow, SoftPlane const& highlight)
{
    m_rimOpacity = paint.rimOpacity;
    m_ringOpacity = paint.ringOpacity;
    m_rim = flat(paint.rim, paint.full);
    m_light = flat(paint.highlight, paint.full);
    m_ring = flat(paint.ring, paint.full);
    m_dark = flat(paint.shadow, paint.full);
    m_gradient.begin(paint, width);
    m_backdrop.compose(grids.back, paint, glow, shadow, width);
    m_highlight.begin(grids.light, highlight, paint.highlightOpacity, width);
    m_shadow.begin(grids.back, shadow, paint.shadowOpacity, width);
}

void RowPainter::paintRow(std::uint32_t* row, int y, EdgeRasters& rasters, RippleRing* ring)
{
    m_gradient.beginRow(y);
    m_backdrop.beginRow(y);
    m_highlight.beginRow(y);
    if (ring != nullptr) {
        ring->beginRow(y);
        m_shadow.beginRow(y);
    }
    Edges edges = {.body = rasters.body.row(y), .rim = rasters.rim.row(y), .ring = ring};
    edges.pixels = row;
    // Behind the picture's blocks lies one that only takes what the last edges leave.
    int const blocks = rasters.body.blocks() - 1;
    std::uint8_t const* const marks = rasters.touched.row(y);
    for (int block = 0; block < blocks;) {
        int const edge = rasters.touched.next(y, block, blocks);
        paintSpan(block * blockSize, edge * blockSize, edges);
        block = edge;
        while (block < blocks && marks[block] != 0)
            ++block;
        paintEdges(edge * blockSize, block * blockSize, edges);
    }
    if (marks[blocks] != 0) {
        store(edges.body + std::ptrdiff_t{blocks} * blockSize, splat(0));
        store(edges.rim + std::ptrdiff_t{blocks} * blockSize, splat(0));
    }
    rasters.touched.clearRow(y);
}

/// Paints pixels that no edge touches.
void RowPainter::paintSpan(int from, int end, Edges& edges)
{
    int const litFrom = std::clamp(m_highlight.from(), from, end);
    int const litEnd = std::clamp(m_highlight.end(), litFrom, end);
    // Within a wide rim no edge need pass.
    if (std::fabs(edges.rimBefore) > nothing) {
        paintEdges(from, end, edges);
    } else if (std::fabs(edges.bodyBefore) > 0.5F) {
        m_gradient.paint(edges.pixels, from, litFrom);
        m_gradient.paintLit(edges.pixels, litFrom, litEnd, m_highlight);
        m_gradient.paint(edges.pixels, litEnd, end);
    } else {
        paintOutside(from, litFrom, edges);
        paintEdges(litFrom, litEnd, edges);
        paintOutside(litEnd, end, edges);
    }
}

/// Paints pixels beyond the body and the highlight.
void RowPainter::paintOutside(int from, int end, Edges& edges)
{
    int x = from;
    while (edges.ring != nullptr && x < end) {
        int const next = edges.ring->nextBlock(x / blockSize, end / blockSize) * blockSize;
        m_backdrop.paint(edges.pixels, x, next);
        for (x = next; x < end && edges.ring->shows(x / blockSize); x += blockSize)
            paintRing(x, edges);
    }
    m_backdrop.paint(edges.pixels, x, end);
}

/// Paints pixels layer by layer.
void RowPainter::paintEdges(int from, int end, Edges& edges)
{
    for (int x = from; x < end; x += blockSize) {
        if (edges.ring != nullptr && edges.ring->shows(x / blockSize))
            paintEdgeBlock<true>(x, edges);
        else
            paintEdgeBlock<false>(x, edges);
    }
}

/// Adds the ring under the shadow, seen through what is above it; what is below is seen through
/// the result.
inline Lanes RowPainter::mixRing(
    FourPixels& sum, Lanes through, int x, RippleRing const& ring) const
{
    Lanes const weight = ring.coverage(x) * splat(m_ringOpacity) * through;
    Lanes shaded = splat(0);
    if (x >= m_shadow.from() && x < m_shadow.end())
        shaded = weight * firstLanes(m_shadow.coverage(x)) * splat(1 / CellRow::whole);
    mix(sum, m_ring, weight - shaded);
    mix(sum, m_dark, shaded);
    return through - weight;
}

/// Paints a block of the ring where nothing but the soft layers is near.
void RowPainter::paintRing(int x, Edges const& edges)
{
    FourPixels sum = {};
    Lanes const through = mixRing(sum, splat(CellRow::whole), x, *edges.ring);
    mix(sum, m_backdrop.channels(x), through);
    storePixels<mixedBits>(edges.pixels + x, sum);
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
    // What each layer weighs, seen through all above it.
    Lanes through = splat(CellRow::whole);
    FourPixels sum = {};
    if (x >= m_highlight.from() && x < m_highlight.end()) {
        Lanes const light = firstLanes(m_highlight.coverage(x));
        mix(sum, m_light, light);
        through = through - light;
    }
    Lanes const rim = min(magnitude(rimSum), one) * splat(m_rimOpacity) * through;
    through = through - rim;
    mix(sum, m_rim, rim);
    Lanes const filled = min(magnitude(bodySum), one) * through;
    through = through - filled;
    BodyGradient::Colors const inside = m_gradient.colors(x);
    mix(sum,
        pixels(splatNumber(static_cast<std::int16_t>(m_gradient.alpha() * 4)),
            timesFour(inside.red), timesFour(inside.green), timesFour(inside.blue)),
        filled);
    if constexpr (ringed)
        through = mixRing(sum, through, x, *edges.ring);
    mix(sum, m_backdrop.channels(x), through);
    storePixels<mixedBits>(edges.pixels + x, sum);
}

} // namespace velmora
