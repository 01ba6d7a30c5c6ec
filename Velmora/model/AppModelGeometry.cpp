#include "Velmora/geometry/WidgetPlacement.h"
#include "Velmora/model/AppModel.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {

namespace {

/// The largest side's share of the longer side of the display's visible frame.
constexpr double largestShare = 0.22;

/// Sizes that differ by about this much, in points, count as the same.
constexpr double sizeTolerance = 0.5;

} // namespace

void AppModel::setWidgetSize(double size)
{
    assign(m_widgetSize, size, Property::widgetSize);
    sizeChanged();
}

void AppModel::sizeChanged()
{
    double const clamped = clampSize(m_widgetSize, m_hostScreen);
    // Written so that a side that is not a number is replaced too.
    if (!(std::abs(clamped - m_widgetSize) <= sizeTolerance)) {
        if (m_isTellingSize) {
            // The shell wants what the host display forbids, and would want it again for ever.
            assign(m_widgetSize, clamped, Property::widgetSize);
            persist();
        } else {
            setWidgetSize(clamped);
        }
        return;
    }
    if (m_isApplyingStoredState)
        return;
    persist();
    tellSize();
}

void AppModel::tellSize()
{
    if (!onWidgetSize)
        return;
    bool const before = std::exchange(m_isTellingSize, true);
    onWidgetSize();
    m_isTellingSize = before;
}

Rect AppModel::visibleFrame(std::optional<DisplayId> screen) const
{
    auto const all = m_seams.displays.all();
    auto const find = [&](std::optional<DisplayId> id) {
        return std::ranges::find_if(all, [&](Display const& each) { return each.id == id; });
    };
    auto found = find(screen);
    if (found == all.end())
        found = find(m_seams.displays.main());
    return found == all.end() ? fallbackDisplay : found->frames.visible;
}

double AppModel::maxWidgetSize(std::optional<DisplayId> screen) const
{
    auto const visible = visibleFrame(screen);
    return std::max(visible.width, visible.height) * largestShare;
}

double AppModel::clampSize(double size, std::optional<DisplayId> screen) const
{
    double const raised = size > minimumSize ? size : minimumSize;
    return std::min(raised, maxWidgetSize(screen));
}

void AppModel::applySize(double size, std::optional<DisplayId> screen)
{
    if (screen)
        setHostScreen(screen);
    double const clamped = clampSize(size, m_hostScreen);
    if (std::abs(clamped - m_widgetSize) < sizeTolerance) {
        tellSize();
        return;
    }
    setWidgetSize(clamped);
}

std::vector<ScreenFrames> AppModel::screenFrames() const
{
    auto displays = m_seams.displays.all();
    auto const main = m_seams.displays.main();
    std::stable_partition(
        displays.begin(), displays.end(), [&](Display const& each) { return each.id == main; });

    std::vector<ScreenFrames> frames;
    frames.reserve(displays.size() + 1);
    for (auto const& each : displays)
        frames.push_back(each.frames);
    if (frames.empty())
        frames.push_back({.frame = fallbackDisplay, .visible = fallbackDisplay});
    return frames;
}

Point AppModel::originForLaunch(double size) const
{
    return WidgetPlacement::origin(m_widgetOrigin, m_hasSavedOrigin, size, screenFrames());
}

Point AppModel::originPullingOnScreen(Point origin, double size) const
{
    return WidgetPlacement::origin(origin, true, size, screenFrames());
}

void AppModel::saveOrigin(Point origin)
{
    bool const movedX = origin.x != m_widgetOrigin.x;
    bool const movedY = origin.y != m_widgetOrigin.y;
    m_widgetOrigin = origin;
    if (movedX)
        Q_EMIT changed(Property::widgetOriginX);
    if (movedY)
        Q_EMIT changed(Property::widgetOriginY);
    assign(m_hasSavedOrigin, true, Property::hasSavedOrigin);
    persist();
}

} // namespace velmora
