#include "Velmora/platform/posix/EndingSignals.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace velmora {
namespace {

TEST(EndingSignals, EndTheProcessWithStatusNothingWhileThereIsNothingToSave)
{
    for (int const signal : endingSignals) {
        pid_t const child = fork();
        if (child == 0) {
            leaveOnEndingSignals();
            raise(signal);
            _exit(1);
        }
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << signal;
    }
}

} // namespace
} // namespace velmora
