#include "Velmora/platform/linux/session/CanberraSound.h"

#include "Velmora/platform/linux/session/SoundWorker.h"
#include "Velmora/platform/linux/session/WaveFile.h"

#include <fstream>
#include <iterator>
#include <utility>
#include <vector>

namespace velmora {

namespace fs = std::filesystem;

namespace {

/// The whole file; empty when it cannot be read or is too large to be a chime.
std::vector<unsigned char> readFile(fs::path const& file)
{
    constexpr std::uintmax_t largest = 64U << 20U;
    std::error_code error;
    if (!fs::is_regular_file(file, error) || fs::file_size(file, error) > largest || error)
        return {};
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class CanberraPlayer final : public SoundPlayer {
public:
    explicit CanberraPlayer(std::vector<unsigned char> wave)
        : m_worker(std::move(wave))
    {
    }

    /// The sound is in memory and the thread waits: nothing is left to do.
    void prepare() override { }

    void setVolume(float volume) override { m_volume = volume; }

    /// A play always starts at the beginning and ends the one before it.
    void rewind() override { }

    void play() override { m_worker.play(m_volume); }

private:
    float m_volume = 1;
    SoundWorker m_worker;
};

} // namespace

std::unique_ptr<SoundPlayer> CanberraSound::load(fs::path const& file)
{
    auto bytes = readFile(file);
    return readWave(bytes) ? std::make_unique<CanberraPlayer>(std::move(bytes)) : nullptr;
}

} // namespace velmora
