#pragma once

#include "Velmora/orb/Lanes.h"
#include "Velmora/orb/RippleRing.h"

#include <array>
#include <cstdint>
#include <vector>

namespace velmora {

/// A colour whose channels are 0 to the level of full white.
struct LevelColor {
    float red = 0;
    float green = 0;
    float blue = 0;
};

/// What one frame paints with: colours in levels already multiplied by the stack's opacity,
/// lengths in device pixels of the picture.
struct Paint {
    LevelColor glow;
    LevelColor ring;
    LevelColor rim;
    LevelColor highlight;
    std::array<LevelColor, 3> stops;
    float glowOpacity = 0;
    float shadowOpacity = 0;
    float ringOpacity = 0;
    float rimOpacity = 0;
    float highlightOpacity = 0;
    /// The level of an opaque pixel's alpha.
    float full = 255;
    float gradientX = 0;
    float gradientY = 0;
    float gradientRadius = 1;
};

/// Puts a frame's layers together, row by row.
///
/// Where no edge passes, a row is runs of two kinds: the soft layers alone, stepped from cell to
/// cell in whole numbers, and the body's gradient under the highlight. Only the blocks that an
/// edge or the ring touches are composed layer by layer.
class RowPainter {
public:
    /// Columns left of the picture that the edge rasters have besides it.
    static constexpr int leftPad = AreaRaster::blockSize;

    /// Combines the soft layers for a picture of `width` pixels.
    void begin(CellGrid const& grid, int width, Paint const& paint, SoftPlane const& glow,
        SoftPlane const& shadow, SoftPlane const& highlight);

    /// The pixels of row `y`, valid until the next call. Clears the rasters' row; `ring` may be
    /// null.
    std::uint32_t const* paintRow(int y, AreaRaster& body, AreaRaster& rim, RippleRing const* ring);

private:
    struct Edges {
        float* body;
        float* rim;
        RippleRing const* ring;
        int y;
    };

    void placeColumns(int width);
    void combine(
        int row, SoftPlane const& glow, SoftPlane const& shadow, SoftPlane const& highlight);
    void interpolateRow(int y, bool withFields);
    /// The first touched block from `block` on, or `limit`.
    [[nodiscard]] int nextTouched(int block, int limit) const;
    void paintBackdrop(int from, int end);
    void paintInside(int from, int end);
    void paintEdges(int block, Edges const& edges);
    void expandHighlight(int from, int end);
    [[nodiscard]] Lanes gradientPosition(int x) const;

    CellGrid grid_;
    Paint paint_;
    int width_ = 0;
    float gradientPerPixel_ = 1;
    float gradientY2_ = 0;
    float bodyBefore_ = 0;
    float rimBefore_ = 0;
    /// Four floats a cell: glow, shadow, highlight and nothing.
    std::vector<float> fields_;
    /// Four floats a cell: the composed pixel's channels, in 1/128 of a level.
    std::vector<float> backdrop_;
    std::vector<float> fieldRow_;
    std::vector<float> backdropRow_;
    std::vector<float> highlightRow_;
    std::vector<int> cellOf_;
    std::vector<float> shareOf_;
    std::vector<std::uint64_t> touched_;
    std::vector<std::uint32_t> pixels_;
};

} // namespace velmora
