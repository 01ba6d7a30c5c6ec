#pragma once

#include "Velmora/platform/DefaultsStore.h"

#include <cstdint>
#include <optional>

namespace velmora {

/// One object from the system's preferences, which may be of any type: a person can put anything
/// there with the system's own tools.
class PreferenceObject {
public:
    virtual ~PreferenceObject() = default;

    [[nodiscard]] virtual bool isBoolean() const = 0;
    /// Not true of a boolean, which the system keeps apart from its numbers.
    [[nodiscard]] virtual bool isNumber() const = 0;
    /// Whether a number is kept with a fraction; only asked of numbers.
    [[nodiscard]] virtual bool isFloatingPoint() const = 0;

    /// The value as what it was found to be; only asked then.
    [[nodiscard]] virtual bool boolean() const = 0;
    [[nodiscard]] virtual std::int64_t integer() const = 0;
    [[nodiscard]] virtual double number() const = 0;
};

/// The object as a value of the store; absent when it is neither a boolean nor a number.
[[nodiscard]] std::optional<DefaultsValue> defaultsValue(PreferenceObject const& object);

} // namespace velmora
