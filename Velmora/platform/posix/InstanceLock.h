#pragma once

#include <filesystem>
#include <memory>

namespace velmora {

/// The lock that lets one copy of the program run for each user.
///
/// The file `Library/Application Support/Velmora/instance.lock` in the home folder carries an
/// advisory lock for as long as this object lives; the system drops it with the process in any
/// case. The file's first line is the holder's process identifier. What a longer identifier left
/// behind that line stays: the file is never truncated and never deleted.
class InstanceLock {
public:
    /// The lock, or none when another process holds it or it cannot be taken at all: both mean that
    /// this copy gives way.
    [[nodiscard]] static std::shared_ptr<InstanceLock> acquire(std::filesystem::path const& home);

    InstanceLock(InstanceLock const&) = delete;
    InstanceLock& operator=(InstanceLock const&) = delete;
    ~InstanceLock();

private:
    explicit InstanceLock(int descriptor);

    int m_descriptor;
};

} // namespace velmora
