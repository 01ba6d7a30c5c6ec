#pragma once

#include <filesystem>
#include <string_view>

namespace velmora {

/// Where the running program lies, byte for byte, also where the bytes are no text: as the kernel's
/// view of the processes says, and where that cannot be seen, as the program was called.
[[nodiscard]] std::filesystem::path programPath(char const* calledAs);

/// Where a program that was called by these words is found, as a shell finds it: a word with a
/// slash is a path, from `here` if it is relative; another is looked for in the folders of
/// `searchPath`, which colons separate and of which an empty one is `here`. Empty when it is
/// nowhere.
[[nodiscard]] std::filesystem::path findProgram(
    std::string_view calledAs, std::string_view searchPath, std::filesystem::path const& here);

} // namespace velmora
