#include "Velmora/platform/posix/StandardStreams.h"

#include <gtest/gtest.h>

#include <functional>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora {
namespace {

/// Runs `body` in a process of its own; whether that process ended in good order and `body` was
/// content.
bool holdsInAnotherProcess(std::function<bool()> const& body)
{
    pid_t const child = fork();
    if (child == 0)
        _exit(body() ? 0 : 1);
    int status = 0;
    waitpid(child, &status, 0);
    return status == 0;
}

TEST(StandardStreams, StandardErrorGetsTheBytesAsTheyAre)
{
    testing::internal::CaptureStderr();
    StandardErrorStream().write("Velmora: a line — with a dash.\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Velmora: a line — with a dash.\n");
}

TEST(StandardStreams, AReaderThatWentAwayDoesNotEndTheProcess)
{
    EXPECT_TRUE(holdsInAnotherProcess([] {
        int ends[2] = {};
        if (pipe(ends) != 0 || dup2(ends[1], STDERR_FILENO) < 0)
            return false;
        close(ends[0]);
        close(ends[1]);
        prepareStandardStreams();
        StandardErrorStream().write("nobody reads this\n");
        return true;
    }));
}

TEST(StandardStreams, NoOtherFileTakesTheNumberOfAClosedStream)
{
    EXPECT_TRUE(holdsInAnotherProcess([] {
        for (int const descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            close(descriptor);
        prepareStandardStreams();
        return open("/dev/null", O_RDONLY) > STDERR_FILENO;
    }));
}

TEST(StandardStreams, OpenStreamsAreLeftAlone)
{
    EXPECT_TRUE(holdsInAnotherProcess([] {
        int ends[2] = {};
        if (pipe(ends) != 0 || dup2(ends[1], STDERR_FILENO) < 0)
            return false;
        prepareStandardStreams();
        StandardErrorStream().write("x");
        char letter = 0;
        return read(ends[0], &letter, 1) == 1 && letter == 'x';
    }));
}

} // namespace
} // namespace velmora
