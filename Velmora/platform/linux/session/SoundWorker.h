#pragma once

#include <memory>
#include <thread>

namespace velmora {

/// The thread that talks to the sound server about one sound.
class SoundWorker {
public:
    /// Takes over `descriptor`, an open file that holds the sound.
    explicit SoundWorker(int descriptor);

    SoundWorker(SoundWorker const&) = delete;
    SoundWorker& operator=(SoundWorker const&) = delete;

    /// Ends the sound. A thread that a hung server keeps busy is left to itself.
    ~SoundWorker();

    /// Asks for the sound from its beginning, in place of what sounds now; returns at once.
    /// `volume` is linear amplitude, 0 to 1.
    void play(float volume);

private:
    struct State;
    static void run(std::shared_ptr<State> const& state);

    std::shared_ptr<State> m_state;
    std::thread m_thread;
};

} // namespace velmora
