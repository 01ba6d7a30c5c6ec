#pragma once

#include "Velmora/orb/Backdrop.h"
#include "Velmora/orb/CellRow.h"
#include "Velmora/orb/FramePaint.h"
#include "Velmora/orb/Lanes.h"
#include "Velmora/orb/RippleRing.h"

#include <array>
#include <cstdint>
#include <vector>

namespace velmora {

/// The cells of the soft layers behind the body and of the highlight.
struct SoftGrids {
    CellGrid back;
    CellGrid light;
};

/// Puts a frame's layers together, row by row.
///
/// Where no edge passes, a row is runs of two kinds: the soft layers alone, stretched from cell to
/// cell in whole numbers, and the body's gradient, under the highlight where it shows. Only the
/// blocks that an edge, the ring or a highlight beyond the body touches are composed layer by
/// layer.
class RowPainter {
public:
    /// Combines the soft layers for a picture of `width` pixels. The planes must live until the
    /// last row is painted.
    void begin(SoftGrids const& grids, int width, Paint const& paint, SoftPlane const& glow,
        SoftPlane const& shadow, SoftPlane const& highlight);

    /// The pixels of row `y`, valid until the next call. Clears the rasters' row and that of the
    /// blocks they have touched; `ring` may be null.
    std::uint32_t const* paintRow(
        int y, AreaRaster& body, AreaRaster& rim, BlockMap& touched, RippleRing const* ring);

private:
    /// A row's edges: differences of coverage, and what they have summed up to so far.
    struct Edges {
        float* body = nullptr;
        float* rim = nullptr;
        RippleRing const* ring = nullptr;
        int y = 0;
        float bodyBefore = 0;
        float rimBefore = 0;
    };

    /// A colour's channel along the gradient, as the first stop plus two slopes.
    struct Channel {
        Lanes first = {};
        Lanes toSecond = {};
        Lanes toThird = {};

        Channel() = default;
        Channel(float a, float b, float c);
        [[nodiscard]] Lanes at(Lanes near, Lanes far) const
        {
            return first + toSecond * near + toThird * far;
        }
    };

    void paintSpan(int from, int end, Edges& edges);
    template <bool lit>
    void paintInside(int from, int end);
    void paintEdges(int from, int end, Edges& edges);
    template <bool ringed>
    void paintEdgeBlock(int x, Edges& edges);
    [[nodiscard]] Lanes gradientPosition(int x) const;

    Paint m_paint;
    Backdrop m_backdrop;
    CellRow m_highlight;
    CellRow m_shadow;
    Channel m_red;
    Channel m_green;
    Channel m_blue;
    int m_width = 0;
    float m_gradientPerPixel = 1;
    float m_gradientY2 = 0;
    /// Each column's share of the squared distance to the gradient's centre.
    std::vector<float> m_gradientX2;
    std::vector<std::uint32_t> m_pixels;
};

} // namespace velmora
