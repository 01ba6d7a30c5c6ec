#pragma once

namespace velmora {

/// The user's wish for less motion on the screen.
class MotionSetting {
public:
    virtual ~MotionSetting() = default;

    /// Read from memory: cheap enough for every tick.
    [[nodiscard]] virtual bool reduceMotion() const = 0;
};

} // namespace velmora
