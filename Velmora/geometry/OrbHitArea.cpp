#include "Velmora/geometry/OrbHitArea.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace velmora::OrbHitArea {

namespace {

constexpr double gripShare = 0.28;
constexpr double smallestGrip = 44.0;
constexpr double gripInset = 1.0;
constexpr double gripClaimShare = 0.5;
constexpr double smallestClaim = 18.0;

/// Whole pixel columns, from `first` up to and without `end`.
struct Columns {
    int first = 0;
    int end = 0;

    [[nodiscard]] bool empty() const { return first >= end; }
    bool operator==(Columns const&) const = default;
};

double shorterSide(Size bounds)
{
    return std::min(bounds.width, bounds.height);
}

Point centre(Size bounds)
{
    return {.x = bounds.width / 2, .y = bounds.height / 2};
}

double claimLength(Size grip)
{
    return std::max(grip.width * gripClaimShare, smallestClaim);
}

/// The largest number below a half-open bound.
double justBelow(double bound)
{
    return std::nextafter(bound, 0.0);
}

/// The columns, among `count`, whose centres lie in [low, high] points.
Columns columnsBetween(double low, double high, double scale, int count)
{
    auto const first = std::ceil(low * scale - 0.5);
    auto const last = std::floor(high * scale - 0.5);
    return {.first = static_cast<int>(std::clamp(first, 0.0, static_cast<double>(count))),
        .end = static_cast<int>(std::clamp(last + 1, 0.0, static_cast<double>(count)))};
}

Columns discColumns(double y, Size bounds, double scale, int count)
{
    auto const radius = discRadius(bounds);
    auto const middle = centre(bounds);
    auto const rise = y - middle.y;
    if (std::abs(rise) > radius)
        return {};
    auto const half = std::sqrt(radius * radius - rise * rise);
    auto const right = std::min(middle.x + half, justBelow(bounds.width));
    return columnsBetween(middle.x - half, right, scale, count);
}

Columns gripColumns(double y, Size bounds, double scale, int count)
{
    auto const grip = gripFrame(bounds);
    if (y < grip.minY() || y >= grip.maxY())
        return {};
    auto const claim = claimLength({.width = grip.width, .height = grip.height});
    auto const left
        = y - grip.minY() <= claim ? grip.minX() : std::max(grip.minX(), grip.maxX() - claim);
    return columnsBetween(left, justBelow(grip.maxX()), scale, count);
}

/// A row's columns: the disc's and the grip's, joined where they meet.
std::array<Columns, 2> rowColumns(double y, Size bounds, double scale, int count)
{
    auto disc = discColumns(y, bounds, scale, count);
    auto const grip = gripColumns(y, bounds, scale, count);
    if (grip.empty())
        return {disc, Columns{}};
    if (disc.empty())
        return {grip, Columns{}};
    if (disc.end < grip.first || grip.end < disc.first)
        return {disc, grip};
    disc.first = std::min(disc.first, grip.first);
    disc.end = std::max(disc.end, grip.end);
    return {disc, Columns{}};
}

void appendRow(std::vector<PixelRect>& outline, std::span<Columns const> columns, int row)
{
    for (auto const& c : columns) {
        if (!c.empty())
            outline.push_back({.x = c.first, .y = row, .width = c.end - c.first, .height = 1});
    }
}

} // namespace

double discRadius(Size bounds)
{
    return shorterSide(bounds) * discShare;
}

Rect gripFrame(Size bounds)
{
    auto const side = std::max(shorterSide(bounds) * gripShare, smallestGrip);
    return {.x = bounds.width - side - gripInset, .y = gripInset, .width = side, .height = side};
}

bool gripClaims(Point p, Size grip)
{
    Rect const square = {.x = 0, .y = 0, .width = grip.width, .height = grip.height};
    if (!square.contains(p))
        return false;
    auto const claim = claimLength(grip);
    return p.x >= square.maxX() - claim || p.y <= square.minY() + claim;
}

Part at(Point p, Size bounds)
{
    Rect const square = {.x = 0, .y = 0, .width = bounds.width, .height = bounds.height};
    if (!square.contains(p))
        return Part::nothing;
    auto const grip = gripFrame(bounds);
    Point const inGrip = {.x = p.x - grip.x, .y = p.y - grip.y};
    if (gripClaims(inGrip, {.width = grip.width, .height = grip.height}))
        return Part::grip;
    return distance(p, centre(bounds)) > discRadius(bounds) ? Part::nothing : Part::orb;
}

bool insideContent(Point p, Size bounds)
{
    return distance(p, centre(bounds)) <= shorterSide(bounds) / 2;
}

std::vector<PixelRect> outline(Size bounds, double scale)
{
    if (!(scale > 0) || !(bounds.width > 0) || !(bounds.height > 0))
        return {};
    auto const columnCount = static_cast<int>(std::lround(bounds.width * scale));
    auto const rowCount = static_cast<int>(std::lround(bounds.height * scale));
    std::vector<PixelRect> rows;
    std::array<Columns, 2> previous{};
    for (int row = 0; row < rowCount; ++row) {
        auto const y = bounds.height - (row + 0.5) / scale;
        auto const columns = rowColumns(y, bounds, scale, columnCount);
        if (columns == previous && columns[1].empty() && !columns[0].empty())
            ++rows.back().height;
        else
            appendRow(rows, columns, row);
        previous = columns;
    }
    return rows;
}

} // namespace velmora::OrbHitArea
