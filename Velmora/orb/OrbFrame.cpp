#include "Velmora/orb/OrbFrame.h"

#include "Velmora/orb/BreathingMotion.h"

#include <algorithm>
#include <cstddef>

namespace velmora {
namespace {

constexpr OrbColor white = {.red = 1, .green = 1, .blue = 1};

std::size_t lookIndex(OrbState const& state)
{
    return (state.paused ? 2U : 0U) + (state.isReminding ? 1U : 0U);
}

OrbState withLook(OrbState state, std::size_t look)
{
    state.paused = (look & 2U) != 0;
    state.isReminding = (look & 1U) != 0;
    return state;
}

/// What differs between the four looks at one instant, already mixed by their shares.
struct Mixed {
    Palette palette;
    double breath = 0;
    double dimming = 0;
    double glowOpacity = 0;
    double highlightOpacity = 0;
    double reminding = 0;
    std::array<double, captionWordCount> words = {};
};

void add(OrbColor& sum, OrbColor const& color, double share)
{
    sum.red += color.red * share;
    sum.green += color.green * share;
    sum.blue += color.blue * share;
}

void add(Mixed& sum, OrbState const& state, double seconds, double share)
{
    Palette const palette = colors(state);
    add(sum.palette.inner, palette.inner, share);
    add(sum.palette.mid, palette.mid, share);
    add(sum.palette.outer, palette.outer, share);
    add(sum.palette.glow, palette.glow, share);
    add(sum.palette.warm, palette.warm, share);
    sum.breath += BreathingMotion::breathScale(seconds, state) * share;
    sum.dimming += BreathingMotion::dimming(state) * share;
    sum.glowOpacity += (state.paused ? 0.18 : 0.42) * share;
    sum.highlightOpacity += (state.paused ? 0.12 : 0.34) * share;
    sum.reminding += state.isReminding ? share : 0;
    sum.words[static_cast<std::size_t>(captionWord(state))] += share;
}

Mixed mixed(OrbState const& state, double seconds, OrbBlend const& blend)
{
    Mixed sum;
    for (std::size_t look = 0; look < blend.looks.size(); ++look) {
        if (blend.looks[look] > 0)
            add(sum, withLook(state, look), seconds, blend.looks[look]);
    }
    return sum;
}

std::optional<RippleLayer> ripple(OrbState state, double seconds, Mixed const& mix)
{
    if (mix.reminding <= 0)
        return std::nullopt;
    state.isReminding = true;
    double const progress = BreathingMotion::rippleProgress(seconds, state);
    if (progress <= 0)
        return std::nullopt;
    return RippleLayer{.phase = BreathingMotion::wobblePhase(seconds, state),
        .color = mix.palette.warm,
        .opacity = (1 - progress) * 0.55 * mix.reminding,
        .lineWidth = std::max(state.widgetSize * 0.016, 2.0),
        .scale = progress * 0.38 + 0.72,
        .blur = 0.5};
}

std::optional<CaptionLayer> caption(OrbState const& state, OrbBlend const& blend, Mixed const& mix)
{
    double const shown = state.showChrome ? 1.0 : blend.word;
    if (shown <= 0)
        return std::nullopt;
    double const side = state.widgetSize;
    CaptionLayer layer = {.presence = mix.words,
        .wordFontSize = std::max(side * 0.11, 11.0),
        .wordOpacity = 0.92,
        .wordShadow = {.opacity = 0.22, .radius = 4, .dx = 0, .dy = 1},
        .statusPresence = state.showChrome ? std::clamp(1 - mix.reminding, 0.0, 1.0) : 0,
        .statusFontSize = std::max(side * 0.065, 8.0),
        .statusOpacity = 0.72,
        .spacing = side * 0.02,
        .dy = state.showChrome ? side * -0.04 : 0};
    for (double& presence : layer.presence)
        presence *= shown;
    return layer;
}

BodyLayer body(double side, double phase, Mixed const& mix)
{
    return {.phase = phase,
        .stops = {mix.palette.inner, mix.palette.mid, mix.palette.outer},
        .centerX = side * 0.36,
        .centerY = side * 0.30,
        .endRadius = side * 0.42,
        .scale = mix.breath,
        .shadow = {.opacity = 0.22, .radius = side * 0.06, .dx = 0, .dy = side * 0.03}};
}

} // namespace

CaptionWord captionWord(OrbState const& state)
{
    if (state.isReminding)
        return CaptionWord::velmora;
    if (state.paused)
        return CaptionWord::paused;
    return state.inActiveHours ? CaptionWord::relax : CaptionWord::resting;
}

OrbBlend settledBlend(OrbState const& state)
{
    OrbBlend blend = {.looks = {}, .word = state.showWord ? 1.0 : 0.0};
    blend.looks[lookIndex(state)] = 1;
    return blend;
}

OrbFrame orbFrame(OrbState const& state, double seconds)
{
    return orbFrame(state, seconds, settledBlend(state));
}

OrbFrame orbFrame(OrbState const& state, double seconds, OrbBlend const& blend)
{
    Mixed const mix = mixed(state, seconds, blend);
    double const side = state.widgetSize;
    double const phase = BreathingMotion::wobblePhase(seconds, state);
    return {
        .size = side,
        .glow = {.phase = phase + 0.4,
            .color = mix.palette.glow,
            .opacity = mix.glowOpacity,
            .blur = side * 0.07,
            .scale = mix.breath * 1.06},
        .ripple = ripple(state, seconds, mix),
        .body = body(side, phase, mix),
        .rim = {.phase = phase,
            .color = mix.palette.outer,
            .opacity = 0.35,
            .lineWidth = 0.8,
            .scale = mix.breath},
        .highlight = {.phase = phase + 0.55,
            .color = white,
            .opacity = mix.highlightOpacity,
            .scale = mix.breath * 0.38,
            .dx = side * -0.08,
            .dy = side * -0.1,
            .blur = side * 0.04},
        .caption = caption(state, blend, mix),
        .opacity = mix.dimming * BreathingMotion::pulse(seconds, state),
    };
}

} // namespace velmora
