#pragma once

#include <memory>
#include <thread>
#include <vector>

namespace velmora {

/// The thread that talks to the sound server about one sound.
class SoundWorker {
public:
    /// `wave` holds the bytes of a WAV file.
    explicit SoundWorker(std::vector<unsigned char> wave);

    SoundWorker(SoundWorker const&) = delete;
    SoundWorker& operator=(SoundWorker const&) = delete;

    /// Ends the sound. A thread that a hung server keeps busy is left to itself.
    ~SoundWorker();

    /// Asks for the sound from its beginning, in place of what sounds now; returns at once.
    /// `volume` is linear amplitude, 0 to 1, of the sound itself: the server's own volume for
    /// sounds of this kind stays what the user made it.
    void play(float volume);

private:
    struct State;
    static void run(std::shared_ptr<State> const& state);

    std::shared_ptr<State> m_state;
    std::thread m_thread;
};

} // namespace velmora
