#include "Velmora/platform/linux/session/WaveFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace velmora {
namespace {

using Bytes = std::vector<unsigned char>;

std::string little(std::uint32_t value, int size)
{
    std::string bytes;
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>((value >> (8 * i)) & 0xFFU);
    return bytes;
}

std::string chunk(std::string const& name, std::string const& content)
{
    auto const size = static_cast<std::uint32_t>(content.size());
    return name + little(size, 4) + content + (size % 2 ? std::string(1, '\0') : "");
}

std::string format(
    std::uint32_t kind, std::uint32_t channels, std::uint32_t rate, std::uint32_t bits)
{
    auto const frame = channels * bits / 8;
    return chunk("fmt ",
        little(kind, 2) + little(channels, 2) + little(rate, 4) + little(rate * frame, 4)
            + little(frame, 2) + little(bits, 2));
}

Bytes file(std::string const& chunks)
{
    auto const text
        = "RIFF" + little(static_cast<std::uint32_t>(chunks.size() + 4), 4) + "WAVE" + chunks;
    return {text.begin(), text.end()};
}

TEST(WaveFile, ReadsPlainSamples)
{
    auto const bytes = file(format(1, 2, 44100, 16) + chunk("data", "abcdefgh"));
    auto const wave = readWave(bytes);
    ASSERT_TRUE(wave);
    EXPECT_EQ(wave->channels, 2);
    EXPECT_EQ(wave->rate, 44100U);
    EXPECT_EQ(wave->bitsPerSample, 16);
    EXPECT_EQ(std::string(wave->samples.begin(), wave->samples.end()), "abcdefgh");
}

TEST(WaveFile, PassesOverOtherChunksAlsoOfOddLength)
{
    auto const bytes = file(
        chunk("LIST", "odd") + format(1, 1, 8000, 8) + chunk("fact", "1234") + chunk("data", "ab"));
    auto const wave = readWave(bytes);
    ASSERT_TRUE(wave);
    EXPECT_EQ(wave->samples.size(), 2U);
}

TEST(WaveFile, AFileCutShortKeepsItsWholeFrames)
{
    auto bytes = file(format(1, 2, 44100, 16) + chunk("data", "abcdefgh"));
    bytes.pop_back();
    auto const wave = readWave(bytes);
    ASSERT_TRUE(wave);
    EXPECT_EQ(wave->samples.size(), 4U);
}

TEST(WaveFile, WhatIsNoPlainSoundIsRefused)
{
    EXPECT_FALSE(readWave({}));
    EXPECT_FALSE(readWave(Bytes(1000, 0)));
    EXPECT_FALSE(readWave(file("")));
    EXPECT_FALSE(readWave(file(format(1, 1, 8000, 8))));
    EXPECT_FALSE(readWave(file(chunk("data", "ab"))));
    EXPECT_FALSE(readWave(file(format(1, 1, 8000, 8) + chunk("data", ""))));
    EXPECT_FALSE(readWave(file(format(3, 1, 8000, 32) + chunk("data", "abcd"))));
    EXPECT_FALSE(readWave(file(format(1, 0, 8000, 8) + chunk("data", "ab"))));
    EXPECT_FALSE(readWave(file(format(1, 1, 0, 8) + chunk("data", "ab"))));
    EXPECT_FALSE(readWave(file(format(1, 1, 8000, 12) + chunk("data", "ab"))));
    EXPECT_FALSE(readWave(file(chunk("fmt ", "short") + chunk("data", "ab"))));
}

TEST(WaveFile, EveryPrefixOfAFileIsReadWithoutHarm)
{
    auto const bytes = file(chunk("LIST", "odd") + format(1, 2, 8000, 16) + chunk("data", "abcd"));
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(readWave(std::span(bytes).first(length))) << length;
    EXPECT_TRUE(readWave(bytes));
}

struct Chime : testing::Test {
    Chime()
    {
        std::ifstream stream(VELMORA_CHIME, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(stream), {});
        auto const wave = readWave(bytes);
        if (!wave)
            return;
        format = *wave;
        for (std::size_t i = 0; i + 1 < wave->samples.size(); i += 2)
            samples.push_back(static_cast<std::int16_t>(
                wave->samples[i] | static_cast<unsigned>(wave->samples[i + 1]) << 8U));
    }

    /// The loudest sample between two times, in seconds, as a share of full scale.
    [[nodiscard]] double peak(double from, double to) const
    {
        int loudest = 0;
        auto const last = std::min(samples.size(), static_cast<std::size_t>(to * format.rate));
        for (auto i = static_cast<std::size_t>(from * format.rate); i < last; ++i)
            loudest = std::max(loudest, std::abs(static_cast<int>(samples[i])));
        return loudest / 32768.0;
    }

