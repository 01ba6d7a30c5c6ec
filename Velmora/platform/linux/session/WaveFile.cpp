#include "Velmora/platform/linux/session/WaveFile.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string_view>

namespace velmora {

namespace {

using Bytes = std::span<unsigned char const>;

/// A little-endian number; the caller has checked that it is there.
std::uint32_t number(Bytes bytes, std::size_t at, std::size_t size)
{
    std::uint32_t value = 0;
    for (std::size_t i = size; i > 0; --i)
        value = (value << 8U) | bytes[at + i - 1];
    return value;
}

bool says(Bytes bytes, std::size_t at, std::string_view text)
{
    return bytes.size() >= at + text.size()
        && std::memcmp(bytes.data() + at, text.data(), text.size()) == 0;
}

std::optional<WaveFormat> readFormat(Bytes chunk)
{
    constexpr std::uint32_t plainSamples = 1;
    constexpr int mostChannels = 32;
    constexpr std::uint32_t highestRate = 192'000;
    if (chunk.size() < 16 || number(chunk, 0, 2) != plainSamples)
        return std::nullopt;
    WaveFormat const format{.channels = static_cast<int>(number(chunk, 2, 2)),
        .rate = number(chunk, 4, 4),
        .bitsPerSample = static_cast<int>(number(chunk, 14, 2))};
    bool const playable = format.channels >= 1 && format.channels <= mostChannels
        && format.rate >= 1 && format.rate <= highestRate
        && (format.bitsPerSample == 8 || format.bitsPerSample == 16);
    return playable ? std::optional(format) : std::nullopt;
}

/// Signed, little-endian samples of 16 bits.
void scaleWords(std::span<unsigned char> samples, float factor)
{
    for (std::size_t i = 0; i + 1 < samples.size(); i += 2) {
        auto const value = static_cast<std::int16_t>(number(samples, i, 2));
        auto const scaled
            = static_cast<std::uint16_t>(std::lround(static_cast<float>(value) * factor));
        samples[i] = static_cast<unsigned char>(scaled & 0xFFU);
        samples[i + 1] = static_cast<unsigned char>(scaled >> 8U);
    }
}

/// Samples of 8 bits around 128.
void scaleBytes(std::span<unsigned char> samples, float factor)
{
    constexpr int silence = 128;
    for (auto& sample : samples)
        sample = static_cast<unsigned char>(
            silence + std::lround(static_cast<float>(sample - silence) * factor));
}

} // namespace

std::optional<WaveFormat> readWave(std::span<unsigned char const> file)
{
    constexpr std::size_t fileHeader = 12;
    constexpr std::size_t chunkHeader = 8;
    if (!says(file, 0, "RIFF") || !says(file, 8, "WAVE"))
        return std::nullopt;
    auto rest = file.subspan(fileHeader);
    std::optional<WaveFormat> format;
    while (rest.size() >= chunkHeader) {
        std::size_t const announced = number(rest, 4, 4);
        auto const chunk
            = rest.subspan(chunkHeader, std::min(announced, rest.size() - chunkHeader));
        if (says(rest, 0, "fmt ")) {
            format = readFormat(chunk);
        } else if (says(rest, 0, "data")) {
            if (!format)
                return std::nullopt;
            auto const frame
                = static_cast<std::size_t>(format->channels * format->bitsPerSample / 8);
            format->samples = chunk.first(chunk.size() / frame * frame);
            return format->samples.empty() ? std::nullopt : format;
        }
        // A chunk of odd length is followed by one byte of filling.
        auto const padded = chunkHeader + chunk.size() + chunk.size() % 2;
        rest = rest.subspan(std::min(padded, rest.size()));
    }
    return std::nullopt;
}

std::vector<unsigned char> quieterWave(std::span<unsigned char const> file, float amplitude)
{
    std::vector<unsigned char> quieter(file.begin(), file.end());
    auto const format = readWave(file);
    if (!format)
        return quieter;
    // What is not a number is no loudness either.
    float const factor = amplitude >= 0 ? std::min(amplitude, 1.0F) : 0.0F;
    auto const start = static_cast<std::size_t>(format->samples.data() - file.data());
    auto const samples = std::span(quieter).subspan(start, format->samples.size());
    if (format->bitsPerSample == 8)
        scaleBytes(samples, factor);
    else
        scaleWords(samples, factor);
    return quieter;
}

} // namespace velmora
