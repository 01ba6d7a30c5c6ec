#pragma once

#include "Velmora/orb/Numbers.h"
#include "Velmora/orb/SoftLayers.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velmora {

/// Where the pixels between two cells' centres lie, in 1/65536 of a cell from the middle, for
/// stretching cells in whole numbers.
class CellPlaces {
public:
    /// Works out the places of a grid, each `copies` times (1 or 4).
    void fit(CellGrid const& grid, int copies);

    /// The places of eight numbers from pixel `x` of a cell on.
    [[nodiscard]] Numbers from(int x) const { return load(m_places.data() + x * m_copies); }

    /// The place of pixel `x`, eight times.
    [[nodiscard]] Numbers of(int x) const
    {
        return splatNumber(m_places[static_cast<std::size_t>(x * m_copies)]);
    }

private:
    std::vector<std::int16_t> m_places;
    std::ptrdiff_t m_copies = 1;
    int m_cell = 0;
};

} // namespace velmora
