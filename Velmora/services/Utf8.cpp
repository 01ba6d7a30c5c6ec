#include "Velmora/services/Utf8.h"

#include <array>

namespace velmora {

std::optional<Utf8Character> decodeUtf8(std::string_view text)
{
    auto const byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    auto const lead = byte(0);
    if (lead < 0x80)
        return Utf8Character{.scalar = lead, .length = 1};
    std::size_t const length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return std::nullopt;
    std::uint32_t scalar = lead & (0x7FU >> length);
    for (std::size_t at = 1; at < length; ++at) {
        if ((byte(at) & 0xC0U) != 0x80U)
            return std::nullopt;
        scalar = (scalar << 6U) | (byte(at) & 0x3FU);
    }
    constexpr std::array<std::uint32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    bool const isSurrogate = scalar >= 0xD800 && scalar <= 0xDFFF;
    if (scalar < smallest.at(length) || isSurrogate || scalar > 0x10FFFF)
        return std::nullopt;
    return Utf8Character{.scalar = scalar, .length = length};
}

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        auto const first = decodeUtf8(text);
        if (!first)
            return false;
        text.remove_prefix(first->length);
    }
    return true;
}

} // namespace velmora
