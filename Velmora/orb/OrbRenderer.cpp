#include "Velmora/orb/OrbRenderer.h"

#include "Velmora/orb/RowPainter.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace velmora {
namespace {

constexpr int largestTarget = 8192;
constexpr double largestSide = 65536;

float share(double x)
{
    return x > 0 ? static_cast<float>(std::min(x, 1.0)) : 0;
}

bool usable(PixelTarget const& target)
{
    return target.bytes != nullptr && target.width > 0 && target.height > 0
        && target.width <= largestTarget && target.height <= largestTarget
        && target.stride >= std::ptrdiff_t{4} * target.width;
}

std::uint8_t* rowBytes(PixelTarget const& target, int y)
{
    return target.bytes + target.stride * y;
}

void clear(PixelTarget const& target)
{
    for (int y = 0; y < target.height; ++y)
        std::memset(rowBytes(target, y), 0, static_cast<std::size_t>(target.width) * 4);
}

/// Whether every length of the frame can be drawn with.
bool drawable(OrbFrame const& frame, double scale)
{
    double const side = frame.size * scale;
    if (!(frame.size > 0 && scale > 0 && side > 0 && side <= largestSide))
        return false;
    double const limit = 4 * largestSide;
    auto const fine = [&](double length) { return std::fabs(length) <= limit; };
    auto const finePixels = [&](double points) { return fine(points * scale); };
    GlowLayer const& glow = frame.glow;
    BodyLayer const& body = frame.body;
    HighlightLayer const& light = frame.highlight;
    bool const ring = !frame.ripple
        || (std::isfinite(frame.ripple->phase) && fine(frame.ripple->scale * side)
            && finePixels(frame.ripple->lineWidth * frame.ripple->scale)
            && finePixels(frame.ripple->blur));
    return ring && std::isfinite(glow.phase) && std::isfinite(body.phase)
        && std::isfinite(light.phase) && std::isfinite(frame.rim.phase) && fine(glow.scale * side)
        && fine(body.scale * side) && fine(light.scale * side) && fine(frame.rim.scale * side)
        && finePixels(frame.rim.lineWidth * frame.rim.scale) && finePixels(glow.blur * glow.scale)
        && finePixels(body.shadow.radius) && finePixels(body.shadow.dx)
        && finePixels(body.shadow.dy) && finePixels(light.blur) && finePixels(light.dx)
        && finePixels(light.dy) && finePixels(body.centerX * body.scale)
        && finePixels(body.centerY * body.scale) && finePixels(body.endRadius * body.scale);
}

LevelColor levels(OrbColor const& color, float full)
{
    // A hair less than alpha's level, so that no rounding lifts a colour above its alpha.
    float const white = full * (1 - 4e-6F);
    return {.red = share(color.red) * white,
        .green = share(color.green) * white,
        .blue = share(color.blue) * white};
}

Paint paint(OrbFrame const& frame, PixelTarget const& target, float opacity)
{
    BodyLayer const& body = frame.body;
    float const full = 255 * opacity;
    double const grown = body.scale * target.scale;
    Paint paint = {
        .glow = levels(frame.glow.color, full),
        .rim = levels(frame.rim.color, full),
        .highlight = levels(frame.highlight.color, full),
        .stops
        = {levels(body.stops[0], full), levels(body.stops[1], full), levels(body.stops[2], full)},
        .glowOpacity = share(frame.glow.opacity),
        .shadowOpacity = share(body.shadow.opacity),
        .rimOpacity = share(frame.rim.opacity),
        .highlightOpacity = share(frame.highlight.opacity),
        .full = full,
        .gradientX
        = static_cast<float>(target.width / 2.0 + (body.centerX - frame.size / 2) * grown),
        .gradientY
        = static_cast<float>(target.height / 2.0 + (body.centerY - frame.size / 2) * grown),
        .gradientRadius = static_cast<float>(std::max(body.endRadius * grown, 0.001)),
    };
    if (frame.ripple) {
        paint.ring = levels(frame.ripple->color, full);
        paint.ringOpacity = share(frame.ripple->opacity);
    }
    return paint;
}

} // namespace

