#pragma once

#include "Velmora/windows/WidgetPanel.h"

#include <memory>

namespace velmora {

/// Makes the orb's panel, puts it where it belongs, and shows it without taking the keyboard. A
/// saved place that had to be pulled back onto a display by more than a point is saved anew.
[[nodiscard]] std::unique_ptr<WidgetPanel> setupWidget(
    WidgetPanel::Seams const& seams, WidgetView& view);

} // namespace velmora
