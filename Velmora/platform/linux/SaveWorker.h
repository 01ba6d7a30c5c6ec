#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace velmora {

/// When the next save may start, given when the last one ended.
struct SavePacing {
    using Instant = std::chrono::steady_clock::time_point;

    std::chrono::milliseconds gap{250};
    std::optional<Instant> lastSave;

    /// The earliest instant of the next save: `now` itself for the first one and after a rest.
    [[nodiscard]] Instant next(Instant now) const
    {
        return lastSave && *lastSave + gap > now ? *lastSave + gap : now;
    }
};

/// Runs one job, a save, on a thread of its own: soon after it was asked for, and at most once per
/// gap however often that is.
///
/// The thread starts with the first request, takes no signals and sleeps without a timeout while
/// there is nothing to do. Requests and flushes come from one thread. A job that failed is not
/// repeated by itself: the next request or flush is its next occasion.
class SaveWorker {
public:
    /// The job returns whether it succeeded; it never runs twice at a time.
    explicit SaveWorker(std::function<bool()> job, SavePacing pacing = {});
    /// Flushes, then ends the thread.
    ~SaveWorker();
    SaveWorker(SaveWorker const&) = delete;
    SaveWorker(SaveWorker&&) = delete;
    SaveWorker& operator=(SaveWorker const&) = delete;
    SaveWorker& operator=(SaveWorker&&) = delete;

    /// Asks for a run of the job that starts after this call, and returns at once.
    void request();

    /// Runs the job now, without regard to the gap, if a request is open or the last run failed;
    /// returns when that run has ended, well or badly.
    void flush();

private:
    void startThread();
    void loop();
    void runJob(std::unique_lock<std::mutex>& lock);
    [[nodiscard]] bool isDue() const { return m_requested || m_failed; }
    [[nodiscard]] bool isHurried() const { return m_stopping || m_flushesAsked != m_flushesDone; }

    std::function<bool()> m_job;
    SavePacing m_pacing;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::condition_variable m_flushed;
    bool m_requested = false;
    bool m_failed = false;
    bool m_stopping = false;
    std::uint64_t m_flushesAsked = 0;
    std::uint64_t m_flushesDone = 0;
    std::thread m_thread;
};

} // namespace velmora
