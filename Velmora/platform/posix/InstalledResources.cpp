#include "Velmora/platform/posix/InstalledResources.h"

#include <string>
#include <system_error>

namespace velmora {

namespace fs = std::filesystem;

InstalledResources::InstalledResources(fs::path const& program, fs::path const& development)
{
    auto const folder = program.parent_path();
    m_folders = {folder, folder.parent_path() / "share/velmora"};
    if (!development.empty())
        m_folders.push_back(development);
}

std::optional<fs::path> InstalledResources::find(
    std::string_view name, std::string_view extension) const
{
    auto const file = std::string(name) + "." + std::string(extension);
    for (auto const& folder : m_folders) {
        std::error_code error;
        if (fs::is_regular_file(folder / file, error))
            return folder / file;
    }
    return std::nullopt;
}

} // namespace velmora
