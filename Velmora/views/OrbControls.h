#pragma once

#include "Velmora/geometry/Rect.h"

#include <array>
#include <optional>

class QPainter;
class QRectF;

/// The two round buttons in the lower half of the orb. Coordinates are desktop points, origin at
/// the orb's top-left corner, y down.
namespace velmora::OrbControls {

enum class Control {
    pause,
    settings,
};
/// From left to right.
inline constexpr std::array all = {Control::pause, Control::settings};

enum class Symbol {
    play,
    pause,
    sliders,
};

/// The square around one button's circle, in an orb whose side is `size`, centred in `bounds`.
[[nodiscard]] Rect frame(Control control, double size, Size bounds);

/// The button whose circle holds a point.
[[nodiscard]] std::optional<Control> at(Point p, double size, Size bounds);

/// Side of the symbols, in an orb whose side is `size`.
[[nodiscard]] double symbolSize(double size);

/// Draws a white symbol of a side, centred on a point.
void drawSymbol(QPainter& painter, Symbol symbol, Point centre, double side);

/// Draws a button: its symbol on a circle. `pressed` dims it.
void draw(QPainter& painter, Symbol symbol, Rect const& frame, double symbolSide, bool pressed);

} // namespace velmora::OrbControls
