#pragma once

#include <span>
#include <string_view>

namespace velmora {

/// Whether the toolkit would load GTK for its look on the desktops of this name, which is the value
/// of `XDG_CURRENT_DESKTOP`: several names, the most particular first, with colons in between.
[[nodiscard]] bool usesGtk(std::string_view desktops);

/// Keeps the toolkit from loading GTK, as it does on GTK's desktops unless a theme was chosen by
/// its variable or its option: that costs megabytes, threads and time at the start, for a program
/// that draws its own look. To be called before the toolkit starts.
void leaveGtkAlone(std::span<char const* const> arguments);

} // namespace velmora
