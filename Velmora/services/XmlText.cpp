#include "Velmora/services/XmlText.h"

#include <array>
#include <cstdint>

namespace velmora {

namespace {

struct Decoded {
    std::uint32_t scalar = 0;
    std::size_t length = 0;
};

/// The first character of a text that is not empty; absent when it is not well-formed UTF-8.
std::optional<Decoded> decodeFirst(std::string_view text)
{
    auto const byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    auto const lead = byte(0);
    if (lead < 0x80)
        return Decoded{.scalar = lead, .length = 1};
    std::size_t const length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return std::nullopt;
    std::uint32_t scalar = lead & (0x7FU >> length);
    for (std::size_t at = 1; at < length; ++at) {
        if ((byte(at) & 0xC0U) != 0x80U)
            return std::nullopt;
        scalar = (scalar << 6U) | (byte(at) & 0x3FU);
    }
    constexpr std::array<std::uint32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    if (scalar < smallest.at(length))
        return std::nullopt;
    return Decoded{.scalar = scalar, .length = length};
}

bool isXmlCharacter(std::uint32_t scalar)
{
    return scalar == '\t' || scalar == '\n' || scalar == '\r'
        || (scalar >= 0x20 && scalar <= 0xD7FF) || (scalar >= 0xE000 && scalar <= 0xFFFD)
        || (scalar >= 0x10000 && scalar <= 0x10FFFF);
}

std::string_view escaped(std::string_view character)
{
    switch (character.front()) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '\r':
        // A reader turns a bare one into a line feed.
        return "&#13;";
    default:
        return character;
    }
}

} // namespace

std::optional<std::string> xmlText(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        auto const first = decodeFirst(text);
        if (!first || !isXmlCharacter(first->scalar))
            return std::nullopt;
        result += escaped(text.substr(0, first->length));
        text.remove_prefix(first->length);
    }
    return result;
}

} // namespace velmora
