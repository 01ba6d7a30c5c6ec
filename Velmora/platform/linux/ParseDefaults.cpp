// The one file that sees the TOML library: it is slow to compile.
#include "Velmora/platform/linux/DefaultsDocument.h"

#include <algorithm>
#include <sstream>
#include <utility>

// Values inside values; the library's own default allows more than a small stack holds.
#define TOML_MAX_NESTED_VALUES 16
#define TOML_EXCEPTIONS 0
#include <toml++/toml.h>

namespace velmora {

namespace {

/// A dotted key nests one table per dot, and the library takes any number of them and then walks
/// the tables recursively. Dots are counted wherever they stand on a line: telling keys from
/// strings would need the parser that is being protected.
bool nestsTooDeep(std::string_view bytes)
{
    constexpr int dotsPerLine = 200;
    int dots = 0;
    for (char const c : bytes) {
        if (c == '\n')
            dots = 0;
        else if (c == '.' && ++dots > dotsPerLine)
            return true;
    }
    return false;
}

std::optional<DefaultsValue> plainValue(toml::node const& node)
{
    if (auto const* value = node.as_integer())
        return DefaultsValue{value->get()};
    if (auto const* value = node.as_boolean())
        return DefaultsValue{value->get()};
    if (auto const* value = node.as_floating_point())
        return DefaultsValue{value->get()};
    return std::nullopt;
}

std::string textOf(toml::table const& table)
{
    // Strings on one line and quoted alike: the plainest form is the one that reads back surely.
    constexpr auto flags = toml::format_flags::allow_unicode_strings
        | toml::format_flags::allow_binary_integers | toml::format_flags::allow_octal_integers
        | toml::format_flags::allow_hexadecimal_integers;
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << toml::toml_formatter{table, flags};
    auto text = std::move(stream).str();
    if (!text.empty() && text.back() != '\n')
        text += '\n';
    return text;
}

bool comesEarlier(toml::source_position a, toml::source_position b)
{
    return std::pair{a.line, a.column} < std::pair{b.line, b.column};
}

bool sameValue(toml::node const& a, toml::node const& b);

bool sameElements(toml::array const& a, toml::array const& b)
{
    return a.size() == b.size()
        && std::equal(a.cbegin(), a.cend(), b.cbegin(),
            [](auto const& left, auto const& right) { return sameValue(left, right); });
}

bool sameEntries(toml::table const& a, toml::table const& b)
{
    return a.size() == b.size()
        && std::equal(a.cbegin(), a.cend(), b.cbegin(), [](auto const& left, auto const& right) {
               return left.first == right.first && sameValue(left.second, right.second);
           });
}

/// Equal in value and type; unlike the library's comparison, two that are not numbers are equal.
bool sameValue(toml::node const& a, toml::node const& b)
{
    if (a.type() != b.type())
        return false;
    if (auto const* table = a.as_table())
        return sameEntries(*table, *b.as_table());
    if (auto const* array = a.as_array())
        return sameElements(*array, *b.as_array());
    if (auto const* number = a.as_floating_point()) {
        double const other = b.as_floating_point()->get();
        return number->get() == other || (number->get() != number->get() && other != other);
    }
    return a.visit([&b](auto const& left) {
        using Left = std::decay_t<decltype(left)>;
        if constexpr (toml::is_value<Left>)
            return left == *b.as<typename Left::value_type>();
        else
            return false;
    });
}

DefaultsDocument::Kept keptFrom(std::string_view key, toml::node const& node)
{
    toml::table alone;
    alone.insert(key, node);
    auto text = textOf(alone);
    // No key begins with a bracket unless it is quoted: this is a table's header.
    bool const isTable = text.starts_with('[');
    return {
        .key = std::string{key},
        .value = plainValue(node),
        .text = std::move(text),
        .isTable = isTable,
    };
}

} // namespace

std::optional<DefaultsDocument> parseDefaults(std::string_view bytes)
{
    if (nestsTooDeep(bytes))
        return std::nullopt;
    auto const parsed = toml::parse(bytes);
    if (!parsed)
        return std::nullopt;

    std::vector<std::pair<toml::source_position, DefaultsDocument::Kept>> found;
    for (auto const& [key, node] : parsed.table())
        found.emplace_back(key.source().begin, keptFrom(key.str(), node));
    std::sort(found.begin(), found.end(),
        [](auto const& a, auto const& b) { return comesEarlier(a.first, b.first); });

    DefaultsDocument document;
    for (auto& [position, kept] : found)
        document.m_kept.push_back(std::move(kept));

    // What this writes has to be read by this: checked now, while the file is still as it was.
    auto const text = document.text();
    if (nestsTooDeep(text))
        return std::nullopt;
    auto const again = toml::parse(text);
    if (!again || !sameValue(parsed.table(), again.table()))
        return std::nullopt;
    return document;
}

} // namespace velmora
