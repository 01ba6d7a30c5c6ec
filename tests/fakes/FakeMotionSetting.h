#pragma once

#include "Velmora/platform/MotionSetting.h"

namespace velmora {

/// The user's wish for less motion, as the test sets it.
class FakeMotionSetting final : public MotionSetting {
public:
    [[nodiscard]] bool reduceMotion() const override { return reduced; }

    bool reduced = false;
};

} // namespace velmora
