#include "Velmora/platform/macos/PreferencesDefaultsStore.h"

#include <cmath>

namespace velmora {

namespace {

/// The value if it is of the type that is asked for.
template <typename Type>
std::optional<Type> as(std::optional<DefaultsValue> const& value)
{
    auto const* const found = value ? std::get_if<Type>(&*value) : nullptr;
    return found ? std::optional(*found) : std::nullopt;
}

} // namespace

PreferencesDefaultsStore::PreferencesDefaultsStore(Preferences& preferences)
    : m_preferences(preferences)
{
}

std::optional<std::int64_t> PreferencesDefaultsStore::integer(std::string_view key) const
{
    return as<std::int64_t>(m_preferences.read(key));
}

std::optional<bool> PreferencesDefaultsStore::boolean(std::string_view key) const
{
    return as<bool>(m_preferences.read(key));
}

std::optional<double> PreferencesDefaultsStore::number(std::string_view key) const
{
    auto const stored = m_preferences.read(key);
    if (auto const whole = as<std::int64_t>(stored))
        return static_cast<double>(*whole);
    auto const number = as<double>(stored);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

void PreferencesDefaultsStore::write(std::span<DefaultsEntry const> entries)
{
    for (auto const& entry : entries)
        m_preferences.write(entry.key, entry.value);
}

void PreferencesDefaultsStore::flush()
{
    m_preferences.synchronise();
}

} // namespace velmora
