#pragma once

#include "Velmora/orb/EaseInOut.h"
#include "Velmora/orb/OrbFrame.h"

#include <array>
#include <optional>

namespace velmora {

/// Carries the orb from one look to the next: the only memory between two frames.
///
/// A change of `paused` or `isReminding` cross-fades palette, opacity and scale in 0.45 s, one of
/// `showWord` fades the word in 0.6 s, one of `showChrome` the controls in 0.2 s, all ease-in-out;
/// every other change shows at once. A change on the way sets off from where the fade stands.
class OrbTransitions {
public:
    /// The frame for `state` at `seconds` since 2001-01-01 00:00:00 UTC.
    ///
    /// The first call shows the state at once. A clock that was set back lets no time pass.
    [[nodiscard]] OrbFrame frame(OrbState const& state, double seconds);

    /// The opacity of the hover controls in the frame returned last, 0..1. They lie above the
    /// stack and do not take its opacity.
    [[nodiscard]] double controlsOpacity() const { return m_controls.value(); }

    /// True when no fade runs, so that the next frame differs by the time's own motion alone.
    [[nodiscard]] bool settled() const;

    /// The shares that the frame returned last was mixed from.
    [[nodiscard]] OrbBlend blend() const;

private:
    void start(OrbState const& state);
    void retarget(OrbState const& state);
    void advance(double seconds);

    std::optional<OrbState> m_shown;
    std::array<double, 4> m_fromLooks = {1, 0, 0, 0};
    EasedNumber m_look{1, 0.45};
    EasedNumber m_word{0, 0.6};
    EasedNumber m_controls{0, 0.2};
    double m_lastSeconds = 0;
};

} // namespace velmora
