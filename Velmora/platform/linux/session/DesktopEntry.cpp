#include "Velmora/platform/linux/session/DesktopEntry.h"

namespace velmora {

namespace {

constexpr std::string_view groupHeader = "[Desktop Entry]";
constexpr std::string_view whiteSpace = " \t\r";

std::string_view trimmed(std::string_view text)
{
    auto const first = text.find_first_not_of(whiteSpace);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

std::string_view keyOf(std::string_view line)
{
    auto const equals = line.find('=');
    return equals == std::string_view::npos ? std::string_view() : trimmed(line.substr(0, equals));
}

} // namespace

DesktopEntry::DesktopEntry(std::string_view text)
{
    while (!text.empty()) {
        auto const end = text.find('\n');
        m_lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

std::optional<DesktopEntry::Place> DesktopEntry::find(std::string_view key) const
{
    std::optional<Place> place;
    bool inGroup = false;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        auto const line = trimmed(m_lines[i]);
        if (line.substr(0, 1) == "[")
            inGroup = line == groupHeader;
        if (!inGroup)
            continue;
        if (keyOf(line) == key)
            place = Place{.line = i, .present = true};
        else if (!line.empty() && !(place && place->present))
            place = Place{.line = i + 1};
    }
    return place;
}

std::optional<std::string> DesktopEntry::value(std::string_view key) const
{
    auto const place = find(key);
    if (!place || !place->present)
        return std::nullopt;
    std::string_view const line = m_lines[place->line];
    return std::string(trimmed(line.substr(line.find('=') + 1)));
}

void DesktopEntry::set(std::string_view key, std::string_view value)
{
    auto place = find(key);
    if (!place) {
        m_lines.emplace_back(groupHeader);
        place = Place{.line = m_lines.size()};
    }
    auto line = std::string(key) + "=" + std::string(value);
    if (place->present)
        m_lines[place->line] = std::move(line);
    else
        m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(place->line), std::move(line));
}

std::string DesktopEntry::text() const
{
    std::string text;
    for (auto const& line : m_lines)
        text += line + "\n";
    return text;
}

std::string desktopEntryString(std::string_view text)
{
    std::string result;
    for (char const character : text) {
        switch (character) {
        case '\\':
            result += "\\\\";
            break;
        case '\n':
            result += "\\n";
            break;
        case '\r':
            result += "\\r";
            break;
        case '\t':
            result += "\\t";
            break;
        case ' ':
            // White space at either end would be taken for the file's own.
            result += result.empty() ? "\\s" : " ";
            break;
        default:
            result += character;
        }
    }
    if (!result.empty() && result.back() == ' ')
        result.replace(result.size() - 1, 1, "\\s");
    return result;
}

std::string desktopEntryExec(std::string_view program)
{
    // Quoting comes first, then the escapes of any string value.
    std::string quoted = "\"";
    for (char const character : program) {
        if (std::string_view("\"`$\\").find(character) != std::string_view::npos)
            quoted += '\\';
        if (character == '%')
            quoted += '%';
        quoted += character;
    }
    quoted += '"';
    // No desktop entry may name a program with "=" in its path, and a common library looks for one
    // with "%" under the doubled sign. An argument is free of both troubles.
    if (program.find_first_of("%=") != std::string_view::npos)
        quoted = R"(/bin/sh -c "exec \"\$0\"" )" + quoted;
    return desktopEntryString(quoted);
}

} // namespace velmora
