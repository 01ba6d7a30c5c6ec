#include "Velmora/geometry/SettingsPlacement.h"

#include <algorithm>

namespace velmora::SettingsPlacement {

namespace {

constexpr double leastLaidOutHeight = 200.0;
constexpr double heightBeforeLayout = 720.0;
constexpr double leastHeight = 480.0;
constexpr double visibleHeightWithoutDisplay = 800.0;
constexpr double heightKeptFree = 24.0;

constexpr double gapToOrb = 16.0;
constexpr double edgeMargin = 12.0;

Point beside(Rect const& orb, Size panel, std::optional<Rect> const& visible)
{
    double x = orb.minX() - panel.width - gapToOrb;
    double const y = orb.midY() - panel.height / 2;
    if (!visible)
        return {.x = x, .y = y};

    if (x < visible->minX())
        x = orb.maxX() + gapToOrb;
    if (x + panel.width > visible->maxX())
        x = visible->maxX() - panel.width - edgeMargin;
    return {.x = x, .y = insideVertically(y, panel.height, *visible)};
}

} // namespace

double height(double formHeight, std::optional<Rect> const& visible, double frameHeight)
{
    double const wanted = formHeight > leastLaidOutHeight ? formHeight : heightBeforeLayout;
    double const available = visible ? visible->height : visibleHeightWithoutDisplay;
    return std::min(available - heightKeptFree - frameHeight, std::max(wanted, leastHeight));
}

std::optional<Point> origin(Size panel, Surroundings const& around)
{
    if (around.orb)
        return beside(*around.orb, panel, around.visible);
    if (!around.visible)
        return std::nullopt;
    return Point{.x = around.visible->midX() - panel.width / 2,
        .y = around.visible->midY() - panel.height / 2};
}

double insideVertically(double y, double panelHeight, Rect const& visible)
{
    double const raised = std::max(y, visible.minY() + edgeMargin);
    return std::min(raised, visible.maxY() - panelHeight - edgeMargin);
}

} // namespace velmora::SettingsPlacement
