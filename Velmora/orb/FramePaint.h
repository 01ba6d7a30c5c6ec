#pragma once

#include "Velmora/orb/OrbFrame.h"
#include "Velmora/orb/PixelTarget.h"

#include <array>
#include <optional>

namespace velmora {

/// A colour whose channels are 0 to the level of full white.
struct LevelColor {
    float red = 0;
    float green = 0;
    float blue = 0;
};

/// What one frame paints with: colours in levels already multiplied by the stack's opacity and laid
/// over the ground, lengths in device pixels of the picture.
struct Paint {
    /// Black where there is none.
    LevelColor ground;
    LevelColor glow;
    LevelColor shadow;
    LevelColor ring;
    LevelColor rim;
    LevelColor highlight;
    std::array<LevelColor, 3> stops;
    float glowOpacity = 0;
    float shadowOpacity = 0;
    float ringOpacity = 0;
    float rimOpacity = 0;
    float highlightOpacity = 0;
    /// The alpha's level of a pixel that a layer covers wholly, and of one that none covers.
    float full = 255;
    float bare = 0;
    float gradientX = 0;
    float gradientY = 0;
    float gradientRadius = 1;
};

/// Whether every length of the frame can be drawn with: a square of some size, at most 65536
/// device pixels wide, and no number that is not finite or many times larger.
[[nodiscard]] bool drawable(OrbFrame const& frame, double scale);

/// An opacity as the arithmetic of pixels takes it: clamped to 0..1, 0 if it is not a number.
[[nodiscard]] float share(double opacity);

/// What `frame` paints `target` with; `opacity` is the stack's, 0..1, and `ground` is seen through
/// it.
[[nodiscard]] Paint framePaint(OrbFrame const& frame, PixelTarget const& target, float opacity,
    std::optional<OrbColor> const& ground);

} // namespace velmora
