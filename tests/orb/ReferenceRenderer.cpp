#include "tests/orb/ReferenceRenderer.h"

#include "Velmora/orb/OrganicBlob.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velmora {
namespace {

constexpr int samples = 32;

/// Numbers on a grid of pixels that reaches `margin` beyond the picture on every side.
struct Plane {
    int width;
    int height;
    int margin;
    std::vector<float> values;

    Plane(int w, int h, int m)
        : width(w + 2 * m)
        , height(h + 2 * m)
        , margin(m)
        , values(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
    {
    }

    float* row(int y)
    {
        return values.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    }

    float at(int x, int y) { return row(y + margin)[x + margin]; }
};

using Polygon = std::vector<OrbPoint>;

struct View {
    int width;
    int height;
    double scale;
};

OrbPoint pointOn(OrbPoint a, CubicSegment const& piece, double t)
{
    double const u = 1 - t;
    double const w0 = u * u * u;
    double const w1 = 3 * u * u * t;
    double const w2 = 3 * u * t * t;
    double const w3 = t * t * t;
    return {.x = w0 * a.x + w1 * piece.control1.x + w2 * piece.control2.x + w3 * piece.end.x,
        .y = w0 * a.y + w1 * piece.control1.y + w2 * piece.control2.y + w3 * piece.end.y};
}

/// The blob of a layer in device pixels of the picture.
Polygon outline(
    View const& view, double side, double phase, double scale, double dx = 0, double dy = 0)
{
    OrbRect const square = {.x = -side / 2, .y = -side / 2, .width = side, .height = side};
    BlobOutline const blob = organicBlobOutline(square, phase);
    Polygon polygon;
    OrbPoint from = blob.start;
    constexpr int pieces = 100;
    for (CubicSegment const& piece : blob.segments) {
        for (int i = 0; i < pieces; ++i) {
            OrbPoint const p = pointOn(from, piece, static_cast<double>(i) / pieces);
            polygon.push_back({.x = view.width / 2.0 + (p.x * scale + dx) * view.scale,
                .y = view.height / 2.0 + (p.y * scale + dy) * view.scale});
        }
        from = piece.end;
    }
    return polygon;
}

/// Where a horizontal line at `y` crosses the polygon, from left to right.
std::vector<double> crossings(Polygon const& polygon, double y)
{
    std::vector<double> found;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        OrbPoint const a = polygon[i];
        OrbPoint const b = polygon[(i + 1) % polygon.size()];
        if ((a.y <= y) != (b.y <= y))
            found.push_back(a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y));
    }
    std::sort(found.begin(), found.end());
    return found;
}

/// Counts the samples of one line of samples between two crossings.
void addSpan(Plane& plane, int row, double from, double to)
{
    int const first = static_cast<int>(std::ceil((from + plane.margin) * samples - 0.5));
    int const end = static_cast<int>(std::ceil((to + plane.margin) * samples - 0.5));
    for (int i = std::max(first, 0); i < std::min(end, plane.width * samples); ++i)
        plane.row(row)[i / samples] += 1.0F / (samples * samples);
}

/// The share of each pixel's samples inside the polygon; the outline never crosses itself, so
/// inside is between an odd crossing and the next.
void fill(Plane& plane, Polygon const& polygon)
{
    for (int line = 0; line < plane.height * samples; ++line) {
        auto const found = crossings(polygon, (line + 0.5) / samples - plane.margin);
        for (std::size_t i = 0; i + 1 < found.size(); i += 2)
            addSpan(plane, line / samples, found[i], found[i + 1]);
    }
}

