#pragma once

#include <cstdint>
#include <vector>

namespace velmora {

/// The system's symbol for wind on a square of `side` pixels: premultiplied 0xAARRGGBB, rows from
/// the top, of which only the coverage counts. Empty where the system has no such symbol.
[[nodiscard]] std::vector<std::uint32_t> windSymbol(int side);

} // namespace velmora
