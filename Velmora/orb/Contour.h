#pragma once

#include "Velmora/orb/OrganicBlob.h"

#include <array>
#include <cstddef>

namespace velmora {

/// A blob's outline as a closed chain of short lines, about the centre of a square of side 1.
class Contour {
public:
    struct Vertex {
        float x;
        float y;
        /// The outline's normal, of length 1; all normals point to the same side.
        float normalX;
        float normalY;
    };

    /// Fits the chain to the outline of `phase` closely enough for a square of `side` pixels.
    void fit(double phase, double side);

    [[nodiscard]] Vertex const* begin() const { return m_vertices.data(); }
    [[nodiscard]] Vertex const* end() const { return m_vertices.data() + m_count; }

    /// The farthest that a vertex lies from the centre along either axis.
    [[nodiscard]] float reach() const { return m_reach; }

private:
    static constexpr int maximumPieces = 64;

    std::array<Vertex, std::size_t{8}* maximumPieces> m_vertices = {};
    std::size_t m_count = 0;
    float m_reach = 0;
};

} // namespace velmora
