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

/// The colours of a stack over its ground. As every layer lets the same share of the ground
/// through, each takes that share into its own colour, and nothing is left to be drawn below them.
class Grounded {
public:
    Grounded(float opacity, std::optional<OrbColor> const& ground)
        : m_full(255 * opacity)
        , m_through(1 - opacity)
    {
        if (ground)
            m_ground = levels(*ground, 255);
    }

    [[nodiscard]] LevelColor ground() const { return m_ground; }

    [[nodiscard]] LevelColor color(OrbColor const& color) const
    {
        LevelColor const own = levels(color, m_full);
        return {.red = own.red + m_through * m_ground.red,
            .green = own.green + m_through * m_ground.green,
            .blue = own.blue + m_through * m_ground.blue};
    }

private:
    float m_full;
    float m_through;
    LevelColor m_ground;
};

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

Paint framePaint(OrbFrame const& frame, PixelTarget const& target, float opacity,
    std::optional<OrbColor> const& ground)
{
    BodyLayer const& body = frame.body;
    Grounded const stack(opacity, ground);
    double const grown = body.scale * target.scale;
    Paint paint = {
        .ground = stack.ground(),
        .glow = stack.color(frame.glow.color),
        .shadow = stack.color({}),
        .rim = stack.color(frame.rim.color),
        .highlight = stack.color(frame.highlight.color),
        .stops
        = {stack.color(body.stops[0]), stack.color(body.stops[1]), stack.color(body.stops[2])},
        .glowOpacity = share(frame.glow.opacity),
        .shadowOpacity = share(body.shadow.opacity),
        .rimOpacity = share(frame.rim.opacity),
        .highlightOpacity = share(frame.highlight.opacity),
        .full = ground ? 255 : 255 * opacity,
        .bare = ground ? 255.0F : 0.0F,
        .gradientX
        = static_cast<float>(target.width / 2.0 + (body.centerX - frame.size / 2) * grown),
        .gradientY
        = static_cast<float>(target.height / 2.0 + (body.centerY - frame.size / 2) * grown),
        .gradientRadius = static_cast<float>(std::max(body.endRadius * grown, 0.001)),
    };
    if (frame.ripple) {
        paint.ring = stack.color(frame.ripple->color);
        paint.ringOpacity = share(frame.ripple->opacity);
    }
    return paint;
}

} // namespace velmora
