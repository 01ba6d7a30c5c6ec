#include "Velmora/platform/posix/SpawnedProcess.h"

#include <cerrno>
#include <csignal>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

// Not every Unix has it in a header.
extern "C" char** environ; // NOLINT(readability-redundant-declaration)

namespace velmora {

namespace {

/// Output and error go to the null device.
class SilentOutput {
public:
    SilentOutput()
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_adddup2(&m_actions, STDOUT_FILENO, STDERR_FILENO);
    }
    SilentOutput(SilentOutput const&) = delete;
    SilentOutput& operator=(SilentOutput const&) = delete;
    ~SilentOutput() { posix_spawn_file_actions_destroy(&m_actions); }

    [[nodiscard]] posix_spawn_file_actions_t const* get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions{};
};

/// Signals are as a fresh program expects them: none blocked, a broken pipe not ignored.
class PlainSignals {
public:
    PlainSignals()
    {
        posix_spawnattr_init(&m_attributes);
        sigset_t set;
        sigemptyset(&set);
        posix_spawnattr_setsigmask(&m_attributes, &set);
        sigaddset(&set, SIGPIPE);
        posix_spawnattr_setsigdefault(&m_attributes, &set);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    PlainSignals(PlainSignals const&) = delete;
    PlainSignals& operator=(PlainSignals const&) = delete;
    ~PlainSignals() { posix_spawnattr_destroy(&m_attributes); }

    [[nodiscard]] posix_spawnattr_t const* get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes{};
};

std::optional<int> waitFor(pid_t child)
{
    int status = 0;
    pid_t ended = -1;
    do
        ended = waitpid(child, &status, 0);
    while (ended < 0 && errno == EINTR);
    if (ended != child)
        return std::nullopt;
    return WIFEXITED(status) ? WEXITSTATUS(status) : WTERMSIG(status);
}

} // namespace

std::optional<int> SpawnedProcess::run(
    std::filesystem::path const& executable, std::span<std::string const> arguments)
{
    std::vector<std::string> words{executable.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (auto& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);

    SilentOutput const output;
    PlainSignals const signals;
    pid_t child = 0;
    int const error = posix_spawn(
        &child, executable.c_str(), output.get(), signals.get(), pointers.data(), environ);
    return error == 0 ? waitFor(child) : std::nullopt;
}

} // namespace velmora
