#pragma once

#include "Velmora/platform/SoundPlayer.h"

#include <string>
#include <vector>

namespace velmora {

/// A sound system that loads what the test says and writes down what was asked of the players.
class FakeSound final : public SoundLoader {
public:
    [[nodiscard]] std::unique_ptr<SoundPlayer> load(std::filesystem::path const& file) override
    {
        loaded.push_back(file);
        if (!playable)
            return nullptr;
        return std::make_unique<Player>(*this);
    }

    /// Whether the files can be decoded.
    bool playable = true;
    /// Every file that was tried, in order.
    std::vector<std::filesystem::path> loaded;
    /// What the players were told, in order: "prepare", "volume", "rewind", "play".
    std::vector<std::string> calls;
    /// The arguments of "volume".
    std::vector<float> volumes;

private:
    class Player final : public SoundPlayer {
    public:
        explicit Player(FakeSound& sound)
            : m_sound(sound)
        {
        }

        void prepare() override { m_sound.calls.emplace_back("prepare"); }

        void setVolume(float volume) override
        {
            m_sound.calls.emplace_back("volume");
            m_sound.volumes.push_back(volume);
        }

        void rewind() override { m_sound.calls.emplace_back("rewind"); }

        void play() override { m_sound.calls.emplace_back("play"); }

    private:
        FakeSound& m_sound;
    };
};

} // namespace velmora
