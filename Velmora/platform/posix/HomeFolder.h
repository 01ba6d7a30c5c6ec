#pragma once

#include <filesystem>

namespace velmora {

/// The user's home folder: `HOME` when it is an absolute path, else the user database's entry;
/// empty when neither names one.
[[nodiscard]] std::filesystem::path homeFolder();

/// The folder for the user's settings: `XDG_CONFIG_HOME` when it is an absolute path, else
/// `.config` in `home`.
[[nodiscard]] std::filesystem::path configFolder(std::filesystem::path const& home);

} // namespace velmora
