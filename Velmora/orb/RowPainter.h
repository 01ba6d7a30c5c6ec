#pragma once

#include "Velmora/orb/AreaRaster.h"
#include "Velmora/orb/Backdrop.h"
#include "Velmora/orb/BodyGradient.h"
#include "Velmora/orb/CellRow.h"
#include "Velmora/orb/FramePaint.h"
#include "Velmora/orb/RippleRing.h"

#include <cstdint>

namespace velmora {

/// The cells of the soft layers behind the body and of the highlight.
struct SoftGrids {
    CellGrid back;
    CellGrid light;
};

/// The edges of a frame at full resolution.
struct EdgeRasters {
    AreaRaster body;
    AreaRaster rim;
    /// Of both.
    BlockMap touched;
};

/// Puts a frame's layers together, row by row.
///
/// Where no edge passes, a row is runs of two kinds: the soft layers alone, stretched from cell to
/// cell, and the body's gradient, under the highlight where it shows. Only the blocks that an edge,
/// the ring outside of the body, or a highlight beyond it touch are composed layer by layer.
class RowPainter {
public:
    /// Combines the soft layers for a picture of `width` pixels.
    void begin(SoftGrids const& grids, int width, Paint const& paint, SoftPlane const& glow,
        SoftPlane const& shadow, SoftPlane const& highlight);

    /// Writes the pixels of row `y` in whole blocks, and clears the rasters' row; `ring` may be
    /// null.
    void paintRow(std::uint32_t* row, int y, EdgeRasters& rasters, RippleRing* ring);

private:
    /// A row's edges: differences of coverage, and what they have summed up to so far.
    struct Edges {
        std::uint32_t* pixels = nullptr;
        float* body = nullptr;
        float* rim = nullptr;
        RippleRing const* ring = nullptr;
        float bodyBefore = 0;
        float rimBefore = 0;
    };

    void paintSpan(int from, int end, Edges& edges);
    void paintOutside(int from, int end, Edges& edges);
    void paintEdges(int from, int end, Edges& edges);
    Lanes mixRing(FourPixels& sum, Lanes through, int x, RippleRing const& ring) const;
    void paintRing(int x, Edges const& edges);
    template <bool ringed>
    void paintEdgeBlock(int x, Edges& edges);

    float m_rimOpacity = 0;
    float m_ringOpacity = 0;
    Backdrop m_backdrop;
    BodyGradient m_gradient;
    CellRow m_highlight;
    CellRow m_shadow;
    Numbers m_rim = {};
    Numbers m_light = {};
    Numbers m_ring = {};
    /// The shadow over the ring.
    Numbers m_dark = {};
};

} // namespace velmora
