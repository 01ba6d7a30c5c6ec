#pragma once

#include <sys/stat.h>

#include <cstdint>

namespace velmora {

/// Which file, and which state of it: two equal identities hold the same bytes.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t modifiedSeconds = 0;
    std::int64_t modifiedNanoseconds = 0;
    std::int64_t changedSeconds = 0;
    std::int64_t changedNanoseconds = 0;

    bool operator==(FileIdentity const&) const = default;

    /// The identity in what the system told of a file.
    [[nodiscard]] static FileIdentity of(struct stat const& status)
    {
        return {
            .device = status.st_dev,
            .inode = status.st_ino,
            .size = status.st_size,
            .modifiedSeconds = status.st_mtim.tv_sec,
            .modifiedNanoseconds = status.st_mtim.tv_nsec,
            .changedSeconds = status.st_ctim.tv_sec,
            .changedNanoseconds = status.st_ctim.tv_nsec,
        };
    }
};

} // namespace velmora
