#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace velmora {

/// What a WAV file holds.
struct WaveFormat {
    /// 1 (mono) or more, interleaved.
    int channels = 0;
    /// Frames a second.
    std::uint32_t rate = 0;
    /// 8 (unsigned) or 16 (signed, little-endian).
    int bitsPerSample = 0;
    /// The samples inside the file's bytes, whole frames only.
    std::span<unsigned char const> samples;
};

/// Reads a WAV file of plain 8- or 16-bit samples. Absent when the bytes are anything else or hold
/// not one whole frame; a file cut short keeps the frames that it has.
[[nodiscard]] std::optional<WaveFormat> readWave(std::span<unsigned char const> file);

/// The same file with its sound made quieter: every sample times `amplitude`, which is 0 (silent)
/// to 1 (as it is); anything else counts as the nearer of them. Bytes that `readWave` does not
/// accept stay as they are.
[[nodiscard]] std::vector<unsigned char> quieterWave(
    std::span<unsigned char const> file, float amplitude);

} // namespace velmora
