#include "Velmora/platform/linux/session/CanberraSound.h"

#include "Velmora/platform/linux/session/SoundWorker.h"
#include "Velmora/platform/linux/session/WaveFile.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <vector>

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

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

/// A file in memory that only this process knows; -1 when there is no memory for it.
int holdInMemory(std::vector<unsigned char> const& bytes)
{
    int const descriptor = memfd_create("chime", MFD_CLOEXEC);
    if (descriptor < 0)
        return -1;
    std::size_t held = 0;
    while (held < bytes.size()) {
        auto const written = write(descriptor, bytes.data() + held, bytes.size() - held);
        if (written <= 0) {
            close(descriptor);
            return -1;
        }
        held += static_cast<std::size_t>(written);
    }
    return descriptor;
}

class CanberraPlayer final : public SoundPlayer {
public:
    explicit CanberraPlayer(int descriptor)
        : m_worker(descriptor)
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
    auto const bytes = readFile(file);
    if (!readWave(bytes))
        return nullptr;
    int const descriptor = holdInMemory(bytes);
    return descriptor < 0 ? nullptr : std::make_unique<CanberraPlayer>(descriptor);
}

std::string decibels(float amplitude)
{
    if (!(amplitude > 0))
        return "-200";
    std::array<char, 32> text{};
    std::snprintf(
        text.data(), text.size(), "%.2f", 20 * std::log10(static_cast<double>(amplitude)));
    return text.data();
}

} // namespace velmora
