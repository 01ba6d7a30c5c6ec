#include "Velmora/platform/linux/TomlText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace velmora {

namespace {

bool isBareKeyCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_'
        || c == '-';
}

template <typename Number>
std::string shortest(Number number)
{
    std::array<char, 64> buffer = {};
    auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return {buffer.data(), result.ptr};
}

} // namespace

std::string tomlKey(std::string_view key)
{
    bool const bare = !key.empty() && std::all_of(key.begin(), key.end(), isBareKeyCharacter);
    return bare ? std::string{key} : tomlString(key);
}

std::string tomlString(std::string_view text)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string quoted = "\"";
    for (char const c : text) {
        auto const byte = static_cast<unsigned char>(c);
        if (c == '\n') {
            quoted += "\\n";
        } else if (c == '\t') {
            quoted += "\\t";
        } else if (byte < 0x20 || byte == 0x7F) {
            quoted += "\\u00";
            quoted += digits[byte >> 4U];
            quoted += digits[byte & 0xFU];
        } else {
            if (c == '"' || c == '\\')
                quoted += '\\';
            quoted += c;
        }
    }
    return quoted + '"';
}

std::string tomlValue(bool value)
{
    return value ? "true" : "false";
}

std::string tomlValue(std::int64_t value)
{
    return shortest(value);
}

std::string tomlValue(double value)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value < 0 ? "-inf" : "inf";
    auto text = shortest(value);
    if (text.find_first_of(".e") == std::string::npos)
        text += ".0";
    return text;
}

} // namespace velmora
