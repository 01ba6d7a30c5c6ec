#pragma once

#include "Velmora/platform/macos/Preferences.h"

namespace velmora {

/// The program's domain in the user's defaults, whatever it was started from.
class CorePreferences final : public Preferences {
public:
    [[nodiscard]] std::optional<DefaultsValue> read(std::string_view key) const override;
    void write(std::string_view key, DefaultsValue const& value) override;
    void synchronise() override;
};

} // namespace velmora
