#include "Velmora/services/ChimePlayer.h"

#include "tests/fakes/FakeResources.h"
#include "tests/fakes/FakeSound.h"
#include "tests/fakes/FakeStandardError.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

constexpr char const* missing = "Velmora: chime.wav is missing from the app.\n";

struct ChimePlayerTest : testing::Test {
    /// The volume that the sound system gets for a volume setting.
    float heard(double volume)
    {
        chime.play(volume);
        return sound.volumes.back();
    }

    FakeResources resources;
    FakeSound sound;
    FakeStandardError standardError;
    ChimePlayer chime{resources, sound, standardError};
};

using Calls = std::vector<std::string>;

TEST_F(ChimePlayerTest, PrepareLoadsTheChimeAndMakesNoSound)
{
    chime.prepare();
    EXPECT_EQ(resources.lookedUp, Calls{"chime.wav"});
    EXPECT_EQ(sound.loaded.size(), 1U);
    EXPECT_EQ(sound.calls, Calls{"prepare"});
    EXPECT_EQ(standardError.text, "");
}

TEST_F(ChimePlayerTest, PreparingTwiceLoadsOnce)
{
    chime.prepare();
    chime.prepare();
    EXPECT_EQ(sound.loaded.size(), 1U);
    EXPECT_EQ(sound.calls, Calls{"prepare"});
}

TEST_F(ChimePlayerTest, PlayingUnpreparedLoadsFirst)
{
    chime.play(0.5);
    EXPECT_EQ(sound.calls, (Calls{"prepare", "volume", "rewind", "play"}));
    EXPECT_EQ(sound.loaded, std::vector<std::filesystem::path>{"/program/chime.wav"});
}

TEST_F(ChimePlayerTest, ASecondChimeRestartsTheOneSoundFromItsBeginning)
{
    chime.play(0.5);
    chime.play(0.5);
    EXPECT_EQ(sound.loaded.size(), 1U);
    EXPECT_EQ(
        sound.calls, (Calls{"prepare", "volume", "rewind", "play", "volume", "rewind", "play"}));
}

TEST_F(ChimePlayerTest, VolumesFromZeroToOneAreKept)
{
    EXPECT_EQ(heard(0), 0.0F);
    EXPECT_EQ(heard(0.1), 0.1F);
    EXPECT_EQ(heard(0.55), 0.55F);
    EXPECT_EQ(heard(1), 1.0F);
}

TEST_F(ChimePlayerTest, AVolumeAboveOneCountsAsOne)
{
    EXPECT_EQ(heard(1.7), 1.0F);
    EXPECT_EQ(heard(std::numeric_limits<double>::infinity()), 1.0F);
}

TEST_F(ChimePlayerTest, ANegativeVolumeCountsAsZeroAndStillPlays)
{
    EXPECT_EQ(heard(-0.2), 0.0F);
    EXPECT_EQ(sound.calls.back(), "play");
    EXPECT_EQ(heard(-std::numeric_limits<double>::infinity()), 0.0F);
}

TEST_F(ChimePlayerTest, AVolumeThatIsNotANumberCountsAsZero)
{
    EXPECT_EQ(heard(std::numeric_limits<double>::quiet_NaN()), 0.0F);
}

TEST_F(ChimePlayerTest, AMissingSoundIsReportedOnceHoweverOftenItIsPlayed)
{
    resources.file.reset();
    chime.prepare();
    for (int i = 0; i < 10; ++i)
        chime.play(0.5);
    EXPECT_EQ(standardError.text, missing);
    EXPECT_TRUE(sound.calls.empty());
    EXPECT_EQ(resources.lookedUp.size(), 11U);
}

TEST_F(ChimePlayerTest, AFileThatIsNoSoundIsReportedInTheSameWordsOnce)
{
    sound.playable = false;
    chime.prepare();
    chime.play(0.5);
    EXPECT_EQ(standardError.text, missing);
    EXPECT_TRUE(sound.calls.empty());
    EXPECT_EQ(sound.loaded.size(), 2U);
}

TEST_F(ChimePlayerTest, AFilePutBackIsPlayedByTheNextChime)
{
    resources.file.reset();
    chime.play(0.5);
    resources.file = "/elsewhere/chime.wav";
    chime.play(0.5);
    EXPECT_EQ(sound.loaded, std::vector<std::filesystem::path>{"/elsewhere/chime.wav"});
    EXPECT_EQ(sound.calls, (Calls{"prepare", "volume", "rewind", "play"}));
}

TEST_F(ChimePlayerTest, MissingAgainAfterAnUnreadableFileIsNotReportedAgain)
{
    sound.playable = false;
    chime.play(0.5);
    resources.file.reset();
    chime.play(0.5);
    EXPECT_EQ(standardError.text, missing);
}

TEST_F(ChimePlayerTest, ALoadedSoundPlaysOnAfterItsFileIsGone)
{
    chime.prepare();
    resources.file.reset();
    chime.play(0.5);
    EXPECT_EQ(sound.calls.back(), "play");
    EXPECT_EQ(standardError.text, "");
}

} // namespace
} // namespace velmora
