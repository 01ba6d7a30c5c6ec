#include "Velmora/platform/linux/SaveWorker.h"

#include <csignal>
#include <system_error>
#include <utility>

namespace velmora {

namespace {

/// Blocks every signal in the calling thread for as long as it lives; a thread that is started
/// meanwhile has them blocked for good, so that they all reach the main thread.
class BlockedSignals {
public:
    BlockedSignals()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &m_before);
    }
    ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    BlockedSignals(BlockedSignals const&) = delete;
    BlockedSignals(BlockedSignals&&) = delete;
    BlockedSignals& operator=(BlockedSignals const&) = delete;
    BlockedSignals& operator=(BlockedSignals&&) = delete;

private:
    sigset_t m_before = {};
};

} // namespace

SaveWorker::SaveWorker(std::function<bool()> job, SavePacing pacing)
    : m_job(std::move(job))
    , m_pacing(pacing)
{
}

SaveWorker::~SaveWorker()
{
    flush();
    {
        std::lock_guard const lock{m_mutex};
        m_stopping = true;
    }
    m_wake.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

void SaveWorker::request()
{
    {
        std::lock_guard const lock{m_mutex};
        m_requested = true;
        if (!m_thread.joinable())
            startThread();
    }
    m_wake.notify_one();
}

void SaveWorker::flush()
{
    std::unique_lock lock{m_mutex};
    if (!m_thread.joinable()) {
        // No thread could be had: the caller has to wait for the disk itself.
        if (isDue())
            runJob(lock);
        return;
    }
    auto const mine = ++m_flushesAsked;
    m_wake.notify_one();
    m_flushed.wait(lock, [this, mine] { return m_flushesDone >= mine; });
}

void SaveWorker::startThread()
{
    BlockedSignals const blocked;
    try {
        m_thread = std::thread{[this] { loop(); }};
    } catch (std::system_error const&) {
        // The system is out of threads. The request stays open; the next one tries again, and a
        // flush does without.
    }
}

void SaveWorker::loop()
{
    std::unique_lock lock{m_mutex};
    while (true) {
        m_wake.wait(lock, [this] { return m_requested || isHurried(); });
        if (!isHurried())
            m_wake.wait_until(lock, m_pacing.next(std::chrono::steady_clock::now()),
                [this] { return isHurried(); });
        auto const flushes = m_flushesAsked;
        if (m_requested || (m_failed && flushes != m_flushesDone))
            runJob(lock);
        m_flushesDone = flushes;
        m_flushed.notify_all();
        if (m_stopping && !m_requested)
            return;
    }
}

void SaveWorker::runJob(std::unique_lock<std::mutex>& lock)
{
    m_requested = false;
    lock.unlock();
    bool const succeeded = m_job();
    lock.lock();
    m_failed = !succeeded;
    m_pacing.lastSave = std::chrono::steady_clock::now();
}

} // namespace velmora
