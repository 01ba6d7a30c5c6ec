#include "Velmora/platform/posix/HomeFolder.h"

#include <cstdlib>
#include <vector>

#include <pwd.h>
#include <unistd.h>

namespace velmora {

namespace fs = std::filesystem;

fs::path homeFolder()
{
    if (char const* const fromEnvironment = std::getenv("HOME")) {
        if (fs::path home = fromEnvironment; home.is_absolute())
            return home;
    }
    constexpr std::size_t enoughForAnyEntry = 16384;
    std::vector<char> buffer(enoughForAnyEntry);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found)
        return {};
    fs::path home = found->pw_dir ? found->pw_dir : "";
    return home.is_absolute() ? home : fs::path();
}

} // namespace velmora
