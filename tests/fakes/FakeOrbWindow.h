#pragma once

#include "Velmora/views/OrbWindow.h"

namespace velmora {

/// A window that is wherever it was put.
class FakeOrbWindow final : public OrbWindow {
public:
    [[nodiscard]] Rect frame() const override { return place; }
    void setFrameOrigin(Point origin) override
    {
        place.x = origin.x;
        place.y = origin.y;
    }
    [[nodiscard]] std::optional<DisplayId> display() const override { return shownOn; }
    [[nodiscard]] std::optional<Rect> visibleFrame() const override { return visible; }

    Rect place = {.x = 600, .y = 400, .width = 128, .height = 128};
    std::optional<DisplayId> shownOn = DisplayId(1);
    std::optional<Rect> visible = Rect{.x = 0, .y = 0, .width = 1440, .height = 900};
};

} // namespace velmora
