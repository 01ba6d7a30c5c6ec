#include "Velmora/orb/Palette.h"

namespace velmora {
namespace {

constexpr Palette pausedPalette = {
    .inner = {0.62, 0.66, 0.64},
    .mid = {0.48, 0.54, 0.52},
    .outer = {0.36, 0.42, 0.40},
    .glow = {0.70, 0.74, 0.72},
    .warm = {0.78, 0.76, 0.70},
};

constexpr Palette reminderPalette = {
    .inner = {0.98, 0.90, 0.72},
    .mid = {0.86, 0.62, 0.48},
    .outer = {0.72, 0.42, 0.40},
    .glow = {1.00, 0.78, 0.55},
    .warm = {1.00, 0.86, 0.62},
};

constexpr Palette activePalette = {
    .inner = {0.90, 0.97, 0.90},
    .mid = {0.42, 0.74, 0.58},
    .outer = {0.18, 0.52, 0.46},
    .glow = {0.55, 0.88, 0.70},
    .warm = {0.95, 0.86, 0.55},
};

constexpr Palette restingPalette = {
    .inner = {0.55, 0.62, 0.70},
    .mid = {0.38, 0.46, 0.56},
    .outer = {0.26, 0.32, 0.42},
    .glow = {0.50, 0.58, 0.70},
    .warm = {0.70, 0.78, 0.88},
};

} // namespace

Palette colors(OrbState const& state)
{
    if (state.paused)
        return pausedPalette;
    if (state.isReminding)
        return reminderPalette;
    return state.inActiveHours ? activePalette : restingPalette;
}

} // namespace velmora
