#pragma once

#include "Velmora/orb/OrbState.h"
#include "Velmora/orb/Palette.h"

#include <array>
#include <cstddef>
#include <optional>

namespace velmora {

/// The soft light behind the orb: filled, blurred, then scaled, so its blur grows with it.
struct GlowLayer {
    double phase = 0;
    OrbColor color;
    double opacity = 0;
    /// Standard deviation before scaling, in points.
    double blur = 0;
    double scale = 1;

    bool operator==(GlowLayer const&) const = default;
};

/// The ring that spreads in a reminder: stroked, scaled, then blurred.
struct RippleLayer {
    double phase = 0;
    OrbColor color;
    double opacity = 0;
    /// Points, before scaling.
    double lineWidth = 0;
    double scale = 1;
    /// Standard deviation after scaling, in points.
    double blur = 0;

    bool operator==(RippleLayer const&) const = default;
};

/// A black shadow below a layer, made from the layer as it stands after scaling.
struct ShadowEffect {
    double opacity = 0;
    /// Standard deviation, in points.
    double radius = 0;
    /// Points; y grows downwards.
    double dx = 0;
    double dy = 0;

    bool operator==(ShadowEffect const&) const = default;
};

/// The orb itself: a radial gradient, scaled, with a shadow.
struct BodyLayer {
    double phase = 0;
    /// At 0, half and all of the end radius; beyond it the last colour continues.
    std::array<OrbColor, 3> stops;
    /// The gradient's centre in the square and its end radius, in points, before scaling.
    double centerX = 0;
    double centerY = 0;
    double endRadius = 0;
    double scale = 1;
    ShadowEffect shadow;

    bool operator==(BodyLayer const&) const = default;
};

/// The thin line round the body: stroked, then scaled.
struct RimLayer {
    double phase = 0;
    OrbColor color;
    double opacity = 0;
    /// Points, before scaling.
    double lineWidth = 0;
    double scale = 1;

    bool operator==(RimLayer const&) const = default;
};

/// The light on the body: filled, scaled, moved, then blurred.
struct HighlightLayer {
    double phase = 0;
    OrbColor color;
    double opacity = 0;
    double scale = 1;
    /// Points; y grows downwards.
    double dx = 0;
    double dy = 0;
    /// Standard deviation after scaling, in points.
    double blur = 0;

    bool operator==(HighlightLayer const&) const = default;
};

/// What the caption can say.
enum class CaptionWord { velmora, paused, relax, resting };

inline constexpr std::size_t captionWordCount = 4;

/// The text over the orb, for the view to draw with the system's font: a vertical stack centred
/// in the square and then moved, of the word and, when shown, the status line.
struct CaptionLayer {
    /// The presence of each `CaptionWord`, 0..1, in its order. One word is at 1, or two share
    /// while one fades into the other; all together fade with the caption. Multiplies both the
    /// text's and the shadow's opacity.
    std::array<double, captionWordCount> presence = {};
    /// Points.
    double wordFontSize = 0;
    /// White at this opacity.
    double wordOpacity = 0;
    /// Of the word alone.
    ShadowEffect wordShadow;
    /// The presence of the status line, 0..1: 0 when there is none.
    double statusPresence = 0;
    /// Points.
    double statusFontSize = 0;
    /// White at this opacity.
    double statusOpacity = 0;
    /// Between the two lines, in points.
    double spacing = 0;
    /// Of the whole stack, in points; negative is up.
    double dy = 0;

    bool operator==(CaptionLayer const&) const = default;
};

/// The word that a settled caption says.
[[nodiscard]] CaptionWord captionWord(OrbState const& state);

/// The orb at one instant: all layers, back to front, each centred in a square of `size`.
///
/// Every layer uses the outline `organicBlobOutline` of its own phase in the full square, and
/// every scale is about the square's centre.
struct OrbFrame {
    /// The side of the square, in points.
    double size = 0;
    GlowLayer glow;
    std::optional<RippleLayer> ripple;
    BodyLayer body;
    RimLayer rim;
    HighlightLayer highlight;
    std::optional<CaptionLayer> caption;
    /// Of the composed stack as one picture, the caption included.
    double opacity = 1;

    bool operator==(OrbFrame const&) const = default;
};

/// How far the running cross-fades are.
struct OrbBlend {
    /// The shares of the four looks, summing to 1: neither paused nor reminding, reminding,
    /// paused, and paused during a reminder.
    std::array<double, 4> looks = {1, 0, 0, 0};
    /// The word's presence while the pointer is away, 0..1.
    double word = 0;

    bool operator==(OrbBlend const&) const = default;
};

/// The blend of a state with no cross-fade running.
[[nodiscard]] OrbBlend settledBlend(OrbState const& state);

/// The frame at `seconds` since 2001-01-01 00:00:00 UTC, with no cross-fade running.
[[nodiscard]] OrbFrame orbFrame(OrbState const& state, double seconds);

/// The frame in the middle of cross-fades: `paused`, `isReminding` and `showWord` come from the
/// blend's shares, everything else from `state`.
[[nodiscard]] OrbFrame orbFrame(OrbState const& state, double seconds, OrbBlend const& blend);

} // namespace velmora
