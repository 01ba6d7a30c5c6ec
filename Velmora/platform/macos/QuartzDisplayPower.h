#pragma once

#include "Velmora/platform/DisplayPower.h"

namespace velmora {

/// Whether the main display sleeps.
class QuartzDisplayPower final : public DisplayPower {
public:
    [[nodiscard]] bool asleep() override;
};

} // namespace velmora
