#pragma once

#include <span>
#include <string_view>

namespace velmora {

/// Whether the toolkit would load GTK for its look on the desktops of this name, which is the value
/// of `XDG_CURRENT_DESKTOP`: several names, the most particular first, with colons in between.
[[nodiscard]] bool usesGtk(std::string_view desktops);

/// Keeps the toolkit from loading GTK, as it does on GTK's desktops unless a theme was chosen by
/// its variable or its option: that costs megabytes, threads and time at the start, for a program
/// that draws its own look. To be called before the toolkit starts; answers whether GTK would have
/// been loaded, so that the program has to find out itself what it wants of the desktop's look.
[[nodiscard]] bool leaveGtkAlone(std::span<char const* const> arguments);

} // namespace velmora
