#pragma once

#include "Velmora/platform/Resources.h"
#include "Velmora/platform/SoundPlayer.h"
#include "Velmora/platform/StandardError.h"

#include <memory>

namespace velmora {

/// The short sound that marks the start of a reminder.
///
/// The sound is loaded once and kept for the life of the process. While it cannot be loaded the
/// chime is silent, every call tries again, and standard error is told once.
class ChimePlayer {
public:
    ChimePlayer(Resources const& resources, SoundLoader& loader, StandardError& standardError);

    /// Loads the sound if it is not loaded yet, so that the first chime comes without delay.
    void prepare();

    /// Plays the chime from its beginning, also when it is still sounding. `volume` is linear
    /// amplitude, 0 to 1; more counts as 1, less and what is not a number as 0. At 0 the chime
    /// still plays, unheard.
    void play(double volume);

private:
    SoundPlayer* load();
    void reportMissing();

    Resources const& m_resources;
    SoundLoader& m_loader;
    StandardError& m_standardError;
    std::unique_ptr<SoundPlayer> m_player;
    bool m_reportedMissing = false;
};

} // namespace velmora
