#pragma once

namespace velmora {

/// Everything the orb's look depends on besides the time.
struct OrbState {
    bool paused = false;
    bool isReminding = false;
    bool inActiveHours = true;
    bool reduceMotion = false;
    /// The caption's word is shown, pointer or not.
    bool showWord = false;
    /// The pointer is over the orb, or drags or resizes it.
    bool showChrome = false;
    /// The side of the orb's square, in points.
    double widgetSize = 128;

    bool operator==(OrbState const&) const = default;
};

} // namespace velmora