struct OrbRenderer::Scratch {
    Contour glowContour;
    Contour bodyContour;
    Contour shadowContour;
    Contour otherContour;
    Contour highlightContour;
    SoftPlane glow;
    SoftPlane shadow;
    SoftPlane highlight;
    AreaRaster body;
    AreaRaster rim;
    RippleRing ring;
    RowPainter painter;

    SoftGrids drawSoftLayers(OrbFrame const& frame, PixelTarget const& target);
    void drawEdges(OrbFrame const& frame, PixelTarget const& target);
    void drawRing(RippleLayer const& ripple, OrbFrame const& frame, PixelTarget const& target);
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

Placing inEdgeRaster(Placing placing)
{
    placing.centerX += static_cast<float>(RowPainter::leftPad);
    return placing;
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
    glowContour.fit(frame.glow.phase, side / 6);
    shadowContour.fit(frame.body.phase, side / 6);
    highlightContour.fit(light.phase, side * std::clamp(std::fabs(light.scale), 0.0, 1.0) / 6);
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
    otherContour.fit(phase, frame.size * target.scale);
    return otherContour;
}

void OrbRenderer::Scratch::drawEdges(OrbFrame const& frame, PixelTarget const& target)
{
    double const side = frame.size * target.scale;
    int const width = target.width + RowPainter::leftPad;
    body.resize(width, target.height);
    body.add(bodyContour, inEdgeRaster(placing(target, frame.body.scale * side)), false);
    rim.resize(width, target.height);
    double const line = frame.rim.lineWidth * frame.rim.scale * target.scale;
    Contour const& outline = contour(frame.rim.phase, frame, target);
    rim.add(outline, inEdgeRaster(placing(target, frame.rim.scale * side, line)), false);
    rim.add(outline, inEdgeRaster(placing(target, frame.rim.scale * side, -line)), true);
}

void OrbRenderer::Scratch::drawRing(
    RippleLayer const& ripple, OrbFrame const& frame, PixelTarget const& target)
{
    double const line = ripple.lineWidth * ripple.scale * target.scale;
    ring.draw(contour(ripple.phase, frame, target),
        inEdgeRaster(placing(target, ripple.scale * frame.size * target.scale, line)),
        ripple.blur * target.scale);
}

OrbRenderer::OrbRenderer()
    : m_scratch(std::make_unique<Scratch>())
{
}

OrbRenderer::~OrbRenderer() = default;
OrbRenderer::OrbRenderer(OrbRenderer&&) noexcept = default;
OrbRenderer& OrbRenderer::operator=(OrbRenderer&&) noexcept = default;

void OrbRenderer::render(
    OrbFrame const& frame, PixelTarget const& target, StackOpacity stackOpacity)
{
    if (!usable(target))
        return;
    float const opacity = stackOpacity == StackOpacity::applied ? share(frame.opacity) : 1.0F;
    if (!drawable(frame, target.scale) || !(opacity > 0)) {
        clear(target);
        return;
    }
    Scratch& s = *m_scratch;
    s.bodyContour.fit(frame.body.phase, frame.size * target.scale);
    SoftGrids const grids = s.drawSoftLayers(frame, target);
    s.drawEdges(frame, target);
    s.ring.resize(target.width + RowPainter::leftPad, target.height);
    if (frame.ripple)
        s.drawRing(*frame.ripple, frame, target);
    s.painter.begin(
        grids, target.width, paint(frame, target, opacity), s.glow, s.shadow, s.highlight);
    for (int y = 0; y < target.height; ++y) {
        std::uint32_t const* const row
            = s.painter.paintRow(y, s.body, s.rim, frame.ripple ? &s.ring : nullptr);
        std::memcpy(rowBytes(target, y), row, static_cast<std::size_t>(target.width) * 4);
    }
    if (frame.ripple)
        s.ring.clear();
}

void multiplyOpacity(PixelTarget const& target, double opacity)
{
    if (!usable(target))
        return;
    // Times 65536, so that the product of a channel is rounded once.
    auto const factor = static_cast<std::uint32_t>(std::lround(share(opacity) * 65536));
    if (factor == 65536)
        return;
    for (int y = 0; y < target.height; ++y) {
        std::uint8_t* const row = rowBytes(target, y);
        for (int i = 0; i < target.width * 4; ++i)
            row[i] = static_cast<std::uint8_t>((row[i] * factor + 32768) >> 16U);
    }
}

} // namespace velmora
