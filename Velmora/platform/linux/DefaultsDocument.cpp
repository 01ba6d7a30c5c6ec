#include "Velmora/platform/linux/DefaultsDocument.h"

#include "Velmora/platform/linux/TomlText.h"

#include <algorithm>

namespace velmora {

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
        text += tomlKey(entry.key) + " = ";
        text += std::visit([](auto value) { return tomlValue(value); }, entry.value);
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
