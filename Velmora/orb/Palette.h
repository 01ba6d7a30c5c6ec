#pragma once

#include "Velmora/orb/OrbState.h"

namespace velmora {

/// An opaque sRGB colour; every part is 0..1.
struct OrbColor {
    double red = 0;
    double green = 0;
    double blue = 0;

    bool operator==(OrbColor const&) const = default;
};

/// The five colours that the orb wears.
struct Palette {
    OrbColor inner;
    OrbColor mid;
    OrbColor outer;
    OrbColor glow;
    OrbColor warm;

    bool operator==(Palette const&) const = default;
};

/// Grey while paused, else warm in a reminder, else green inside the active hours, else blue.
[[nodiscard]] Palette colors(OrbState const& state);

} // namespace velmora
