#pragma once

#include "Velmora/platform/linux/Descriptor.h"
#include "Velmora/platform/linux/FileIdentity.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// A new file on its way to the place of an old one: whoever looks finds either of them, whole,
/// whatever happens in between.
///
/// While it exists it holds a lock on the folder, so that replacements by several processes come
/// one after the other and a temporary file found there is known to be a dead process's.
class FileReplacement {
public:
    /// Makes the folder if there is none (mode 0700) and writes the bytes to a temporary file in it
    /// (mode 0600), down to the disk. Absent if any of this failed, or the lock was held elsewhere
    /// for two seconds; then no temporary file is left.
    [[nodiscard]] static std::optional<FileReplacement> prepare(
        std::filesystem::path const& file, std::string_view bytes);

    FileReplacement(FileReplacement&&) = default;
    FileReplacement& operator=(FileReplacement&&) = delete;
    FileReplacement(FileReplacement const&) = delete;
    FileReplacement& operator=(FileReplacement const&) = delete;
    /// Removes the temporary file if it never took its place.
    ~FileReplacement();

    /// Renames what stands in the file's place, of whatever kind, to the first free name of
    /// "<name>.unreadable-1", "-2" and so on. True also if nothing stood there.
    [[nodiscard]] bool setOldAside() const;

    /// Puts the new file in its place, down to the disk. Its identity, or absent if that failed.
    [[nodiscard]] std::optional<FileIdentity> commit();

private:
    FileReplacement() = default;

    [[nodiscard]] bool openFolder(std::filesystem::path const& folder);
    [[nodiscard]] bool lockFolder() const;
    [[nodiscard]] bool writeTemporary(std::string_view bytes);

    std::string m_name;
    std::string m_temporaryName;
    Descriptor m_folder;
    Descriptor m_temporary;
};

} // namespace velmora
