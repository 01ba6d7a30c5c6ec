#pragma once

#include "Velmora/orb/Lanes.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace velmora {

/// Eight 16-bit numbers side by side: two pixels of four channels, or one channel of eight.
struct Numbers {
#if VELMORA_LANES_SSE2
    __m128i v;
#else
    std::array<std::int16_t, 8> v;
#endif
};

#if VELMORA_LANES_SSE2

[[nodiscard]] inline Numbers splatNumber(std::int16_t x)
{
    return {_mm_set1_epi16(x)};
}
[[nodiscard]] inline Numbers load(std::int16_t const* from)
{
    Numbers numbers = {};
    std::memcpy(&numbers.v, from, sizeof numbers.v);
    return numbers;
}
inline void store(std::int16_t* to, Numbers x)
{
    std::memcpy(to, &x.v, sizeof x.v);
}
[[nodiscard]] inline Numbers operator+(Numbers a, Numbers b)
{
    return {_mm_add_epi16(a.v, b.v)};
}
[[nodiscard]] inline Numbers operator-(Numbers a, Numbers b)
{
    return {_mm_sub_epi16(a.v, b.v)};
}
[[nodiscard]] inline Numbers min(Numbers a, Numbers b)
{
    return {_mm_min_epi16(a.v, b.v)};
}
/// The mean of numbers that are not negative, halves rounded up.
[[nodiscard]] inline Numbers average(Numbers a, Numbers b)
{
    return {_mm_avg_epu16(a.v, b.v)};
}
/// The product over 65536, rounded down.
[[nodiscard]] inline Numbers highProduct(Numbers a, Numbers b)
{
    return {_mm_mulhi_epi16(a.v, b.v)};
}
[[nodiscard]] inline Numbers timesFour(Numbers a)
{
    return {_mm_slli_epi16(a.v, 2)};
}
/// The first four numbers, or the second four, twice.
[[nodiscard]] inline Numbers firstTwice(Numbers a)
{
    return {_mm_unpacklo_epi64(a.v, a.v)};
}
[[nodiscard]] inline Numbers secondTwice(Numbers a)
{
    return {_mm_unpackhi_epi64(a.v, a.v)};
}
/// A bit for each number of `a`, the lowest for the first, that is greater than that of `b`.
[[nodiscard]] inline unsigned above(Numbers a, Numbers b)
{
    __m128i const greater = _mm_cmpgt_epi16(a.v, b.v);
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(greater, _mm_setzero_si128())));
}

/// Eight floats rounded to the nearest, and to the greatest number there is.
[[nodiscard]] inline Numbers numbers(Lanes first, Lanes second)
{
    return {_mm_packs_epi32(_mm_cvtps_epi32(first.v), _mm_cvtps_epi32(second.v))};
}
/// The first four numbers.
[[nodiscard]] inline Lanes firstLanes(Numbers a)
{
    return {_mm_cvtepi32_ps(_mm_srai_epi32(_mm_unpacklo_epi16(a.v, a.v), 16))};
}

/// Four pixels of four channels.
struct FourPixels {
    Numbers first;
    Numbers second;
};

/// A pixel's number in each of its channels.
[[nodiscard]] inline FourPixels inEachChannel(Lanes pixels)
{
    __m128i const whole = _mm_cvtps_epi32(pixels.v);
    __m128i const packed = _mm_packs_epi32(whole, whole);
    __m128i const twice = _mm_unpacklo_epi16(packed, packed);
    return {.first = {_mm_shuffle_epi32(twice, _MM_SHUFFLE(1, 1, 0, 0))},
        .second = {_mm_shuffle_epi32(twice, _MM_SHUFFLE(3, 3, 2, 2))}};
}

/// The first four numbers of each channel as pixels.
[[nodiscard]] inline FourPixels pixels(Numbers alpha, Numbers red, Numbers green, Numbers blue)
{
    __m128i const low = _mm_unpacklo_epi16(blue.v, green.v);
    __m128i const high = _mm_unpacklo_epi16(red.v, alpha.v);
    return {.first = {_mm_unpacklo_epi32(low, high)}, .second = {_mm_unpackhi_epi32(low, high)}};
}

/// Writes four pixels from channels of `1 << bits` steps a level, rounded down.
template <int bits>
inline void storePixels(std::uint32_t* to, FourPixels four)
{
    __m128i const pixels
        = _mm_packus_epi16(_mm_srli_epi16(four.first.v, bits), _mm_srli_epi16(four.second.v, bits));
    std::memcpy(to, &pixels, sizeof pixels);
}

/// Writes eight pixels, or the first four of them, of a whole level of alpha and channels of
/// `1 << bits` steps a level, rounded down.
template <int bits>
inline void storePixels(
    std::uint32_t* to, int count, std::int16_t alpha, Numbers red, Numbers green, Numbers blue)
{
    __m128i const low = _mm_or_si128(_mm_srli_epi16(blue.v, bits),
        _mm_andnot_si128(_mm_set1_epi16(255), _mm_slli_epi16(green.v, 8 - bits)));
    __m128i const high
        = _mm_or_si128(_mm_srli_epi16(red.v, bits), _mm_slli_epi16(_mm_set1_epi16(alpha), 8));
    __m128i const first = _mm_unpacklo_epi16(low, high);
    std::memcpy(to, &first, sizeof first);
    if (count <= 4)
        return;
    __m128i const second = _mm_unpackhi_epi16(low, high);
    std::memcpy(to + 4, &second, sizeof second);
}

#else

