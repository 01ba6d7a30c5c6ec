#pragma once

#include "Velmora/platform/DesktopPanel.h"

#include <vector>

namespace velmora {

/// Keeps what the window system was told.
class FakeDesktopPanel final : public DesktopPanel {
public:
    void adopt(std::uintptr_t window) override { adopted.push_back(window); }
    void shown() override { ++timesShown; }
    void showResizeCursor() override { ++resizeCursors; }
    void setIgnoresPointer(bool ignores) override { ignored.push_back(ignores); }
    void setOutline(std::span<PixelRect const> outline) override
    {
        lastOutline = {outline.begin(), outline.end()};
    }
    [[nodiscard]] bool translucent() const override { return true; }

    std::vector<std::uintptr_t> adopted;
    int timesShown = 0;
    int resizeCursors = 0;
    /// Every value in order; it starts as ignoring.
    std::vector<bool> ignored;
    std::vector<PixelRect> lastOutline;
};

} // namespace velmora