double distanceToLine(OrbPoint p, OrbPoint a, OrbPoint b)
{
    double const dx = b.x - a.x;
    double const dy = b.y - a.y;
    double const length = dx * dx + dy * dy;
    double const along = (p.x - a.x) * dx + (p.y - a.y) * dy;
    double const t = length > 0 ? std::clamp(along / length, 0.0, 1.0) : 0;
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

/// The share of each pixel's samples, `density` each way, within half a line's width of the
/// polygon's edge.
void stroke(Plane& plane, Polygon const& polygon, double lineWidth, int density)
{
    int const columns = plane.width * density;
    int const rows = plane.height * density;
    std::vector<char> hit(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
    double const reach = lineWidth / 2;
    auto const index = [&](double x, int limit) {
        return std::clamp(static_cast<int>(std::floor((x + plane.margin) * density)), 0, limit);
    };
    float const part = 1.0F / static_cast<float>(density * density);
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        OrbPoint const a = polygon[i];
        OrbPoint const b = polygon[(i + 1) % polygon.size()];
        int const right = index(std::max(a.x, b.x) + reach + 1, columns);
        int const bottom = index(std::max(a.y, b.y) + reach + 1, rows);
        for (int y = index(std::min(a.y, b.y) - reach, rows); y < bottom; ++y) {
            for (int x = index(std::min(a.x, b.x) - reach, columns); x < right; ++x) {
                OrbPoint const p = {.x = (x + 0.5) / density - plane.margin,
                    .y = (y + 0.5) / density - plane.margin};
                char& cell = hit[static_cast<std::size_t>(y) * static_cast<std::size_t>(columns)
                    + static_cast<std::size_t>(x)];
                if (cell == 0 && distanceToLine(p, a, b) <= reach) {
                    cell = 1;
                    plane.row(y / density)[x / density] += part;
                }
            }
        }
    }
}

std::vector<float> gaussian(double deviation)
{
    int const reach = static_cast<int>(std::ceil(4 * deviation));
    double sum = 0;
    for (int i = -reach; i <= reach; ++i)
        sum += std::exp(-0.5 * i * i / (deviation * deviation));
    std::vector<float> weights;
    for (int i = -reach; i <= reach; ++i)
        weights.push_back(
            static_cast<float>(std::exp(-0.5 * i * i / (deviation * deviation)) / sum));
    return weights;
}

void blurOnce(Plane& plane, std::vector<float> const& weights, bool across)
{
    int const reach = static_cast<int>(weights.size() / 2);
    Plane result(plane.width, plane.height, 0);
    for (int i = -reach; i <= reach; ++i) {
        float const weight = weights[static_cast<std::size_t>(i + reach)];
        int const dx = across ? i : 0;
        int const dy = across ? 0 : i;
        for (int y = std::max(0, -dy); y < std::min(plane.height, plane.height - dy); ++y) {
            float const* const in = plane.row(y + dy);
            float* const out = result.row(y);
            int const end = std::min(plane.width, plane.width - dx);
            for (int x = std::max(0, -dx); x < end; ++x)
                out[x] += weight * in[x + dx];
        }
    }
    plane.values.swap(result.values);
}

void blur(Plane& plane, double deviation)
{
    if (deviation <= 0)
        return;
    std::vector<float> const weights = gaussian(deviation);
    blurOnce(plane, weights, true);
    blurOnce(plane, weights, false);
}

int marginFor(double deviation)
{
    return static_cast<int>(std::ceil(4 * deviation)) + 2;
}

Plane softFill(View const& view, Polygon const& polygon, double deviation)
{
    Plane plane(view.width, view.height, marginFor(deviation));
    fill(plane, polygon);
    blur(plane, deviation);
    return plane;
}

/// The ring's blur is about as narrow as a pixel, so it is blurred on a grid four times as fine.
Plane softRing(View const& view, OrbFrame const& frame)
{
    constexpr int fine = 4;
    RippleLayer const& ring = *frame.ripple;
    View const close
        = {.width = view.width * fine, .height = view.height * fine, .scale = view.scale * fine};
    double const deviation = ring.blur * close.scale;
    int const margin = marginFor(deviation) / fine + 1;
    Plane large(close.width, close.height, margin * fine);
    stroke(large, outline(close, frame.size, ring.phase, ring.scale),
        ring.lineWidth * ring.scale * close.scale, samples / fine);
    blur(large, deviation);
    Plane plane(view.width, view.height, margin);
    for (int y = 0; y < large.height; ++y) {
        for (int x = 0; x < large.width; ++x)
            plane.row(y / fine)[x / fine] += large.row(y)[x] / (fine * fine);
    }
    return plane;
}

/// A pixel with colours premultiplied by alpha, all 0..1.
struct Pixel {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 0;

    void cover(OrbColor const& color, double onTop)
    {
        double const rest = 1 - onTop;
        red = color.red * onTop + red * rest;
        green = color.green * onTop + green * rest;
        blue = color.blue * onTop + blue * rest;
        alpha = onTop + alpha * rest;
    }
};

OrbColor mix(OrbColor const& a, OrbColor const& b, double t)
{
    return {.red = a.red + (b.red - a.red) * t,
        .green = a.green + (b.green - a.green) * t,
        .blue = a.blue + (b.blue - a.blue) * t};
}

OrbColor gradient(BodyLayer const& body, View const& view, double side, int x, int y)
{
    double const toPoints = 1 / (view.scale * body.scale);
    double const dx = (x + 0.5 - view.width / 2.0) * toPoints + side / 2 - body.centerX;
    double const dy = (y + 0.5 - view.height / 2.0) * toPoints + side / 2 - body.centerY;
    double const t = std::hypot(dx, dy) / body.endRadius;
    if (t < 0.5)
        return mix(body.stops[0], body.stops[1], t * 2);
    return mix(body.stops[1], body.stops[2], std::min(t * 2 - 1, 1.0));
}

std::uint32_t packed(Pixel const& pixel, double opacity)
{
    auto const level
        = [&](double x) { return static_cast<std::uint32_t>(std::lround(x * opacity * 255)); };
    return level(pixel.alpha) << 24U | level(pixel.red) << 16U | level(pixel.green) << 8U
        | level(pixel.blue);
}

} // namespace

