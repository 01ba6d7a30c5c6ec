#include "Velmora/platform/posix/ProgramPath.h"

#include <cstdlib>
#include <system_error>

#include <unistd.h>

namespace velmora {

namespace fs = std::filesystem;

namespace {

bool runs(fs::path const& file)
{
    std::error_code error;
    return fs::is_regular_file(file, error) && access(file.c_str(), X_OK) == 0;
}

} // namespace

fs::path findProgram(std::string_view calledAs, std::string_view searchPath, fs::path const& here)
{
    if (calledAs.empty())
        return {};
    if (calledAs.find('/') != std::string_view::npos)
        return (here / calledAs).lexically_normal();
    for (bool more = true; more;) {
        auto const colon = searchPath.find(':');
        auto file = here / searchPath.substr(0, colon) / calledAs;
        if (runs(file))
            return file.lexically_normal();
        more = colon != std::string_view::npos;
        searchPath.remove_prefix(more ? colon + 1 : searchPath.size());
    }
    return {};
}

fs::path programPath(char const* calledAs)
{
    std::error_code error;
    auto path = fs::read_symlink("/proc/self/exe", error);
    if (!error)
        return path;
    char const* const searchPath = std::getenv("PATH");
    auto const here = fs::current_path(error);
    path = findProgram(calledAs ? calledAs : "", searchPath ? searchPath : "", here);
    auto resolved = fs::canonical(path, error);
    return error ? path : resolved;
}

} // namespace velmora
