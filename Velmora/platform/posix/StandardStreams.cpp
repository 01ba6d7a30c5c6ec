#include "Velmora/platform/posix/StandardStreams.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace velmora {

void StandardErrorStream::write(std::string_view bytes)
{
    while (!bytes.empty()) {
        auto const written = ::write(STDERR_FILENO, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void prepareStandardStreams()
{
    std::signal(SIGPIPE, SIG_IGN);
    for (int const descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        // The lowest free number is taken, which is the closed one.
        if (fcntl(descriptor, F_GETFD) < 0 && open("/dev/null", O_RDWR) < 0)
            return;
    }
}

} // namespace velmora
