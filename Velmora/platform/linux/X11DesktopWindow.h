#pragma once

#include "Velmora/platform/DesktopWindow.h"

namespace velmora {

/// An ordinary window on an X server, as its window manager is asked to treat it. Where the toolkit
/// speaks no X11 nothing happens.
class X11DesktopWindow final : public DesktopWindow {
public:
    void joinEveryDesktop(std::uintptr_t window) override;
};

} // namespace velmora
