#pragma once

#include "Velmora/geometry/Rect.h"

#include <optional>

/// How tall the settings panel is and where it opens. Everything in desktop points, y up; a
/// position is the bottom-left corner of the panel with its frame.
namespace velmora::SettingsPlacement {

/// The width of the panel's content, whatever it holds.
inline constexpr double width = 340.0;

/// What the panel is fitted to and placed beside.
struct Surroundings {
    /// The orb's square, where there is an orb.
    std::optional<Rect> orb = std::nullopt;
    /// The visible frame of the orb's display, or else of the main display.
    std::optional<Rect> visible = std::nullopt;
};

/// The height of the panel's content for a form that wants `formHeight`: as tall as the form, at
/// least 480, and with its frame never closer than 24 to the display's visible height, which wins
/// over both and is 800 where no display is known. A form that wants 200 or less has not been laid
/// out yet and counts as 720. `frameHeight` is what the window manager's frame adds above and
/// below.
[[nodiscard]] double height(
    double formHeight, std::optional<Rect> const& visible, double frameHeight = 0.0);

/// Where a panel of this size, frame included, goes: left of the orb and centred on it, right of it
/// where the left has no room, and always 12 inside the top of the visible frame. On a display
/// narrower than both together it hangs over the left edge. Without an orb it is centred; absent
/// when there is neither orb nor display and the panel stays where it is.
[[nodiscard]] std::optional<Point> origin(Size panel, Surroundings const& around);

/// The vertical part of the rule above, for a panel that stays in its column: at least 12 above the
/// bottom of the visible frame and then at least 12 below its top.
[[nodiscard]] double insideVertically(double y, double panelHeight, Rect const& visible);

} // namespace velmora::SettingsPlacement
