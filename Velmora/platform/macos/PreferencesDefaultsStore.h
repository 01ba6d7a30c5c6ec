#pragma once

#include "Velmora/platform/DefaultsStore.h"
#include "Velmora/platform/macos/Preferences.h"

namespace velmora {

/// The user's settings in the system's preferences.
class PreferencesDefaultsStore final : public DefaultsStore {
public:
    /// `preferences` outlives the store.
    explicit PreferencesDefaultsStore(Preferences& preferences);

    [[nodiscard]] std::optional<std::int64_t> integer(std::string_view key) const override;
    [[nodiscard]] std::optional<bool> boolean(std::string_view key) const override;
    [[nodiscard]] std::optional<double> number(std::string_view key) const override;
    void write(std::span<DefaultsEntry const> entries) override;
    void flush() override;

private:
    Preferences& m_preferences;
};

} // namespace velmora
