#pragma once

#include "Velmora/platform/linux/FileIdentity.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// The file in which settings live, whatever became of it.
///
/// Reading changes nothing on the disk. Saving replaces the file atomically and durably, and first
/// sets aside, under a new name and never over another file, whatever stands in its place and was
/// not understood: text that is not settings, a folder, a pipe, a file too large or not readable.
///
/// A user may keep the file elsewhere and link to it: a link that the user owns, to a regular file
/// that the user owns, is followed, and it is the file it leads to that is replaced; the link
/// stays. Any other link could be somebody else's trap: it is not followed but set aside.
class SettingsFile {
public:
    /// Files larger than this are not settings, in bytes.
    static constexpr std::size_t sizeLimit = 1U << 20U;

    /// Whether bytes are understood as settings.
    using Understands = std::function<bool(std::string_view)>;

    SettingsFile(std::filesystem::path path, Understands understands);

    /// The file's bytes if they are understood; absent if not, or if there is no file.
    [[nodiscard]] std::optional<std::string> load();

    /// Makes the bytes the file's content, unless they are already; whether they are now.
    [[nodiscard]] bool save(std::string_view bytes);

private:
    struct Content {
        std::string bytes;
        FileIdentity identity;
    };

    [[nodiscard]] bool mayBeReplaced(std::filesystem::path const& file) const;

    std::filesystem::path m_path;
    Understands m_understands;
    /// What was last seen in the file, by reading or writing it.
    std::optional<Content> m_known;
    /// Something was there that could not be loaded: it must not be replaced unseen, even if it
    /// has become readable since.
    bool m_missed = false;
};

} // namespace velmora
