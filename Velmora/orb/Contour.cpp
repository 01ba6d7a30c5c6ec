#include "Velmora/orb/Contour.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

/// How far a chord may stray from the curve, in pixels: a small part of one.
constexpr float straying = 0.05F;
/// Of one of the outline's segments.
constexpr int maximumPieces = Contour::maximumVertices / 8;

/// One piece of the outline as a polynomial, so that a vertex costs a few multiplications.
struct Polynomial {
    float a;
    float b;
    float c;
    float d;

    Polynomial(double from, double control1, double control2, double to)
        : a(static_cast<float>(to - from + 3 * (control1 - control2)))
        , b(static_cast<float>(3 * (from - 2 * control1 + control2)))
        , c(static_cast<float>(3 * (control1 - from)))
        , d(static_cast<float>(from))
    {
    }

    [[nodiscard]] float at(float t) const { return ((a * t + b) * t + c) * t + d; }
    [[nodiscard]] float slope(float t) const { return (3 * a * t + 2 * b) * t + c; }
    [[nodiscard]] float bend(float t) const { return 6 * a * t + 2 * b; }
};

/// How fast the curve leaves its tangent at `t`: only what bends sideways parts it from a chord.
float sideways(Polynomial const& x, Polynomial const& y, float t)
{
    float const dx = x.slope(t);
    float const dy = y.slope(t);
    float const cross = dx * y.bend(t) - dy * x.bend(t);
    return cross * cross / std::max(dx * dx + dy * dy, 1e-12F);
}

/// Into how many chords to cut a curve so that none strays farther than `tolerance`.
int chords(Polynomial const& x, Polynomial const& y, float tolerance)
{
    float const most = std::max({sideways(x, y, 0), sideways(x, y, 0.5F), sideways(x, y, 1)});
    // A chord over a step of h strays by an eighth of the second derivative times h squared.
    return 1 + static_cast<int>(std::sqrt(std::sqrt(most) / (8 * tolerance)));
}

/// A place on the outline and its outward normal.
struct Vertex {
    float x;
    float y;
    float normalX;
    float normalY;
};

/// The vertex at `t` between two chords over a step each.
Vertex vertex(Polynomial const& x, Polynomial const& y, float t, float step)
{
    float const dx = x.slope(t);
    float const dy = y.slope(t);
    float const scale = 1 / std::sqrt(std::max(dx * dx + dy * dy, 1e-12F));
    float const normalX = dy * scale;
    float const normalY = -dx * scale;
    // On average chords lie inside of a bend by two thirds of what they stray: the vertices stand
    // as far outside of it, so that the area stays.
    float const outwards = (dx * y.bend(t) - dy * x.bend(t)) * scale * step * step / 12;
    return {.x = x.at(t) + normalX * outwards,
        .y = y.at(t) + normalY * outwards,
        .normalX = normalX,
        .normalY = normalY};
}

} // namespace

BlobOutline Contour::outline(double phase)
{
    return organicBlobOutline({.x = -0.5, .y = -0.5, .width = 1, .height = 1}, phase);
}

void Contour::fit(BlobOutline const& outline, double side)
{
    float const tolerance = straying / static_cast<float>(side);
    m_count = 0;
    m_reach = 0;
    OrbPoint from = outline.start;
    for (CubicSegment const& piece : outline.segments) {
        Polynomial const x(from.x, piece.control1.x, piece.control2.x, piece.end.x);
        Polynomial const y(from.y, piece.control1.y, piece.control2.y, piece.end.y);
        int const pieces = std::min(chords(x, y, tolerance), maximumPieces);
        float const step = 1.0F / static_cast<float>(pieces);
        for (int i = 0; i < pieces; ++i) {
            Vertex const v = vertex(x, y, static_cast<float>(i) * step, step);
            m_vertices.x[m_count] = v.x;
            m_vertices.y[m_count] = v.y;
            m_vertices.normalX[m_count] = v.normalX;
            m_vertices.normalY[m_count] = v.normalY;
            m_reach = std::max({m_reach, std::fabs(v.x), std::fabs(v.y)});
            ++m_count;
        }
        from = piece.end;
    }
}

float Contour::support() const
{
    Vertices const& v = m_vertices;
    float nearest = m_reach;
    for (std::size_t i = 0; i < m_count; ++i)
        nearest = std::min(nearest, v.x[i] * v.normalX[i] + v.y[i] * v.normalY[i]);
    return nearest;
}

} // namespace velmora
