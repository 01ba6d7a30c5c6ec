#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The bytes of a file; empty if there is none.
inline std::string bytesOf(std::filesystem::path const& file)
{
    std::ifstream stream{file, std::ios::binary};
    return {std::istreambuf_iterator<char>{stream}, {}};
}

/// Makes the file with these bytes, in place.
inline void putBytes(std::filesystem::path const& file, std::string_view bytes)
{
    std::ofstream stream{file, std::ios::binary | std::ios::trunc};
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// The names in a folder, hidden ones too, sorted.
inline std::vector<std::string> namesIn(std::filesystem::path const& folder)
{
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator{folder})
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

/// The permission bits of a file or folder.
inline mode_t modeOf(std::filesystem::path const& path)
{
    struct stat status = {};
    ::stat(path.c_str(), &status);
    return status.st_mode & 07777U;
}

} // namespace velmora
