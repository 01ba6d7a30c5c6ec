#include "Velmora/platform/linux/SaveWorker.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <csignal>
#include <future>

namespace velmora {

using namespace std::chrono_literals;

namespace {

constexpr SavePacing never{.gap = 24h};

/// A job that counts its runs and can be waited for.
class CountingJob {
public:
    bool operator()()
    {
        std::lock_guard const lock{m_mutex};
        ++m_runs;
        m_changed.notify_all();
        return m_succeeds;
    }
    void waitForRuns(int runs)
    {
        std::unique_lock lock{m_mutex};
        m_changed.wait(lock, [&] { return m_runs >= runs; });
    }
    void setSucceeds(bool succeeds)
    {
        std::lock_guard const lock{m_mutex};
        m_succeeds = succeeds;
    }
    [[nodiscard]] int runs()
    {
        std::lock_guard const lock{m_mutex};
        return m_runs;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_runs = 0;
    bool m_succeeds = true;
};

} // namespace

TEST(SavePacing, LetsTheFirstSaveStartAtOnce)
{
    SavePacing::Instant const now{10s};
    EXPECT_EQ(SavePacing{}.next(now), now);
}

TEST(SavePacing, KeepsAQuarterOfASecondBetweenTwoSaves)
{
    SavePacing const pacing{.lastSave = SavePacing::Instant{10s}};
    EXPECT_EQ(pacing.next(SavePacing::Instant{10s}), SavePacing::Instant{10'250ms});
    EXPECT_EQ(pacing.next(SavePacing::Instant{10'249ms}), SavePacing::Instant{10'250ms});
}

TEST(SavePacing, LetsASaveStartAtOnceAfterARest)
{
    SavePacing const pacing{.lastSave = SavePacing::Instant{10s}};
    EXPECT_EQ(pacing.next(SavePacing::Instant{10'251ms}), SavePacing::Instant{10'251ms});
}

TEST(SaveWorker, RunsTheFirstRequestWithoutBeingFlushed)
{
    CountingJob job;
    SaveWorker worker{std::ref(job), never};
    worker.request();
    job.waitForRuns(1);
    EXPECT_EQ(job.runs(), 1);
}

TEST(SaveWorker, RunsAgainForARequestWithinTheGapOnceTheGapHasPassed)
{
    CountingJob job;
    SaveWorker worker{std::ref(job), {.gap = 20ms}};
    worker.request();
    job.waitForRuns(1);
    worker.request();
    job.waitForRuns(2);
    EXPECT_EQ(job.runs(), 2);
}

TEST(SaveWorker, RunsAtMostOncePerGapHoweverOftenItIsAsked)
{
    CountingJob job;
    SaveWorker worker{std::ref(job), {.gap = 50ms}};
    auto const start = std::chrono::steady_clock::now();
    while (job.runs() < 5)
        worker.request();
    EXPECT_GE(std::chrono::steady_clock::now() - start, 4 * 50ms);
}

TEST(SaveWorker, RunsAtMostTwiceForABurstThatAFlushEnds)
{
    CountingJob job;
    SaveWorker worker{std::ref(job), never};
    for (int i = 0; i < 10'000; ++i)
        worker.request();
    worker.flush();
    EXPECT_GE(job.runs(), 1);
    EXPECT_LE(job.runs(), 2);
}

TEST(SaveWorker, FlushReturnsAfterARunThatBeganAfterTheRequest)
{
    std::atomic<int> value = 0;
    std::atomic<int> saved = -1;
    SaveWorker worker{[&] {
                          saved = value.load();
                          return true;
                      },
        never};
    for (int i = 1; i <= 1000; ++i) {
        value = i;
        worker.request();
        worker.flush();
        ASSERT_EQ(saved, i);
    }
}

TEST(SaveWorker, FlushRunsNothingWhenNothingWasAsked)
{
    CountingJob job;
    SaveWorker worker{std::ref(job)};
    worker.flush();
    EXPECT_EQ(job.runs(), 0);
    worker.request();
    worker.flush();
    worker.flush();
    EXPECT_EQ(job.runs(), 1);
}

TEST(SaveWorker, FlushTriesAFailedRunOnceMoreAndReturns)
{
    CountingJob job;
    job.setSucceeds(false);
    SaveWorker worker{std::ref(job), never};
    worker.request();
    worker.flush();
    int const before = job.runs();
    worker.flush();
    EXPECT_EQ(job.runs(), before + 1);
    job.setSucceeds(true);
    worker.flush();
    worker.flush();
    EXPECT_EQ(job.runs(), before + 2);
}

TEST(SaveWorker, RepeatsAFailedRunOnceWhenItEndsAndNotByItself)
{
    CountingJob job;
    job.setSucceeds(false);
    int before = 0;
    {
        SaveWorker worker{std::ref(job), {.gap = 0ms}};
        worker.request();
        worker.flush();
        before = job.runs();
        EXPECT_LE(before, 2);
    }
    EXPECT_EQ(job.runs(), before + 1);
}

TEST(SaveWorker, RunsAnOpenRequestBeforeItEnds)
{
    CountingJob job;
    {
        SaveWorker worker{std::ref(job), never};
        worker.request();
        job.waitForRuns(1);
        worker.request();
    }
    EXPECT_EQ(job.runs(), 2);
}

TEST(SaveWorker, TakesNoSignals)
{
    std::promise<sigset_t> blocked;
    SaveWorker worker{[&] {
        sigset_t set;
        pthread_sigmask(SIG_SETMASK, nullptr, &set);
        blocked.set_value(set);
        return true;
    }};
    worker.request();
    auto const set = blocked.get_future().get();
    for (int const signal : {SIGTERM, SIGINT, SIGHUP, SIGCHLD, SIGUSR1, SIGXFSZ})
        EXPECT_EQ(sigismember(&set, signal), 1) << signal;
    sigset_t own;
    pthread_sigmask(SIG_SETMASK, nullptr, &own);
    EXPECT_EQ(sigismember(&own, SIGTERM), 0);
}

} // namespace velmora