template <typename Operation>
[[nodiscard]] inline Numbers eachNumber(Operation operation)
{
    Numbers result = {};
    for (std::size_t i = 0; i < 8; ++i)
        result.v[i] = static_cast<std::int16_t>(operation(i));
    return result;
}

[[nodiscard]] inline Numbers splatNumber(std::int16_t x)
{
    return eachNumber([=](std::size_t) { return x; });
}
[[nodiscard]] inline Numbers load(std::int16_t const* from)
{
    return eachNumber([=](std::size_t i) { return from[i]; });
}
inline void store(std::int16_t* to, Numbers x)
{
    std::memcpy(to, x.v.data(), sizeof x.v);
}
[[nodiscard]] inline Numbers operator+(Numbers a, Numbers b)
{
    return eachNumber([&](std::size_t i) { return a.v[i] + b.v[i]; });
}
[[nodiscard]] inline Numbers operator-(Numbers a, Numbers b)
{
    return eachNumber([&](std::size_t i) { return a.v[i] - b.v[i]; });
}
[[nodiscard]] inline Numbers min(Numbers a, Numbers b)
{
    return eachNumber([&](std::size_t i) { return std::min(a.v[i], b.v[i]); });
}
/// The mean of numbers that are not negative, halves rounded up.
[[nodiscard]] inline Numbers average(Numbers a, Numbers b)
{
    return eachNumber([&](std::size_t i) { return (a.v[i] + b.v[i] + 1) / 2; });
}
/// The product over 65536, rounded down.
[[nodiscard]] inline Numbers highProduct(Numbers a, Numbers b)
{
    return eachNumber([&](std::size_t i) { return a.v[i] * b.v[i] >> 16; });
}
[[nodiscard]] inline Numbers timesFour(Numbers a)
{
    return eachNumber([&](std::size_t i) { return a.v[i] * 4; });
}
/// The first four numbers, or the second four, twice.
[[nodiscard]] inline Numbers firstTwice(Numbers a)
{
    return eachNumber([&](std::size_t i) { return a.v[i % 4]; });
}
[[nodiscard]] inline Numbers secondTwice(Numbers a)
{
    return eachNumber([&](std::size_t i) { return a.v[4 + i % 4]; });
}
/// A bit for each number of `a`, the lowest for the first, that is greater than that of `b`.
[[nodiscard]] inline unsigned above(Numbers a, Numbers b)
{
    unsigned bits = 0;
    for (std::size_t i = 0; i < 8; ++i)
        bits |= (a.v[i] > b.v[i] ? 1U : 0U) << i;
    return bits;
}

[[nodiscard]] inline long rounded(float x)
{
    return std::clamp(std::lrintf(x), -32768L, 32767L);
}

/// Eight floats rounded to the nearest, and to the greatest number there is.
[[nodiscard]] inline Numbers numbers(Lanes first, Lanes second)
{
    return eachNumber([&](std::size_t i) { return rounded(i < 4 ? first.v[i] : second.v[i - 4]); });
}
/// The first four numbers.
[[nodiscard]] inline Lanes firstLanes(Numbers a)
{
    return eachLane([&](std::size_t i) { return static_cast<float>(a.v[i]); });
}

/// Four pixels of four channels.
struct FourPixels {
    Numbers first;
    Numbers second;
};

/// A pixel's number in each of its channels.
[[nodiscard]] inline FourPixels inEachChannel(Lanes pixels)
{
    return {.first = eachNumber([&](std::size_t i) { return rounded(pixels.v[i / 4]); }),
        .second = eachNumber([&](std::size_t i) { return rounded(pixels.v[2 + i / 4]); })};
}

/// The first four numbers of each channel as pixels.
[[nodiscard]] inline FourPixels pixels(Numbers alpha, Numbers red, Numbers green, Numbers blue)
{
    bool const little = std::endian::native == std::endian::little;
    Numbers const channels[4] = {
        little ? blue : alpha, little ? green : red, little ? red : green, little ? alpha : blue};
    return {.first = eachNumber([&](std::size_t i) { return channels[i % 4].v[i / 4]; }),
        .second = eachNumber([&](std::size_t i) { return channels[i % 4].v[2 + i / 4]; })};
}

/// Writes four pixels from channels of `1 << bits` steps a level, rounded down.
template <int bits>
inline void storePixels(std::uint32_t* to, FourPixels four)
{
    std::array<std::uint8_t, 16> bytes = {};
    auto const level = [](std::int16_t x) {
        return static_cast<std::uint8_t>(std::min(static_cast<std::uint16_t>(x) >> bits, 255));
    };
    for (std::size_t i = 0; i < 8; ++i) {
        bytes[i] = level(four.first.v[i]);
        bytes[i + 8] = level(four.second.v[i]);
    }
    std::memcpy(to, bytes.data(), sizeof bytes);
}

/// Writes eight pixels, or the first four of them, of a whole level of alpha and channels of
/// `1 << bits` steps a level, rounded down.
template <int bits>
inline void storePixels(
    std::uint32_t* to, int count, std::int16_t alpha, Numbers red, Numbers green, Numbers blue)
{
    auto const level = [](std::int16_t x) { return static_cast<std::uint32_t>(x >> bits) & 255U; };
    for (std::size_t i = 0; i < (count <= 4 ? 4U : 8U); ++i) {
        to[i] = static_cast<std::uint32_t>(alpha) << 24U | level(red.v[i]) << 16U
            | level(green.v[i]) << 8U | level(blue.v[i]);
    }
}

#endif

} // namespace velmora
