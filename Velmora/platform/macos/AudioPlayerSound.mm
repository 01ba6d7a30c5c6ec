#include "Velmora/platform/macos/AudioPlayerSound.h"

#include "Velmora/platform/macos/FoundationText.h"

#import <AVFoundation/AVFoundation.h>

namespace velmora {

namespace {

/// Owns the player that it is given.
class LoadedSound final : public SoundPlayer {
public:
    explicit LoadedSound(AVAudioPlayer* player)
        : m_player(player)
    {
    }
    LoadedSound(LoadedSound const&) = delete;
    LoadedSound& operator=(LoadedSound const&) = delete;
    ~LoadedSound() override { [m_player release]; }

    void prepare() override { [m_player prepareToPlay]; }
    void setVolume(float volume) override { [m_player setVolume:volume]; }
    void rewind() override { [m_player setCurrentTime:0]; }
    void play() override { [m_player play]; }

private:
    AVAudioPlayer* m_player;
};

} // namespace

std::unique_ptr<SoundPlayer> AudioPlayerSound::load(std::filesystem::path const& file)
{
    @autoreleasepool {
        AVAudioPlayer* const player = [[AVAudioPlayer alloc] initWithContentsOfURL:fileUrl(file)
                                                                             error:nil];
        return player ? std::make_unique<LoadedSound>(player) : nullptr;
    }
}

} // namespace velmora
