#pragma once

#include "Velmora/orb/FramePaint.h"
#include "Velmora/orb/Lanes.h"
#include "Velmora/orb/SoftLayers.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velmora {

/// Four pixels as one vector a channel.
struct ChannelLanes {
    Lanes alpha;
    Lanes red;
    Lanes green;
    Lanes blue;
};

/// The glow under the shadow: composed once a cell, in whole numbers of 1/128 of a level, and
/// stretched over the pixels between.
class Backdrop {
public:
    /// What may be written past the end of a run, in pixels.
    static constexpr int overshoot = 40;
    /// A pixel's channels are this many steps a level.
    static constexpr float levelSteps = 128;

    /// Composes the cells. The opacities are 0..1, `full` is the level of an opaque alpha.
    void compose(CellGrid const& grid, SoftPlane const& glow, float glowOpacity,
        LevelColor const& color, SoftPlane const& shadow, float shadowOpacity, float full);

    /// Makes ready for pixels of row `y`, for a picture of `width` pixels.
    void beginRow(int y, int width);

    /// Writes the pixels `from` up to `end`, and up to `overshoot` behind.
    void paint(std::uint32_t* row, int from, int end) const;

    /// Prepares `channels` for the pixels `from` up to `end`.
    void widen(int from, int end);

    /// The levels of the four pixels from `x`, which `widen` has prepared.
    [[nodiscard]] ChannelLanes channels(int x) const;

private:
    template <typename Sink>
    void run(int from, int end, Sink const& sink) const;

    CellGrid m_grid;
    /// Four channels a cell.
    std::vector<std::int16_t> m_cells;
    std::vector<std::int16_t> m_row;
    std::vector<std::int16_t> m_wide;
    /// Where a pixel lies between two cells' centres, four times, in 1/65536 from the middle.
    std::vector<std::int16_t> m_places;
};

inline ChannelLanes Backdrop::channels(int x) const
{
    std::int16_t const* const at = m_wide.data() + static_cast<std::size_t>(overshoot + x) * 4;
    Lanes a = {};
    Lanes b = {};
    Lanes c = {};
    Lanes d = {};
    separate(load(at), load(at + 8), a, b, c, d);
    if constexpr (std::endian::native == std::endian::little)
        return {.alpha = d, .red = c, .green = b, .blue = a};
    else
        return {.alpha = a, .red = b, .green = c, .blue = d};
}

} // namespace velmora
