#pragma once

#include <filesystem>

namespace velmora {

/// The user's home folder: `HOME` when it is an absolute path, else the user database's entry;
/// empty when neither names one.
[[nodiscard]] std::filesystem::path homeFolder();

} // namespace velmora
