#include "Velmora/orb/FramePaint.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr double largestSide = 65536;

LevelColor levels(OrbColor const& color, float full)
{
    // A hair less than alpha's level, so that no rounding lifts a colour above its alpha.
    float const white = full * (1 - 4e-6F);
    return {.red = share(color.red) * white,
        .green = share(color.green) * white,
        .blue = share(color.blue) * white};
}

} // namespace

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

float share(double opacity)
{
    return opacity > 0 ? static_cast<float>(std::min(opacity, 1.0)) : 0;
}

Paint framePaint(OrbFrame const& frame, PixelTarget const& target, float opacity)
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

} // namespace velmora
