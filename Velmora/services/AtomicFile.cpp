#include "Velmora/services/AtomicFile.h"

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora {

namespace {

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        auto const written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace

bool replaceFile(std::filesystem::path const& file, std::string_view bytes)
{
    auto temporary = file;
    temporary += "." + std::to_string(getpid()) + ".new";
    // One left by a process of the same number that was killed must not stand in the way.
    unlink(temporary.c_str());
    int const descriptor
        = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        return false;
    bool const complete = writeAll(descriptor, bytes)
        && fchmod(descriptor, S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH) == 0 && fsync(descriptor) == 0;
    bool const closed = close(descriptor) == 0;
    if (complete && closed && rename(temporary.c_str(), file.c_str()) == 0)
        return true;
    unlink(temporary.c_str());
    return false;
}

} // namespace velmora
