#include "Velmora/orb/CellRow.h"

#include <algorithm>
#include <cstddef>

namespace velmora {
namespace {

constexpr int blockSize = AreaRaster::blockSize;
/// A tenth of a level of white.
constexpr float nothing = 0.1F / 255;

void grow(std::vector<float>& buffer, int size)
{
    if (buffer.size() < static_cast<std::size_t>(size))
        buffer.resize(static_cast<std::size_t>(size));
}

} // namespace

void CellRow::begin(CellGrid const& grid, SoftPlane const& plane, float opacity, int width)
{
    grid_ = grid;
    plane_ = &plane;
    opacity_ = opacity;
    width_ = width;
    if (cells_.size() < static_cast<std::size_t>(grid.stride + blockSize))
        grow(cells_, grid.stride + 8 + blockSize);
    grow(pixels_, width + 2 * overshoot);
    grow(shares_, grid.cell + blockSize);
    for (int x = 0; x < grid.cell + blockSize; ++x) {
        shares_[static_cast<std::size_t>(x)]
            = (static_cast<float>(x) + grid.firstOffset()) / static_cast<float>(grid.cell);
    }
}

void CellRow::beginRow(int y)
{
    int const shifted = y - grid_.cell / 2 + grid_.margin * grid_.cell;
    int const row = shifted / grid_.cell;
    from_ = 0;
    end_ = 0;
    if (!plane_->shows(row) && !plane_->shows(row + 1)) {
        std::fill_n(cells_.data(), grid_.stride, 0.0F);
        return;
    }
    float const below = shares_[static_cast<std::size_t>(shifted % grid_.cell)] * opacity_;
    Lanes const first = splat(opacity_ - below);
    Lanes const second = splat(below);
    float const* const upper = plane_->row(row);
    float const* const lower = plane_->row(row + 1);
    int left = grid_.stride;
    int right = 0;
    for (int i = 0; i < grid_.stride; i += 4) {
        Lanes const value = first * load(upper + i) + second * load(lower + i);
        store(cells_.data() + i, value);
        if (!anyAbove(value, splat(nothing)))
            continue;
        left = std::min(left, i);
        right = i + 4;
    }
    from_ = std::max(grid_.firstPixel(left - 1), 0) / blockSize * blockSize;
    end_ = std::min(grid_.firstPixel(right), width_ + blockSize - 1) / blockSize * blockSize;
    end_ = std::max(from_, end_);
}

void CellRow::stretch(int from, int end)
{
    int const shifted = from - grid_.cell / 2 + grid_.margin * grid_.cell;
    float const* cell = cells_.data() + shifted / grid_.cell;
    int const offset = shifted % grid_.cell;
    float const* shares = shares_.data() + offset;
    float* const out = pixels_.data() + overshoot;
    int stop = from - offset + grid_.cell;
    for (int x = from; x < end; stop += grid_.cell, ++cell, shares = shares_.data()) {
        Lanes const left = splat(cell[0]);
        Lanes const step = splat(cell[1] - cell[0]);
        int const until = std::min(stop, end);
        for (int at = x; at < until; at += 4, shares += 4)
            store(out + at, left + step * load(shares));
        x = until;
    }
}

} // namespace velmora