    Bytes bytes;
    WaveFormat format;
    std::vector<std::int16_t> samples;
};

TEST_F(Chime, IsASmallFileOfOneToTwoSeconds)
{
    ASSERT_EQ(format.channels, 1);
    EXPECT_EQ(format.rate, 48000U);
    EXPECT_EQ(format.bitsPerSample, 16);
    EXPECT_GE(samples.size(), 48000U);
    EXPECT_LE(samples.size(), 96000U);
    EXPECT_LT(bytes.size(), 200'000U);
}

TEST_F(Chime, IsNeitherTooLoudNorTooQuiet)
{
    double const decibels = 20 * std::log10(peak(0, 2));
    EXPECT_LE(decibels, -6);
    EXPECT_GE(decibels, -12);
}

TEST_F(Chime, ClicksAtNeitherEnd)
{
    ASSERT_FALSE(samples.empty());
    EXPECT_LT(std::abs(samples.front()), 33);
    EXPECT_LT(std::abs(samples.back()), 33);
    EXPECT_LT(peak(0, 0.001), 0.05);
    double const length = static_cast<double>(samples.size()) / format.rate;
    EXPECT_LT(peak(length - 0.01, length), 0.002);
}

TEST_F(Chime, IsStruckAtOnceAndFades)
{
    EXPECT_GT(peak(0, 0.1), 0.9 * peak(0, 2));
    EXPECT_LT(peak(1.0, 2.0), 0.35 * peak(0, 2));
    EXPECT_GT(peak(1.0, 1.2), 0.01);
}

std::vector<int> words(Bytes const& bytes)
{
    std::vector<int> samples;
    auto const wave = readWave(bytes);
    for (std::size_t i = 0; i + 1 < wave->samples.size(); i += 2)
        samples.push_back(
            static_cast<std::int16_t>(wave->samples[i] | (wave->samples[i + 1] << 8U)));
    return samples;
}

TEST(WaveFile, AQuieterSoundHasEverySampleScaledAndAllElseAsItWas)
{
    std::string samples;
    for (int const sample : {0, 1000, -1000, 32767, -32768, 3})
        samples += little(static_cast<std::uint16_t>(sample), 2);
    auto const bytes = file(chunk("LIST", "odd") + format(1, 2, 48000, 16) + chunk("data", samples)
        + chunk("end ", "x"));

    EXPECT_EQ(words(quieterWave(bytes, 0.5F)), (std::vector{0, 500, -500, 16384, -16384, 2}));
    EXPECT_EQ(words(quieterWave(bytes, 0)), std::vector<int>(6));
    EXPECT_EQ(quieterWave(bytes, 1), bytes);

    auto const quieter = quieterWave(bytes, 0.1F);
    auto const start = static_cast<std::ptrdiff_t>(readWave(bytes)->samples.data() - bytes.data());
    auto const end = start + static_cast<std::ptrdiff_t>(samples.size());
    ASSERT_EQ(quieter.size(), bytes.size());
    EXPECT_TRUE(std::equal(bytes.begin(), bytes.begin() + start, quieter.begin()));
    EXPECT_TRUE(std::equal(bytes.begin() + end, bytes.end(), quieter.begin() + end));
}

TEST(WaveFile, AQuieterSoundOfEightBitsComesNearerToItsMiddle)
{
    auto const bytes
        = file(format(1, 1, 8000, 8) + chunk("data", {'\x80', '\xFF', '\x00', '\x60'}));
    auto const wave = quieterWave(bytes, 0.5F);
    auto const samples = readWave(wave)->samples;
    EXPECT_EQ(Bytes(samples.begin(), samples.end()), (Bytes{128, 192, 64, 112}));
}

TEST(WaveFile, OnlyLoudnessesFromNoneToAllAreTaken)
{
    auto const bytes = file(format(1, 1, 8000, 16) + chunk("data", little(30000, 2)));
    EXPECT_EQ(words(quieterWave(bytes, 7)), std::vector{30000});
    EXPECT_EQ(words(quieterWave(bytes, -1)), std::vector{0});
    EXPECT_EQ(words(quieterWave(bytes, std::nanf(""))), std::vector{0});
    Bytes const noSound = {1, 2, 3};
    EXPECT_EQ(quieterWave(noSound, 0.5F), noSound);
}

} // namespace
} // namespace velmora
