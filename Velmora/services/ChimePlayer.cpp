#include "Velmora/services/ChimePlayer.h"

#include <algorithm>

namespace velmora {

ChimePlayer::ChimePlayer(
    Resources const& resources, SoundLoader& loader, StandardError& standardError)
    : m_resources(resources)
    , m_loader(loader)
    , m_standardError(standardError)
{
}

void ChimePlayer::prepare()
{
    load();
}

void ChimePlayer::play(double volume)
{
    auto* const player = load();
    if (!player)
        return;
    // The comparison is false for a value that is not a number as well.
    double const audible = volume >= 0 ? std::min(volume, 1.0) : 0.0;
    player->setVolume(static_cast<float>(audible));
    player->rewind();
    player->play();
}

SoundPlayer* ChimePlayer::load()
{
    if (m_player)
        return m_player.get();
    auto const file = m_resources.find("chime", "wav");
    auto player = file ? m_loader.load(*file) : nullptr;
    if (!player) {
        reportMissing();
        return nullptr;
    }
    player->prepare();
    m_player = std::move(player);
    return m_player.get();
}

void ChimePlayer::reportMissing()
{
    if (m_reportedMissing)
        return;
    m_reportedMissing = true;
    m_standardError.write("Velmora: chime.wav is missing from the app.\n");
}

} // namespace velmora
