#include "Velmora/orb/CellPlaces.h"

#include <algorithm>
#include <cmath>

namespace velmora {

void CellPlaces::fit(CellGrid const& grid, int copies)
{
    if (!m_places.empty() && m_cell == grid.cell && m_copies == copies)
        return;
    m_cell = grid.cell;
    m_copies = copies;
    int const count = grid.cell + 8;
    m_places.resize(static_cast<std::size_t>(count) * static_cast<std::size_t>(copies));
    for (int x = 0; x < count; ++x) {
        float const share
            = (static_cast<float>(x) + grid.firstOffset()) / static_cast<float>(grid.cell);
        float const place = std::clamp((share - 0.5F) * 65536, -32768.0F, 32767.0F);
        std::fill_n(
            m_places.data() + m_copies * x, copies, static_cast<std::int16_t>(std::lround(place)));
    }
}

} // namespace velmora
