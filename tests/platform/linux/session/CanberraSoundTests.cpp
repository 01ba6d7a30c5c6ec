#include "Velmora/platform/linux/session/CanberraSound.h"

#include "tests/platform/linux/session/Eventually.h"
#include "tests/platform/linux/session/PrivateSoundServer.h"

#include <QElapsedTimer>
#include <QSocketNotifier>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <stdexcept>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

/// Far below the time that a hung server would take, far above a thread's hand-over.
constexpr qint64 atOnce = 100;

double decibelsOf(std::vector<std::int16_t> const& samples)
{
    double loudest = 0;
    for (auto const sample : samples)
        loudest = std::max(loudest, std::abs(sample / 32768.0));
    return 20 * std::log10(loudest);
}

/// The loudest sample of the chime itself.
double chimeDecibels()
{
    std::ifstream stream(VELMORA_CHIME, std::ios::binary);
    std::string const bytes{std::istreambuf_iterator<char>(stream), {}};
    std::vector<std::int16_t> samples;
    for (std::size_t i = 44; i + 1 < bytes.size(); i += 2)
        samples.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(bytes[i])
            | static_cast<unsigned>(static_cast<unsigned char>(bytes[i + 1])) << 8U));
    return decibelsOf(samples);
}

void playFromStart(SoundPlayer& player, float volume)
{
    player.setVolume(volume);
    player.rewind();
    player.play();
}

/// Runs the event loop until nothing has sounded for a fifth of a second after something did.
bool soundedAndEnded(Recording& recording)
{
    return eventually([&] {
        auto const& samples = recording.samples();
        auto const isSound = [](std::int16_t sample) { return std::abs(sample) > 3; };
        auto const last = std::find_if(samples.rbegin(), samples.rend(), isSound);
        return last != samples.rend() && last - samples.rbegin() > 9600;
    });
}

TEST(CanberraSound, LoadsAWavFileAndNothingElse)
{
    TemporaryFolder const folder;
    CanberraSound sound;
    EXPECT_TRUE(sound.load(VELMORA_CHIME));
    EXPECT_FALSE(sound.load(folder.path() / "missing.wav"));
    EXPECT_FALSE(sound.load(folder.path()));
    EXPECT_FALSE(sound.load("/dev/zero"));
    std::ofstream(folder.path() / "text.wav") << "this is no sound";
    EXPECT_FALSE(sound.load(folder.path() / "text.wav"));
    std::ofstream const empty(folder.path() / "empty.wav");
    EXPECT_FALSE(sound.load(folder.path() / "empty.wav"));
}

TEST(CanberraSound, WithoutAServerEveryCallReturnsAtOnceAndNothingIsSaid)
{
    TemporaryFolder const folder;
    qputenv("PULSE_SERVER", "unix:" + QByteArray::fromStdString(folder.path().string()) + "/none");
    testing::internal::CaptureStderr();
    QElapsedTimer timer;
    timer.start();
    {
        auto const player = CanberraSound().load(VELMORA_CHIME);
        player->prepare();
        for (int i = 0; i < 20; ++i)
            playFromStart(*player, 1);
    }
    EXPECT_LT(timer.elapsed(), 10 * atOnce);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    qunsetenv("PULSE_SERVER");
}

/// A sound server that hangs up on everyone who calls.
class RudeServer {
public:
    explicit RudeServer(fs::path const& address)
        : m_listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
        , m_called(m_listener, QSocketNotifier::Read)
    {
        sockaddr_un name{};
        name.sun_family = AF_UNIX;
        address.string().copy(name.sun_path, sizeof name.sun_path - 1);
        if (bind(m_listener, reinterpret_cast<sockaddr const*>(&name), sizeof name) != 0
            || listen(m_listener, 8) != 0)
            throw std::runtime_error("no server at " + address.string());
        QObject::connect(&m_called, &QSocketNotifier::activated, &m_called, [this] {
            ++calls;
            close(accept(m_listener, nullptr, nullptr));
        });
    }
    RudeServer(RudeServer const&) = delete;
    RudeServer& operator=(RudeServer const&) = delete;
    ~RudeServer()
    {
        m_called.setEnabled(false);
        close(m_listener);
    }

    int calls = 0;

private:
    int m_listener;
    QSocketNotifier m_called;
};

