#pragma once

#include "Velmora/platform/SoundPlayer.h"

namespace velmora {

/// Loads sounds into the system's audio player.
class AudioPlayerSound final : public SoundLoader {
public:
    [[nodiscard]] std::unique_ptr<SoundPlayer> load(std::filesystem::path const& file) override;
};

} // namespace velmora
