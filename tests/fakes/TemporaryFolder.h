#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace velmora {

/// An empty folder of its own for one test, removed with everything in it at the end.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        auto pattern = (std::filesystem::temp_directory_path() / "velmora-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            throw std::runtime_error("no temporary folder: " + pattern);
        m_path = pattern;
    }

    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;

    ~TemporaryFolder()
    {
        std::error_code error;
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, error);
        std::filesystem::remove_all(m_path, error);
    }

    [[nodiscard]] std::filesystem::path const& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

} // namespace velmora
