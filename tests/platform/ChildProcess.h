#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

namespace velmora {

/// The user and group without rights of their own, on every Linux.
constexpr unsigned nobody = 65534;

/// Runs the body in a child process; true if it returned true. What the body does to its rights,
/// limits and memory stays in the child.
inline bool holdsInChild(std::function<bool()> const& body)
{
    pid_t const child = ::fork();
    if (child == 0)
        ::_exit(body() ? 0 : 1);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) { }
    return child > 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// As above, and where the tests run as root the body runs without root's rights, with the folder
/// and the one above it handed over to it: root may read and write everything.
inline bool holdsForOrdinaryUser(
    std::filesystem::path const& folder, std::function<bool()> const& body)
{
    return holdsInChild([&] {
        if (::geteuid() == 0) {
            if (::chown(folder.parent_path().c_str(), nobody, nobody) != 0
                || ::chown(folder.c_str(), nobody, nobody) != 0 || ::setgid(nobody) != 0
                || ::setuid(nobody) != 0)
                return false;
        }
        return body();
    });
}

} // namespace velmora