TEST(CanberraSound, AServerThatHangsUpIsTriedAgainByTheNextChimeAndNothingIsSaid)
{
    TemporaryFolder const folder;
    auto const address = folder.path() / "native";
    RudeServer const server(address);
    qputenv("PULSE_SERVER", "unix:" + QByteArray::fromStdString(address.string()));
    testing::internal::CaptureStderr();
    auto const player = CanberraSound().load(VELMORA_CHIME);
    for (int expected = 1; expected <= 3; ++expected) {
        playFromStart(*player, 1);
        EXPECT_TRUE(eventually([&] { return server.calls >= expected; }));
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    qunsetenv("PULSE_SERVER");
}

struct CanberraSoundTest : testing::Test {
    PrivateSoundServer server;
    CanberraSound sound;
    std::unique_ptr<SoundPlayer> player = sound.load(VELMORA_CHIME);
};

TEST_F(CanberraSoundTest, SoundsAsLoudAsTheVolumeSaysAndToTheEnd)
{
    for (auto const& [volume, expected] :
        {std::pair(1.0F, 0.0), std::pair(0.55F, -5.2), std::pair(0.1F, -20.0)}) {
        Recording recording;
        playFromStart(*player, volume);
        ASSERT_TRUE(soundedAndEnded(recording));
        EXPECT_NEAR(decibelsOf(recording.samples()) - chimeDecibels(), expected, 0.3) << volume;
    }
}

TEST_F(CanberraSoundTest, AVolumeOfNothingPlaysUnheard)
{
    Recording recording;
    playFromStart(*player, 0);
    EXPECT_TRUE(eventually([&] { return server.streams() == 1; }));
    EXPECT_TRUE(eventually([&] { return server.streams() == 0; }));
    auto const& samples = recording.samples();
    EXPECT_TRUE(std::all_of(samples.begin(), samples.end(), [](auto s) { return s == 0; }));
}

TEST_F(CanberraSoundTest, ASecondChimeRestartsTheFirst)
{
    Recording recording;
    playFromStart(*player, 1);
    EXPECT_TRUE(eventually([&] { return server.streams() == 1; }));
    auto const isLoud = [](auto s) { return std::abs(s) > 4000; };
    ASSERT_TRUE(eventually([&] {
        auto const& samples = recording.samples();
        auto const first = std::find_if(samples.begin(), samples.end(), isLoud);
        return samples.end() - first > 48000;
    }));
    playFromStart(*player, 1);
    ASSERT_TRUE(soundedAndEnded(recording));
    auto const& samples = recording.samples();
    auto const first = std::find_if(samples.begin(), samples.end(), isLoud);
    auto const lastLoud = std::find_if(samples.rbegin(), samples.rend(), isLoud).base();
    // The stroke comes a second time, later than the first sound is loud by itself.
    EXPECT_GT(lastLoud - first, 48000);
    // Two chimes on top of each other would be louder than one.
    EXPECT_NEAR(decibelsOf(samples), chimeDecibels(), 0.3);
}

TEST_F(CanberraSoundTest, PlaysOnAfterItsFileIsGone)
{
    TemporaryFolder const folder;
    auto const file = folder.path() / "chime.wav";
    fs::copy_file(VELMORA_CHIME, file);
    auto const held = sound.load(file);
    fs::remove(file);
    Recording recording;
    playFromStart(*held, 1);
    EXPECT_TRUE(soundedAndEnded(recording));
}

TEST_F(CanberraSoundTest, SoundsAgainAfterTheServerRestarted)
{
    {
        Recording recording;
        playFromStart(*player, 1);
        ASSERT_TRUE(soundedAndEnded(recording));
    }
    server.stop();
    playFromStart(*player, 1);
    server.start();
    Recording recording;
    playFromStart(*player, 1);
    EXPECT_TRUE(soundedAndEnded(recording));
}

TEST_F(CanberraSoundTest, AServerThatIsKilledWhileItSoundsDoesNoHarm)
{
    playFromStart(*player, 1);
    EXPECT_TRUE(eventually([&] { return server.streams() == 1; }));
    server.stop();
    server.start();
    Recording recording;
    playFromStart(*player, 1);
    EXPECT_TRUE(soundedAndEnded(recording));
}

TEST_F(CanberraSoundTest, AHungServerKeepsNobodyWaiting)
{
    server.hang();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 20; ++i)
        playFromStart(*player, 1);
    EXPECT_LT(timer.elapsed(), atOnce);
    timer.restart();
    player.reset();
    EXPECT_LT(timer.elapsed(), 10 * atOnce);
}

TEST_F(CanberraSoundTest, SoundsAgainWhenAHungServerGoesOn)
{
    server.hang();
    playFromStart(*player, 1);
    server.resume();
    Recording recording;
    playFromStart(*player, 1);
    EXPECT_TRUE(soundedAndEnded(recording));
}

TEST_F(CanberraSoundTest, LeavesNoConnectionOpenAfterTheSound)
{
    playFromStart(*player, 1);
    auto const clients = [this] { return server.clients(); };
    EXPECT_TRUE(eventually([&] { return clients().contains("com.local.velmora"); }));
    EXPECT_TRUE(eventually([&] { return !clients().contains("com.local.velmora"); }));
}

} // namespace
} // namespace velmora
