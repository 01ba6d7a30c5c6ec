#pragma once

#include "Velmora/platform/SoundPlayer.h"

#include <string>

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

/// A linear amplitude (0 to 1) as the decibels that the sound server takes, written the way the
/// process's locale writes numbers, because that is how they are read again: 0.1 is "-20.00", and 0
/// the server's word for silence, "-200".
[[nodiscard]] std::string decibels(float amplitude);

} // namespace velmora
