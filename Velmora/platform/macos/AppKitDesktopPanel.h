#pragma once

#include "Velmora/platform/DesktopPanel.h"

@class NSTimer;
@class NSView;

namespace velmora {

/// The orb's window as a floating panel that is on every Space and never makes the program the
/// active one.
///
/// The system knows no outline of a window: the panel lets all presses through or none, as the
/// pointer's place asks, which is told 30 times a second also while a menu is open or a drag is
/// under way. Transparent pixels always let what lies behind show through.
class AppKitDesktopPanel final : public DesktopPanel {
public:
    AppKitDesktopPanel() = default;
    AppKitDesktopPanel(AppKitDesktopPanel const&) = delete;
    AppKitDesktopPanel& operator=(AppKitDesktopPanel const&) = delete;
    ~AppKitDesktopPanel() override;

    void adopt(std::uintptr_t window) override;
    void shown() override;
    void setIgnoresPointer(bool ignores) override;
    void setOutline(std::span<PixelRect const> /*outline*/) override { }
    [[nodiscard]] bool translucent() const override { return true; }
    void showResizeCursor() override;

private:
    /// The toolkit's view that fills the window.
    NSView* m_view = nullptr;
    NSTimer* m_pointerTimer = nullptr;
};

} // namespace velmora
