#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) && !defined(VELMORA_PLAIN_LANES)
#define VELMORA_LANES_SSE2 1
#include <emmintrin.h>
#else
#define VELMORA_LANES_SSE2 0
#include <array>
#endif

namespace velmora {

/// Four floats side by side: what every x86-64 processor computes at once, and a plain loop
/// elsewhere, with the same results.
struct Lanes {
#if VELMORA_LANES_SSE2
    __m128 v;
#else
    std::array<float, 4> v;
#endif
};

/// Eight 16-bit numbers side by side: two pixels of four channels.
struct PixelPair {
#if VELMORA_LANES_SSE2
    __m128i v;
#else
    std::array<std::int16_t, 8> v;
#endif
};

#if VELMORA_LANES_SSE2

[[nodiscard]] inline Lanes splat(float x)
{
    return {_mm_set1_ps(x)};
}
[[nodiscard]] inline Lanes load(float const* from)
{
    return {_mm_loadu_ps(from)};
}
[[nodiscard]] inline Lanes lanes(float a, float b, float c, float d)
{
    return {_mm_setr_ps(a, b, c, d)};
}
inline void store(float* to, Lanes x)
{
    _mm_storeu_ps(to, x.v);
}
[[nodiscard]] inline Lanes operator+(Lanes a, Lanes b)
{
    return {_mm_add_ps(a.v, b.v)};
}
[[nodiscard]] inline Lanes operator-(Lanes a, Lanes b)
{
    return {_mm_sub_ps(a.v, b.v)};
}
[[nodiscard]] inline Lanes operator*(Lanes a, Lanes b)
{
    return {_mm_mul_ps(a.v, b.v)};
}
[[nodiscard]] inline Lanes min(Lanes a, Lanes b)
{
    return {_mm_min_ps(a.v, b.v)};
}
[[nodiscard]] inline Lanes squareRoot(Lanes a)
{
    return {_mm_sqrt_ps(a.v)};
}
[[nodiscard]] inline Lanes magnitude(Lanes a)
{
    return {_mm_andnot_ps(_mm_set1_ps(-0.0F), a.v)};
}
/// Whether any lane of `a` is greater than that of `b`.
[[nodiscard]] inline bool anyAbove(Lanes a, Lanes b)
{
    return _mm_movemask_ps(_mm_cmpgt_ps(a.v, b.v)) != 0;
}
[[nodiscard]] inline float last(Lanes a)
{
    return _mm_cvtss_f32(_mm_shuffle_ps(a.v, a.v, _MM_SHUFFLE(3, 3, 3, 3)));
}

/// Each lane plus all lanes before it.
[[nodiscard]] inline Lanes runningSum(Lanes a)
{
    __m128 const one = _mm_add_ps(a.v, _mm_castsi128_ps(_mm_slli_si128(_mm_castps_si128(a.v), 4)));
    return {_mm_add_ps(one, _mm_castsi128_ps(_mm_slli_si128(_mm_castps_si128(one), 8)))};
}

/// Turns four rows of four into four columns, in place.
inline void transpose(Lanes& a, Lanes& b, Lanes& c, Lanes& d)
{
    _MM_TRANSPOSE4_PS(a.v, b.v, c.v, d.v);
}

/// Writes four pixels 0xAARRGGBB from channels of 0..255, rounded to the nearest.
inline void storePixels(std::uint32_t* to, Lanes alpha, Lanes red, Lanes green, Lanes blue)
{
    __m128i const high = _mm_or_si128(
        _mm_slli_epi32(_mm_cvtps_epi32(alpha.v), 24), _mm_slli_epi32(_mm_cvtps_epi32(red.v), 16));
    __m128i const low
        = _mm_or_si128(_mm_slli_epi32(_mm_cvtps_epi32(green.v), 8), _mm_cvtps_epi32(blue.v));
    __m128i const pixels = _mm_or_si128(high, low);
    std::memcpy(to, &pixels, sizeof pixels);
}

/// Two pixels rounded to whole numbers.
[[nodiscard]] inline PixelPair pixelPair(Lanes first, Lanes second)
{
    return {_mm_packs_epi32(_mm_cvtps_epi32(first.v), _mm_cvtps_epi32(second.v))};
}

[[nodiscard]] inline PixelPair splatNumber(std::int16_t x)
{
    return {_mm_set1_epi16(x)};
}
[[nodiscard]] inline PixelPair load(std::int16_t const* from)
{
    PixelPair pair = {};
    std::memcpy(&pair.v, from, sizeof pair.v);
    return pair;
}
inline void store(std::int16_t* to, PixelPair x)
{
    std::memcpy(to, &x.v, sizeof x.v);
}
[[nodiscard]] inline PixelPair operator+(PixelPair a, PixelPair b)
{
    return {_mm_add_epi16(a.v, b.v)};
}
[[nodiscard]] inline PixelPair operator-(PixelPair a, PixelPair b)
{
    return {_mm_sub_epi16(a.v, b.v)};
}
/// The mean of numbers that are not negative, halves rounded up.
[[nodiscard]] inline PixelPair average(PixelPair a, PixelPair b)
{
    return {_mm_avg_epu16(a.v, b.v)};
}
/// The product over 65536, rounded down.
[[nodiscard]] inline PixelPair highProduct(PixelPair a, PixelPair b)
{
    return {_mm_mulhi_epi16(a.v, b.v)};
}
[[nodiscard]] inline PixelPair firstTwice(PixelPair a)
{
    return {_mm_unpacklo_epi64(a.v, a.v)};
}
[[nodiscard]] inline PixelPair secondTwice(PixelPair a)
{
    return {_mm_unpackhi_epi64(a.v, a.v)};
}

/// Four pixels as one vector a channel.
inline void separate(PixelPair first, PixelPair second, Lanes& a, Lanes& b, Lanes& c, Lanes& d)
{
    __m128i const even = _mm_unpacklo_epi16(first.v, second.v);
    __m128i const odd = _mm_unpackhi_epi16(first.v, second.v);
    __m128i const low = _mm_unpacklo_epi16(even, odd);
    __m128i const high = _mm_unpackhi_epi16(even, odd);
    a.v = _mm_cvtepi32_ps(_mm_srai_epi32(_mm_unpacklo_epi16(low, low), 16));
    b.v = _mm_cvtepi32_ps(_mm_srai_epi32(_mm_unpackhi_epi16(low, low), 16));
    c.v = _mm_cvtepi32_ps(_mm_srai_epi32(_mm_unpacklo_epi16(high, high), 16));
    d.v = _mm_cvtepi32_ps(_mm_srai_epi32(_mm_unpackhi_epi16(high, high), 16));
}

/// Writes four pixels from channels of 1/128 of a level each, rounded down.
inline void storePixels(std::uint32_t* to, PixelPair first, PixelPair second)
{
    __m128i const pixels
        = _mm_packus_epi16(_mm_srli_epi16(first.v, 7), _mm_srli_epi16(second.v, 7));
    std::memcpy(to, &pixels, sizeof pixels);
}

#else

template <typename Operation>
[[nodiscard]] inline Lanes eachLane(Operation operation)
{
    return {{operation(std::size_t{0}), operation(std::size_t{1}), operation(std::size_t{2}),
        operation(std::size_t{3})}};
}

[[nodiscard]] inline Lanes lanes(float a, float b, float c, float d)
{
    return {{a, b, c, d}};
}
[[nodiscard]] inline Lanes splat(float x)
{
    return {{x, x, x, x}};
}
[[nodiscard]] inline Lanes load(float const* from)
{
    return {{from[0], from[1], from[2], from[3]}};
}
inline void store(float* to, Lanes x)
{
    std::memcpy(to, x.v.data(), sizeof x.v);
}
[[nodiscard]] inline Lanes operator+(Lanes a, Lanes b)
{
    return eachLane([&](std::size_t i) { return a.v[i] + b.v[i]; });
}
[[nodiscard]] inline Lanes operator-(Lanes a, Lanes b)
{
    return eachLane([&](std::size_t i) { return a.v[i] - b.v[i]; });
}
[[nodiscard]] inline Lanes operator*(Lanes a, Lanes b)
{
    return eachLane([&](std::size_t i) { return a.v[i] * b.v[i]; });
}
[[nodiscard]] inline Lanes min(Lanes a, Lanes b)
{
    return eachLane([&](std::size_t i) { return a.v[i] < b.v[i] ? a.v[i] : b.v[i]; });
}
[[nodiscard]] inline Lanes squareRoot(Lanes a)
{
    return eachLane([&](std::size_t i) { return std::sqrt(a.v[i]); });
}
[[nodiscard]] inline Lanes magnitude(Lanes a)
{
    return eachLane([&](std::size_t i) { return std::fabs(a.v[i]); });
}
/// Whether any lane of `a` is greater than that of `b`.
[[nodiscard]] inline bool anyAbove(Lanes a, Lanes b)
{
    bool any = false;
    for (std::size_t i = 0; i < 4; ++i)
        any = any || a.v[i] > b.v[i];
    return any;
}
[[nodiscard]] inline float last(Lanes a)
{
    return a.v[3];
}

/// Each lane plus all lanes before it.
[[nodiscard]] inline Lanes runningSum(Lanes a)
{
    // Added in the order of the wide version, so that both give the same bits.
    float const low = a.v[0] + a.v[1];
    return {{a.v[0], low, (a.v[2] + a.v[1]) + a.v[0], (a.v[3] + a.v[2]) + low}};
}

/// Turns four rows of four into four columns, in place.
inline void transpose(Lanes& a, Lanes& b, Lanes& c, Lanes& d)
{
    Lanes const rows[4] = {a, b, c, d};
    Lanes* const columns[4] = {&a, &b, &c, &d};
    for (std::size_t i = 0; i < 4; ++i)
        *columns[i] = eachLane([&](std::size_t j) { return rows[j].v[i]; });
}

[[nodiscard]] inline std::int32_t rounded(float x)
{
    return static_cast<std::int32_t>(std::lrintf(x));
}

/// Writes four pixels 0xAARRGGBB from channels of 0..255, rounded to the nearest.
inline void storePixels(std::uint32_t* to, Lanes alpha, Lanes red, Lanes green, Lanes blue)
{
    for (std::size_t i = 0; i < 4; ++i) {
        to[i] = static_cast<std::uint32_t>(rounded(alpha.v[i])) << 24U
            | static_cast<std::uint32_t>(rounded(red.v[i])) << 16U
            | static_cast<std::uint32_t>(rounded(green.v[i])) << 8U
            | static_cast<std::uint32_t>(rounded(blue.v[i]));
    }
}

/// Two pixels rounded to whole numbers.
[[nodiscard]] inline PixelPair pixelPair(Lanes first, Lanes second)
{
    PixelPair pair = {};
    for (std::size_t i = 0; i < 4; ++i) {
        pair.v[i] = static_cast<std::int16_t>(rounded(first.v[i]));
        pair.v[i + 4] = static_cast<std::int16_t>(rounded(second.v[i]));
    }
    return pair;
}

template <typename Operation>
[[nodiscard]] inline PixelPair eachNumber(Operation operation)
{
    PixelPair result = {};
    for (std::size_t i = 0; i < 8; ++i)
        result.v[i] = static_cast<std::int16_t>(operation(i));
    return result;
}

[[nodiscard]] inline PixelPair splatNumber(std::int16_t x)
{
    return eachNumber([=](std::size_t) { return x; });
}
[[nodiscard]] inline PixelPair load(std::int16_t const* from)
{
    return eachNumber([=](std::size_t i) { return from[i]; });
}
inline void store(std::int16_t* to, PixelPair x)
{
    std::memcpy(to, x.v.data(), sizeof x.v);
}
[[nodiscard]] inline PixelPair operator+(PixelPair a, PixelPair b)
{
    return eachNumber([&](std::size_t i) { return a.v[i] + b.v[i]; });
}
[[nodiscard]] inline PixelPair operator-(PixelPair a, PixelPair b)
{
    return eachNumber([&](std::size_t i) { return a.v[i] - b.v[i]; });
}
/// The mean of numbers that are not negative, halves rounded up.
[[nodiscard]] inline PixelPair average(PixelPair a, PixelPair b)
{
    return eachNumber([&](std::size_t i) { return (a.v[i] + b.v[i] + 1) / 2; });
}
/// The product over 65536, rounded down.
[[nodiscard]] inline PixelPair highProduct(PixelPair a, PixelPair b)
{
    return eachNumber([&](std::size_t i) { return a.v[i] * b.v[i] >> 16; });
}
[[nodiscard]] inline PixelPair firstTwice(PixelPair a)
{
    return eachNumber([&](std::size_t i) { return a.v[i % 4]; });
}
[[nodiscard]] inline PixelPair secondTwice(PixelPair a)
{
    return eachNumber([&](std::size_t i) { return a.v[4 + i % 4]; });
}

/// Four pixels as one vector a channel.
inline void separate(PixelPair first, PixelPair second, Lanes& a, Lanes& b, Lanes& c, Lanes& d)
{
    Lanes* const channels[4] = {&a, &b, &c, &d};
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t pixel = 0; pixel < 4; ++pixel) {
            PixelPair const& pair = pixel < 2 ? first : second;
            channels[i]->v[pixel] = static_cast<float>(pair.v[pixel % 2 * 4 + i]);
        }
    }
}

/// Writes four pixels from channels of 1/128 of a level each, rounded down.
inline void storePixels(std::uint32_t* to, PixelPair first, PixelPair second)
{
    std::array<std::uint8_t, 16> bytes = {};
    for (std::size_t i = 0; i < 8; ++i) {
        bytes[i] = static_cast<std::uint8_t>(static_cast<std::uint16_t>(first.v[i]) >> 7U);
        bytes[i + 8] = static_cast<std::uint8_t>(static_cast<std::uint16_t>(second.v[i]) >> 7U);
    }
    std::memcpy(to, bytes.data(), sizeof bytes);
}

#endif

/// Four channels of one pixel in the order in which their bytes lie in memory.
[[nodiscard]] inline Lanes pixelLanes(float alpha, float red, float green, float blue)
{
    if constexpr (std::endian::native == std::endian::little)
        return lanes(blue, green, red, alpha);
    else
        return lanes(alpha, red, green, blue);
}

} // namespace velmora
