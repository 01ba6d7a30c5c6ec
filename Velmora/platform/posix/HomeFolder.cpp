#include "Velmora/platform/posix/HomeFolder.h"

#include <cstdlib>
#include <vector>

#include <pwd.h>
#include <unistd.h>

namespace velmora {

namespace fs = std::filesystem;

namespace {

/// The path in an environment variable; empty unless it is absolute.
fs::path absoluteFromEnvironment(char const* name)
{
    char const* const value = std::getenv(name);
    fs::path path = value ? value : "";
    return path.is_absolute() ? path : fs::path();
}

} // namespace

fs::path homeFolder()
{
    if (auto home = absoluteFromEnvironment("HOME"); !home.empty())
        return home;
    constexpr std::size_t enoughForAnyEntry = 16384;
    std::vector<char> buffer(enoughForAnyEntry);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found)
        return {};
    fs::path home = found->pw_dir ? found->pw_dir : "";
    return home.is_absolute() ? home : fs::path();
}

fs::path configFolder(fs::path const& home)
{
    auto config = absoluteFromEnvironment("XDG_CONFIG_HOME");
    return config.empty() ? home / ".config" : config;
}

} // namespace velmora
