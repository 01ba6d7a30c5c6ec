#include "Velmora/platform/toolkit/UnixSignals.h"

#include "tests/platform/linux/session/Eventually.h"

#include <gtest/gtest.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace velmora {
namespace {

TEST(UnixSignals, EachOfTheEndingSignalsAsksTheProgramToEnd)
{
    UnixSignals const signals;
    int requests = 0;
    QObject::connect(&signals, &UnixSignals::endRequested, &signals, [&] { ++requests; });
    for (int const signal : {SIGTERM, SIGINT, SIGHUP}) {
        int const before = requests;
        raise(signal);
        EXPECT_TRUE(eventually([&] { return requests == before + 1; }));
    }
}

TEST(UnixSignals, ABurstOfSignalsIsSurvived)
{
    UnixSignals const signals;
    int requests = 0;
    QObject::connect(&signals, &UnixSignals::endRequested, &signals, [&] { ++requests; });
    for (int i = 0; i < 100'000; ++i)
        raise(SIGTERM);
    EXPECT_TRUE(eventually([&] { return requests > 0; }));
}

TEST(UnixSignals, EndTheProcessAtOnceWhenNobodyListensAnyMore)
{
    pid_t const child = fork();
    if (child == 0) {
        {
            UnixSignals const signals;
        }
        raise(SIGTERM);
        _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

} // namespace
} // namespace velmora
