#pragma once

#include "Velmora/platform/MotionSetting.h"

namespace velmora {

/// The accessibility setting for less motion on the display.
class WorkspaceMotion final : public MotionSetting {
public:
    [[nodiscard]] bool reduceMotion() const override;
};

} // namespace velmora
