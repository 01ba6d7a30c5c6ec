#pragma once

#include "Velmora/geometry/Rect.h"

namespace velmora {

/// Converts between the program's desktop points (origin at the primary display's bottom-left
/// corner, y up) and the toolkit's (y down, origin wherever the toolkit puts it).
///
/// Both count device-independent points, so that scale factors need no care here. The one place
/// where y is turned over.
class DesktopCoordinates {
public:
    /// `primary` is the primary display in the toolkit's coordinates, y down.
    explicit constexpr DesktopCoordinates(Rect const& primary)
        : m_left(primary.x)
        , m_bottom(primary.y + primary.height)
    {
    }

    /// A toolkit point, y down, as a desktop point.
    [[nodiscard]] constexpr Point fromToolkit(Point p) const
    {
        return {.x = p.x - m_left, .y = m_bottom - p.y};
    }

    /// A toolkit rectangle (top-left corner, y down) as a desktop one (bottom-left corner, y up).
    [[nodiscard]] constexpr Rect fromToolkit(Rect const& r) const
    {
        return {.x = r.x - m_left,
            .y = m_bottom - (r.y + r.height),
            .width = r.width,
            .height = r.height};
    }

    /// A desktop point as a toolkit point, y down.
    [[nodiscard]] constexpr Point toToolkit(Point p) const
    {
        return {.x = p.x + m_left, .y = m_bottom - p.y};
    }

    /// A desktop rectangle as a toolkit one (top-left corner, y down).
    [[nodiscard]] constexpr Rect toToolkit(Rect const& r) const
    {
        return {.x = r.x + m_left,
            .y = m_bottom - (r.y + r.height),
            .width = r.width,
            .height = r.height};
    }

private:
    double m_left;
    double m_bottom;
};

} // namespace velmora
