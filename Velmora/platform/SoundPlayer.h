#pragma once

#include <filesystem>
#include <memory>

namespace velmora {

/// One loaded sound. Everything but loading returns at once, whatever state the sound server is in.
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;

    /// Readies what can be readied so that the first `play` starts without delay.
    virtual void prepare() = 0;

    /// The loudness of the next `play`: linear amplitude, 0 (silent) to 1 (as recorded).
    virtual void setVolume(float volume) = 0;

    /// Makes the next `play` start at the sound's beginning, also when it is sounding now.
    virtual void rewind() = 0;

    /// Starts sounding; heard nowhere when there is no sound server.
    virtual void play() = 0;
};

/// Loads sounds for playing.
class SoundLoader {
public:
    virtual ~SoundLoader() = default;

    /// A player that holds the file's sound from now on, also when the file changes or goes; none
    /// when the file cannot be read or is no sound.
    [[nodiscard]] virtual std::unique_ptr<SoundPlayer> load(std::filesystem::path const& file) = 0;
};

} // namespace velmora
