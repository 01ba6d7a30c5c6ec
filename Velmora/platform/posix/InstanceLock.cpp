#include "Velmora/platform/posix/InstanceLock.h"

#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace velmora {

namespace fs = std::filesystem;

std::shared_ptr<InstanceLock> InstanceLock::acquire(fs::path const& home)
{
    if (!home.is_absolute())
        return nullptr;
    auto const folder = home / "Library/Application Support/Velmora";
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        return nullptr;
    constexpr mode_t readableByAll = 0644;
    // Programs that this one starts must not inherit the descriptor: they would keep the lock. A
    // link in the file's place could lead to a file that is not to be written to.
    int const descriptor = open((folder / "instance.lock").c_str(),
        O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, readableByAll);
    if (descriptor < 0)
        return nullptr;
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        close(descriptor);
        return nullptr;
    }
    auto const line = std::to_string(getpid()) + "\n";
    // Only a help to people who look: the lock itself is what counts.
    [[maybe_unused]] auto const written = pwrite(descriptor, line.data(), line.size(), 0);
    return std::shared_ptr<InstanceLock>(new InstanceLock(descriptor));
}

InstanceLock::InstanceLock(int descriptor)
    : m_descriptor(descriptor)
{
}

InstanceLock::~InstanceLock()
{
    close(m_descriptor);
}

} // namespace velmora
