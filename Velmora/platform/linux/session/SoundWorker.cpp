#include "Velmora/platform/linux/session/SoundWorker.h"

#include "Velmora/platform/linux/Descriptor.h"
#include "Velmora/platform/linux/session/WaveFile.h"

#include <canberra.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <system_error>
#include <utility>

#include <sys/mman.h>
#include <unistd.h>

namespace velmora {

using Instant = std::chrono::steady_clock;

/// What the caller and the thread share; it lives as long as either of them.
struct SoundWorker::State {
    struct Request {
        float volume = 0;
        Instant::time_point asked;
    };

    explicit State(std::vector<unsigned char> bytes)
        : wave(std::move(bytes))
    {
    }

    std::vector<unsigned char> const wave;
    std::mutex mutex;
    std::condition_variable wake;
    /// The latest request that the thread has not taken yet.
    std::optional<Request> request;
    /// Which play is sounding; its end makes `ended` true.
    std::uint32_t playing = 0;
    bool ended = false;
    bool quit = false;
    bool gone = false;
};

namespace {

/// Later than this a chime would only surprise.
constexpr auto longestDelay = std::chrono::seconds(5);

struct Destroy {
    void operator()(ca_context* context) const { ca_context_destroy(context); }
};

/// A connection to the sound server. A fresh one for each play survives a server that restarted.
using Context = std::unique_ptr<ca_context, Destroy>;

struct Discard {
    void operator()(ca_proplist* properties) const { ca_proplist_destroy(properties); }
};

Context openContext()
{
    ca_context* created = nullptr;
    if (ca_context_create(&created) != CA_SUCCESS)
        return nullptr;
    Context context(created);
    // The other drivers speak up on standard error where they find no device.
    ca_context_set_driver(created, "pulse");
    ca_context_change_props(created, CA_PROP_APPLICATION_NAME, "Velmora", CA_PROP_APPLICATION_ID,
        "com.local.velmora", nullptr);
    return context;
}

/// A file in memory that only this process knows; none when there is no memory for it.
Descriptor holdInMemory(std::span<unsigned char const> bytes)
{
    Descriptor file(memfd_create("chime", MFD_CLOEXEC));
    while (file && !bytes.empty()) {
        auto const written = write(file.number(), bytes.data(), bytes.size());
        if (written <= 0)
            return {};
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return file;
}

/// Starts the sound that the file holds; `finished` is called with `data` at its end, if it
/// started.
bool start(ca_context* context, std::uint32_t number, Descriptor const& file,
    ca_finish_callback_t finished, void* data)
{
    ca_proplist* created = nullptr;
    if (ca_proplist_create(&created) != CA_SUCCESS)
        return false;
    std::unique_ptr<ca_proplist, Discard> const properties(created);
    // Every opening of this name starts reading at the beginning.
    auto const name = "/proc/self/fd/" + std::to_string(file.number());
    ca_proplist_sets(created, CA_PROP_MEDIA_FILENAME, name.c_str());
    ca_proplist_sets(created, CA_PROP_MEDIA_NAME, "Chime");
    ca_proplist_sets(created, CA_PROP_MEDIA_ROLE, "event");
    return ca_context_play_full(context, number, created, finished, data) == CA_SUCCESS;
}

} // namespace

SoundWorker::SoundWorker(std::vector<unsigned char> wave)
    : m_state(std::make_shared<State>(std::move(wave)))
{
    try {
        m_thread = std::thread([state = m_state] { run(state); });
    } catch (std::system_error const&) {
        // No thread, no sound; the program goes on.
        m_state->gone = true;
    }
}

SoundWorker::~SoundWorker()
{
    if (!m_thread.joinable())
        return;
    bool gone = false;
    {
        std::unique_lock lock(m_state->mutex);
        m_state->quit = true;
        m_state->wake.notify_all();
        constexpr auto patience = std::chrono::milliseconds(500);
        gone = m_state->wake.wait_for(lock, patience, [this] { return m_state->gone; });
    }
    if (gone)
        m_thread.join();
    else
        m_thread.detach();
}

void SoundWorker::play(float volume)
{
    std::lock_guard const lock(m_state->mutex);
    m_state->request = {.volume = volume, .asked = Instant::now()};
    m_state->wake.notify_all();
}

void SoundWorker::run(std::shared_ptr<State> const& state)
{
    auto const finished = [](ca_context*, std::uint32_t number, int, void* data) {
        auto& shared = *static_cast<State*>(data);
        std::lock_guard const lock(shared.mutex);
        shared.ended = shared.ended || number == shared.playing;
        shared.wake.notify_all();
    };
    Descriptor sound;
    Context context;
    std::unique_lock lock(state->mutex);
    while (!state->quit) {
        state->wake.wait(
            lock, [&] { return state->quit || state->request || (context && state->ended); });
        auto const request = std::exchange(state->request, std::nullopt);
        auto const number = ++state->playing;
        state->ended = false;
        // The sound library calls back under its own lock and must not meet this one.
        lock.unlock();
        context.reset();
        if (request && Instant::now() - request->asked < longestDelay) {
            // A server may give a stream the volume that it remembers, whatever is asked for: the
            // samples themselves are as loud as they are to be.
            sound = holdInMemory(quieterWave(state->wave, request->volume));
            context = sound ? openContext() : nullptr;
            if (context && !start(context.get(), number, sound, finished, state.get()))
                context.reset();
        }
        lock.lock();
    }
    lock.unlock();
    context.reset();
    lock.lock();
    state->gone = true;
    state->wake.notify_all();
}

} // namespace velmora
