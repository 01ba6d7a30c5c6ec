#pragma once

#include <cmath>
#include <cstddef>
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

#endif

} // namespace velmora