Picture referencePicture(OrbFrame const& frame, int width, int height, double scale)
{
    View const view = {.width = width, .height = height, .scale = scale};
    double const side = frame.size;
    BodyLayer const& body = frame.body;
    HighlightLayer const& light = frame.highlight;
    Plane glow = softFill(view, outline(view, side, frame.glow.phase, frame.glow.scale),
        frame.glow.blur * frame.glow.scale * scale);
    Plane ring = frame.ripple ? softRing(view, frame) : Plane(width, height, 0);
    Plane shadow = softFill(view,
        outline(view, side, body.phase, body.scale, body.shadow.dx, body.shadow.dy),
        body.shadow.radius * scale);
    Plane filled = softFill(view, outline(view, side, body.phase, body.scale), 0);
    Plane rim(width, height, 2);
    stroke(rim, outline(view, side, frame.rim.phase, frame.rim.scale),
        frame.rim.lineWidth * frame.rim.scale * scale, samples);
    Plane shine = softFill(view, outline(view, side, light.phase, light.scale, light.dx, light.dy),
        light.blur * scale);
    Picture picture = {.width = width, .height = height, .pixels = {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            Pixel pixel;
            pixel.cover(frame.glow.color, glow.at(x, y) * frame.glow.opacity);
            if (frame.ripple)
                pixel.cover(frame.ripple->color, ring.at(x, y) * frame.ripple->opacity);
            pixel.cover({}, shadow.at(x, y) * body.shadow.opacity);
            pixel.cover(gradient(body, view, side, x, y), filled.at(x, y));
            pixel.cover(frame.rim.color, rim.at(x, y) * frame.rim.opacity);
            pixel.cover(light.color, shine.at(x, y) * light.opacity);
            picture.pixels.push_back(packed(pixel, frame.opacity));
        }
    }
    return picture;
}

} // namespace velmora
