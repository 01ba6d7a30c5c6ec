#pragma once

#include "Velmora/platform/DesktopWindow.h"

namespace velmora {

/// The settings' window: floating, on every Space, light, and the active program's when shown.
class AppKitDesktopWindow final : public DesktopWindow {
public:
    void joinEveryDesktop(std::uintptr_t window) override;
};

} // namespace velmora
