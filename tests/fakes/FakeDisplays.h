#pragma once

#include "Velmora/platform/Displays.h"

namespace velmora {

/// The displays that the test connected.
class FakeDisplays final : public Displays {
public:
    [[nodiscard]] std::vector<Display> all() const override { return displays; }
    [[nodiscard]] std::optional<DisplayId> main() const override { return mainDisplay; }

    std::vector<Display> displays;
    std::optional<DisplayId> mainDisplay;
};

} // namespace velmora
