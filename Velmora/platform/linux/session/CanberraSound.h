#pragma once

#include "Velmora/platform/SoundPlayer.h"

namespace velmora {

/// Loads WAV files and plays them through libcanberra on the sound server.
///
/// A loaded sound lives in memory. It is played by a thread of its own, so that a server that is
/// slow, hung, restarting or absent never keeps the caller waiting; what could not be played within
/// a few seconds is dropped, and the next play tries anew.
class CanberraSound final : public SoundLoader {
public:
    [[nodiscard]] std::unique_ptr<SoundPlayer> load(std::filesystem::path const& file) override;
};

} // namespace velmora
