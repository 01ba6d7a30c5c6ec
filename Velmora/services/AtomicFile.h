#pragma once

#include <filesystem>
#include <string_view>

namespace velmora {

/// Puts `bytes` into `file` so that a reader finds the old content or the new, never a part: they
/// go into a temporary file beside it, onto the disk, and then in its place by renaming. The new
/// file is readable by all and writable by its owner. False when any step fails; the old file is
/// untouched then, and the temporary one gone.
[[nodiscard]] bool replaceFile(std::filesystem::path const& file, std::string_view bytes);

} // namespace velmora
