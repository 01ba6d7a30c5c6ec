#pragma once

#include "Velmora/platform/DefaultsStore.h"

#include <cmath>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

/// A store in memory that remembers what was written, in which order, and how often it was asked to
/// reach the disk.
class FakeDefaultsStore final : public DefaultsStore {
public:
    using Batch = std::vector<std::pair<std::string, DefaultsValue>>;

    [[nodiscard]] std::optional<std::int64_t> integer(std::string_view key) const override
    {
        return get<std::int64_t>(key);
    }

    [[nodiscard]] std::optional<bool> boolean(std::string_view key) const override
    {
        return get<bool>(key);
    }

    [[nodiscard]] std::optional<double> number(std::string_view key) const override
    {
        if (auto const whole = get<std::int64_t>(key))
            return static_cast<double>(*whole);
        auto const value = get<double>(key);
        return value && std::isfinite(*value) ? value : std::nullopt;
    }

    void write(std::span<DefaultsEntry const> entries) override
    {
        Batch batch;
        for (auto const& entry : entries) {
            values.insert_or_assign(std::string(entry.key), entry.value);
            batch.emplace_back(entry.key, entry.value);
        }
        writes.push_back(std::move(batch));
    }

    void flush() override { ++flushes; }

    /// What is stored now; a test may put values here beforehand.
    std::map<std::string, DefaultsValue, std::less<>> values;
    /// One element for each call of `write`, its entries in their order.
    std::vector<Batch> writes;
    int flushes = 0;

private:
    template <typename Value>
    [[nodiscard]] std::optional<Value> get(std::string_view key) const
    {
        auto const at = values.find(key);
        if (at == values.end())
            return std::nullopt;
        auto const* const value = std::get_if<Value>(&at->second);
        return value ? std::optional<Value>(*value) : std::nullopt;
    }
};

} // namespace velmora
