#pragma once

#include "Velmora/geometry/ScreenFrames.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace velmora {

/// Names one display for as long as it stays connected.
enum class DisplayId : std::uint64_t {};

/// A connected display and its area.
struct Display {
    DisplayId id{};
    ScreenFrames frames;

    bool operator==(Display const&) const = default;
};

/// The displays that are connected now.
class Displays {
public:
    virtual ~Displays() = default;

    /// Every display in the system's own order; empty when none is connected.
    [[nodiscard]] virtual std::vector<Display> all() const = 0;

    /// The main display; absent when the system names none.
    [[nodiscard]] virtual std::optional<DisplayId> main() const = 0;
};

} // namespace velmora
