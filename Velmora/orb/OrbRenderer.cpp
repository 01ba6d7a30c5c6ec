#include "Velmora/orb/OrbRenderer.h"

#include "Velmora/orb/FramePaint.h"
#include "Velmora/orb/RowPainter.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

namespace velmora {
namespace {

/// The outline bends, so that two sizes of it come a little closer than their tangents.
constexpr double straightShare = 0.8;
/// How large a sharp square would need as close an outline as a layer without sharp edges.
constexpr double softDetail = 1.0 / 12;

} // namespace

struct OrbRenderer::Scratch {
    BlobOutline bodyOutline;
    Contour glowContour;
    Contour bodyContour;
    Contour shadowContour;
    Contour otherContour;
    Contour highlightContour;
    SoftPlane glow;
    SoftPlane shadow;
    SoftPlane highlight;
    EdgeRasters edges;
    RippleRing ring;
    RowPainter painter;
    std::vector<std::uint32_t> pixelRow;

    SoftGrids drawSoftLayers(OrbFrame const& frame, PixelTarget const& target);
    void drawEdges(OrbFrame const& frame, PixelTarget const& target);
    void paintRows(PixelTarget const& target, RippleRing* shown);
    /// Whether there is anything to be seen of it.
    bool drawRing(RippleLayer const& ripple, OrbFrame const& frame, PixelTarget const& target);
    Contour const& contour(double phase, OrbFrame const& frame, PixelTarget const& target);
};

namespace {

/// A layer about the middle of the target.
Placing placing(PixelTarget const& target, double scale, double lineWidth = 0)
{
    return {.centerX = static_cast<float>(target.width) / 2,
        .centerY = static_cast<float>(target.height) / 2,
        .scale = static_cast<float>(scale),
        .offset = static_cast<float>(lineWidth / 2)};
}

Placing moved(Placing placing, double dx, double dy)
{
    placing.centerX += static_cast<float>(dx);
    placing.centerY += static_cast<float>(dy);
    return placing;
}

} // namespace

SoftGrids OrbRenderer::Scratch::drawSoftLayers(OrbFrame const& frame, PixelTarget const& target)
{
    double const side = frame.size * target.scale;
    ShadowEffect const& dark = frame.body.shadow;
    HighlightLayer const& light = frame.highlight;
    glowContour.fit(Contour::outline(frame.glow.phase), side * softDetail);
    shadowContour.fit(bodyOutline, side * softDetail);
    highlightContour.fit(Contour::outline(light.phase),
        side * std::clamp(std::fabs(light.scale), 0.0, 1.0) * softDetail);
    double const edge = std::min(target.width, target.height) / 2.0;
    double const shift = std::max(std::fabs(dark.dx), std::fabs(dark.dy)) * target.scale;
    double const reach = std::max(glowContour.reach() * std::fabs(frame.glow.scale) * side,
        bodyContour.reach() * std::fabs(frame.body.scale) * side + shift);
    // Large squares can afford finer cells: they cost little beside the pixels themselves. The
    // highlight's blur is the narrowest.
    SoftGrids const grids = {.back = CellGrid::covering(target.width, target.height,
                                 side / (side < 240 ? 16 : 32), std::max(reach - edge, 0.0)),
        .light = CellGrid::covering(target.width, target.height, side / (side < 240 ? 21 : 32),
            std::max(reach - edge, 0.0))};
    glow.draw(grids.back, glowContour, placing(target, frame.glow.scale * side),
        frame.glow.blur * std::fabs(frame.glow.scale) * target.scale);
    shadow.draw(grids.back, shadowContour,
        moved(placing(target, frame.body.scale * side), dark.dx * target.scale,
            dark.dy * target.scale),
        dark.radius * target.scale);
    highlight.draw(grids.light, highlightContour,
        moved(
            placing(target, light.scale * side), light.dx * target.scale, light.dy * target.scale),
        light.blur * target.scale);
    return grids;
}

Contour const& OrbRenderer::Scratch::contour(
    double phase, OrbFrame const& frame, PixelTarget const& target)
{
    if (phase == frame.body.phase)
        return bodyContour;
    otherContour.fit(Contour::outline(phase), frame.size * target.scale);
    return otherContour;
}

void OrbRenderer::Scratch::drawEdges(OrbFrame const& frame, PixelTarget const& target)
{
    double const side = frame.size * target.scale;
    edges.body.resize(target.width, target.height);
    edges.rim.resize(target.width, target.height);
    edges.touched.resize(edges.body.blocks(), target.height);
    edges.body.add(bodyContour, placing(target, frame.body.scale * side), false, edges.touched);
    double const line = frame.rim.lineWidth * frame.rim.scale * target.scale;
    Contour const& outline = contour(frame.rim.phase, frame, target);
    Placing const outer = placing(target, frame.rim.scale * side, line);
    Placing const inner = placing(target, frame.rim.scale * side, -line);
    edges.rim.add(outline, outer, false, edges.touched);
    edges.rim.add(outline, inner, true, edges.touched);
}

bool OrbRenderer::Scratch::drawRing(
    RippleLayer const& ripple, OrbFrame const& frame, PixelTarget const& target)
{
    double const line = ripple.lineWidth * ripple.scale * target.scale;
    double const blur = ripple.blur * target.scale;
    double const side = frame.size * target.scale;
    // In a breath the body swells ahead of the ring, whose outline it shares: most of the time it
    // hides all of it.
    double const ahead = bodyContour.support() * (frame.body.scale - ripple.scale) * side;
    bool const hidden = ripple.phase == frame.body.phase && ripple.scale > 0
        && ahead * straightShare > std::fabs(line) / 2 + RippleRing::reach(blur);
    if (hidden)
        return false;
    ring.draw(
        contour(ripple.phase, frame, target), placing(target, ripple.scale * side, line), blur);
    return true;
}

void OrbRenderer::Scratch::paintRows(PixelTarget const& target, RippleRing* shown)
{
    auto const wholeBlocks = static_cast<std::size_t>(edges.body.stride());
    if (pixelRow.size() < wholeBlocks)
        pixelRow.resize(wholeBlocks);
    // A target whose rows are whole blocks takes them directly.
    bool const direct = target.width % AreaRaster::blockSize == 0
        && reinterpret_cast<std::uintptr_t>(target.bytes) % alignof(std::uint32_t) == 0
        && target.stride % std::ptrdiff_t{alignof(std::uint32_t)} == 0;
    for (int y = 0; y < target.height; ++y) {
        std::uint8_t* const bytes = rowBytes(target, y);
        if (direct) {
            painter.paintRow(reinterpret_cast<std::uint32_t*>(bytes), y, edges, shown);
            continue;
        }
        painter.paintRow(pixelRow.data(), y, edges, shown);
        std::memcpy(bytes, pixelRow.data(), static_cast<std::size_t>(target.width) * 4);
    }
}

OrbRenderer::OrbRenderer()
    : m_scratch(std::make_unique<Scratch>())
{
}

OrbRenderer::~OrbRenderer() = default;
OrbRenderer::OrbRenderer(OrbRenderer&&) noexcept = default;
OrbRenderer& OrbRenderer::operator=(OrbRenderer&&) noexcept = default;

void OrbRenderer::render(
    OrbFrame const& frame, PixelTarget const& target, std::optional<OrbColor> const& ground)
{
    if (!usable(target))
        return;
    float const opacity = share(frame.opacity);
    if (!drawable(frame, target.scale) || !(opacity > 0)) {
        fill(target, ground ? opaquePixel(*ground) : 0);
        return;
    }
    Scratch& s = *m_scratch;
    s.bodyOutline = Contour::outline(frame.body.phase);
    s.bodyContour.fit(s.bodyOutline, frame.size * target.scale);
    SoftGrids const grids = s.drawSoftLayers(frame, target);
    s.drawEdges(frame, target);
    s.ring.resize(target.width, target.height);
    bool const ringed = frame.ripple && s.drawRing(*frame.ripple, frame, target);
    s.painter.begin(grids, target.width, framePaint(frame, target, opacity, ground), s.glow,
        s.shadow, s.highlight);
    s.paintRows(target, ringed ? &s.ring : nullptr);
    if (ringed)
        s.ring.clear();
}

} // namespace velmora
