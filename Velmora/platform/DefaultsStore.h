#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

namespace velmora {

/// One stored value. A number is a double also where it happens to be whole.
using DefaultsValue = std::variant<std::int64_t, bool, double>;

/// One named value of the store.
struct DefaultsEntry {
    std::string_view key;
    DefaultsValue value;
};

/// The user's stored settings, held in memory and kept on disk by the store on its own schedule.
///
/// Reading never fails: what is absent, of another type or not finite is simply not there. Writing
/// never fails either; what could not be saved is kept in memory and saved at the next occasion.
class DefaultsStore {
public:
    virtual ~DefaultsStore() = default;

    [[nodiscard]] virtual std::optional<std::int64_t> integer(std::string_view key) const = 0;
    [[nodiscard]] virtual std::optional<bool> boolean(std::string_view key) const = 0;
    /// A finite number; a whole number without a fraction counts as one.
    [[nodiscard]] virtual std::optional<double> number(std::string_view key) const = 0;

    /// Takes the values into memory at once, in this order, and returns before anything is
    /// written.
    virtual void write(std::span<DefaultsEntry const> entries) = 0;

    /// Returns when everything written so far is on the disk, or could not be put there.
    virtual void flush() = 0;
};

} // namespace velmora
