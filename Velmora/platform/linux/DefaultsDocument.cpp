#include "Velmora/platform/linux/DefaultsDocument.h"

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

std::string quoted(std::string_view key)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "\"";
    for (char const c : key) {
        auto const byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) {
            text += "\\u00";
            text += digits[byte >> 4U];
            text += digits[byte & 0xFU];
        } else {
            if (c == '"' || c == '\\')
                text += '\\';
            text += c;
        }
    }
    return text + '"';
}

std::string keyText(std::string_view key)
{
    bool const bare = !key.empty() && std::all_of(key.begin(), key.end(), isBareKeyCharacter);
    return bare ? std::string{key} : quoted(key);
}

template <typename Number>
std::string shortest(Number number)
{
    std::array<char, 64> buffer = {};
    auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return {buffer.data(), result.ptr};
}

std::string valueText(bool value)
{
    return value ? "true" : "false";
}

std::string valueText(std::int64_t value)
{
    return shortest(value);
}

std::string valueText(double value)
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

} // namespace

std::optional<DefaultsValue> DefaultsDocument::value(std::string_view key) const
{
    auto const hasKey = [key](auto const& entry) { return entry.key == key; };
    if (auto const found = std::find_if(m_set.begin(), m_set.end(), hasKey); found != m_set.end())
        return found->value;
    if (auto const found = std::find_if(m_kept.begin(), m_kept.end(), hasKey);
        found != m_kept.end())
        return found->value;
    return std::nullopt;
}

void DefaultsDocument::set(std::string_view key, DefaultsValue value)
{
    auto const hasKey = [key](auto const& entry) { return entry.key == key; };
    if (auto const found = std::find_if(m_set.begin(), m_set.end(), hasKey); found != m_set.end()) {
        found->value = value;
        return;
    }
    std::erase_if(m_kept, hasKey);
    m_set.push_back({.key = std::string{key}, .value = value});
}

std::string DefaultsDocument::text() const
{
    std::string text;
    for (auto const& entry : m_set) {
        text += keyText(entry.key) + " = ";
        text += std::visit([](auto value) { return valueText(value); }, entry.value);
        text += '\n';
    }
    // A table's header claims every line below it, so single values have to come first.
    for (auto const& kept : m_kept)
        if (!kept.isTable)
            text += kept.text;
    for (auto const& kept : m_kept)
        if (kept.isTable)
            text += '\n' + kept.text;
    return text;
}

} // namespace velmora
