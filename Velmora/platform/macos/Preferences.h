#pragma once

#include "Velmora/platform/DefaultsStore.h"

#include <optional>
#include <string_view>

namespace velmora {

/// The system's preferences of this program, one value at a time.
class Preferences {
public:
    virtual ~Preferences() = default;

    /// What is stored; absent when there is nothing, or neither a boolean nor a number.
    [[nodiscard]] virtual std::optional<DefaultsValue> read(std::string_view key) const = 0;

    /// Hands the value to the system, which saves it on its own schedule.
    virtual void write(std::string_view key, DefaultsValue const& value) = 0;

    /// Returns when everything written is saved, or could not be.
    virtual void synchronise() = 0;
};

} // namespace velmora
