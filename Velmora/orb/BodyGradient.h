#pragma once

#include "Velmora/orb/CellRow.h"
#include "Velmora/orb/FramePaint.h"
#include "Velmora/orb/Numbers.h"

#include <cstdint>
#include <vector>

namespace velmora {

/// The body's radial gradient along rows of pixels, in whole numbers of 1/32 of a level.
class BodyGradient {
public:
    /// A pixel's channels are this many steps a level, as a power of two.
    static constexpr int levelBits = 5;

    /// Eight pixels, each lifted by half a level, so that rounding down rounds to the nearest.
    struct Colors {
        Numbers red;
        Numbers green;
        Numbers blue;
    };

    /// Makes ready for pictures of `width` pixels.
    void begin(Paint const& paint, int width);

    /// Makes ready for pixels of row `y`.
    void beginRow(int y);

    /// Writes the pixels `from` up to `end`, in whole blocks.
    void paint(std::uint32_t* row, int from, int end) const;

    /// Writes the pixels `from` up to `end`, in whole blocks, under a highlight that shows there.
    void paintLit(std::uint32_t* row, int from, int end, CellRow const& highlight) const;

    /// The eight pixels from `x`; no colour is greater than `alpha()`.
    [[nodiscard]] Colors colors(int x) const { return m_row.colors(m_across.data() + x); }

    /// The level of the body's alpha, in the same steps.
    [[nodiscard]] std::int16_t alpha() const { return m_alpha; }

private:
    /// Where the second of three stops lies; the last lies at the greatest number.
    static constexpr std::int16_t secondStop = 16384;

    /// A channel along the gradient: the first stop, and the ways to the second and the third.
    struct Channel {
        Numbers first = {};
        Numbers toSecond = {};
        Numbers toThird = {};

        Channel() = default;
        Channel(float a, float b, float c);
    };

    /// What a row of pixels is worked out from.
    struct Row {
        Lanes down = {};
        Channel red;
        Channel green;
        Channel blue;

        [[nodiscard]] Colors colors(float const* across) const;
    };

    float m_centerY = 0;
    float m_perPixel = 1;
    std::int16_t m_alpha = 0;
    Row m_row;
    Colors m_light = {};
    /// Each column's share of the squared distance to the gradient's centre.
    std::vector<float> m_across;
};

inline BodyGradient::Colors BodyGradient::Row::colors(float const* across) const
{
    Numbers const place
        = numbers(squareRoot(load(across) + down), squareRoot(load(across + 4) + down));
    Numbers const near = min(place, splatNumber(secondStop));
    Numbers const far = place - near;
    auto const at = [&](Channel const& channel) {
        return channel.first + highProduct(channel.toSecond, near)
            + highProduct(channel.toThird, far);
    };
    return {.red = at(red), .green = at(green), .blue = at(blue)};
}

} // namespace velmora
