#include "Velmora/services/XmlText.h"

#include "Velmora/services/Utf8.h"

#include <cstdint>

namespace velmora {

namespace {

bool isXmlCharacter(std::uint32_t scalar)
{
    bool const isControl = scalar < 0x20 && scalar != '\t' && scalar != '\n' && scalar != '\r';
    return !isControl && scalar != 0xFFFE && scalar != 0xFFFF;
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
        auto const first = decodeUtf8(text);
        if (!first || !isXmlCharacter(first->scalar))
            return std::nullopt;
        result += escaped(text.substr(0, first->length));
        text.remove_prefix(first->length);
    }
    return result;
}

} // namespace velmora
