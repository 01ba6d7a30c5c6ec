#include "Velmora/geometry/GripState.h"

namespace velmora {

GripChange gripHovered(GripState state, bool over)
{
    if (over == state.hovering)
        return {.state = state};
    state.hovering = over;
    if (over)
        return {.state = state, .cursor = GripCursor::resize};
    return {.state = state, .cursor = state.dragging ? GripCursor::unchanged : GripCursor::arrow};
}

GripChange gripPressed(GripState state, double size, Point screen)
{
    state.dragging = true;
    state.startSize = size;
    state.startScreen = screen;
    return {.state = state, .cursor = GripCursor::resize};
}

GripState gripShifted(GripState state, Point by)
{
    state.startScreen = {.x = state.startScreen.x + by.x, .y = state.startScreen.y + by.y};
    return state;
}

GripChange gripReleased(GripState state, bool inside)
{
    state.dragging = false;
    if (inside)
        return {.state = state};
    state.hovering = false;
    return {.state = state, .cursor = GripCursor::arrow};
}

double gripSize(GripState const& state, Point screen)
{
    return state.startSize + (screen.x - state.startScreen.x) - (screen.y - state.startScreen.y);
}

} // namespace velmora
