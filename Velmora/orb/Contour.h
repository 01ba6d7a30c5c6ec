#pragma once

#include "Velmora/orb/OrganicBlob.h"

#include <array>
#include <cstddef>

namespace velmora {

/// A blob's outline as a closed chain of short lines, about the centre of a square of side 1.
class Contour {
public:
    static constexpr std::size_t maximumVertices = 512;

    /// Places and outward normals of length 1, each coordinate in a row of its own.
    struct Vertices {
        std::array<float, maximumVertices> x;
        std::array<float, maximumVertices> y;
        std::array<float, maximumVertices> normalX;
        std::array<float, maximumVertices> normalY;
    };

    /// The outline of `phase` that a chain is fitted to.
    [[nodiscard]] static BlobOutline outline(double phase);

    /// Fits the chain to an outline closely enough for a square of `side` pixels.
    void fit(BlobOutline const& outline, double side);

    [[nodiscard]] Vertices const& vertices() const { return m_vertices; }
    [[nodiscard]] std::size_t count() const { return m_count; }

    /// The farthest that a vertex lies from the centre along either axis.
    [[nodiscard]] float reach() const { return m_reach; }

    /// How far the nearest of the tangents lies from the centre; may be negative.
    [[nodiscard]] float support() const;

private:
    Vertices m_vertices = {};
    std::size_t m_count = 0;
    float m_reach = 0;
};

} // namespace velmora
