#include "Velmora/platform/linux/TomlDefaultsStore.h"

#include <cmath>
#include <utility>

namespace velmora {

namespace {

/// The document in the bytes, unless it would grow too large to be read when it is written anew.
std::optional<DefaultsDocument> understood(std::string_view bytes)
{
    constexpr std::size_t roomForValues = 1U << 16U;
    auto document = parseDefaults(bytes);
    if (document && document->text().size() + roomForValues > SettingsFile::sizeLimit)
        document.reset();
    return document;
}

DefaultsDocument loaded(SettingsFile& file)
{
    auto const bytes = file.load();
    auto document = bytes ? understood(*bytes) : std::nullopt;
    return document ? *std::move(document) : DefaultsDocument{};
}

} // namespace

TomlDefaultsStore::TomlDefaultsStore(std::filesystem::path file)
    : m_file(std::move(file), [](std::string_view bytes) { return understood(bytes).has_value(); })
    , m_document(loaded(m_file))
    , m_worker([this] { return save(); })
{
}

std::optional<std::int64_t> TomlDefaultsStore::integer(std::string_view key) const
{
    std::lock_guard const lock{m_mutex};
    auto const value = m_document.value(key);
    auto const* integer = value ? std::get_if<std::int64_t>(&*value) : nullptr;
    return integer ? std::optional{*integer} : std::nullopt;
}

std::optional<bool> TomlDefaultsStore::boolean(std::string_view key) const
{
    std::lock_guard const lock{m_mutex};
    auto const value = m_document.value(key);
    auto const* boolean = value ? std::get_if<bool>(&*value) : nullptr;
    return boolean ? std::optional{*boolean} : std::nullopt;
}

std::optional<double> TomlDefaultsStore::number(std::string_view key) const
{
    if (auto const whole = integer(key))
        return static_cast<double>(*whole);
    std::lock_guard const lock{m_mutex};
    auto const value = m_document.value(key);
    auto const* number = value ? std::get_if<double>(&*value) : nullptr;
    return number && std::isfinite(*number) ? std::optional{*number} : std::nullopt;
}

void TomlDefaultsStore::write(std::span<DefaultsEntry const> entries)
{
    {
        std::lock_guard const lock{m_mutex};
        for (auto const& entry : entries)
            m_document.set(entry.key, entry.value);
    }
    m_worker.request();
}

void TomlDefaultsStore::flush()
{
    m_worker.flush();
}

bool TomlDefaultsStore::save()
{
    std::string text;
    {
        std::lock_guard const lock{m_mutex};
        text = m_document.text();
    }
    return m_file.save(text);
}

std::filesystem::path defaultsFile(std::filesystem::path const& configFolder)
{
    if (!configFolder.is_absolute())
        return {};
    return configFolder / "com.local.velmora" / "defaults.toml";
}

} // namespace velmora
