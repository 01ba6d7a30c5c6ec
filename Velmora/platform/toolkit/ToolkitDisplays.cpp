#include "Velmora/platform/toolkit/ToolkitDisplays.h"

#include <QGuiApplication>
#include <QScreen>
#include <qpa/qplatformscreen.h>

#include <chrono>

namespace velmora {

namespace {

constexpr std::chrono::milliseconds quietAfterChanges(200);

Rect rect(QRect const& r)
{
    return {.x = static_cast<double>(r.x()),
        .y = static_cast<double>(r.y()),
        .width = static_cast<double>(r.width()),
        .height = static_cast<double>(r.height())};
}

/// How far the screen is from where the toolkit says: when the left one of two displays goes, the
/// other one moves, and of that only the toolkit's innermost layer hears. The corner is the same in
/// pixels and in points.
QPoint missedMove(QScreen const& screen)
{
    return screen.handle()->geometry().topLeft() - screen.geometry().topLeft();
}

QRect place(QScreen const& screen)
{
    return screen.geometry().translated(missedMove(screen));
}

} // namespace

ToolkitDisplays::ToolkitDisplays()
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(quietAfterChanges);
    connect(&m_quiet, &QTimer::timeout, this, &ToolkitDisplays::settled);

    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
        watch(screen);
        disturb();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &ToolkitDisplays::disturb);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &ToolkitDisplays::disturb);
    for (auto* screen : QGuiApplication::screens())
        watch(screen);
}

void ToolkitDisplays::watch(QScreen* screen)
{
    connect(screen, &QScreen::geometryChanged, this, &ToolkitDisplays::disturb);
    connect(screen, &QScreen::availableGeometryChanged, this, &ToolkitDisplays::disturb);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, &ToolkitDisplays::disturb);
}

void ToolkitDisplays::disturb()
{
    m_quiet.start();
}

std::vector<Display> ToolkitDisplays::all() const
{
    std::vector<Display> displays;
    auto const convert = coordinates();
    for (auto const* screen : QGuiApplication::screens()) {
        displays.push_back({.id = *id(screen),
            .frames = {.frame = convert.fromToolkit(rect(place(*screen))),
                .visible = convert.fromToolkit(rect(visible(*screen)))}});
    }
    return displays;
}

std::optional<DisplayId> ToolkitDisplays::main() const
{
    return id(QGuiApplication::primaryScreen());
}

QRect ToolkitDisplays::visible(QScreen const& screen)
{
    // Scaled to points, an odd number of pixels may round to a row outside the screen.
    return screen.availableGeometry().translated(missedMove(screen)) & place(screen);
}

QScreen* ToolkitDisplays::screen(std::optional<DisplayId> id)
{
    for (auto* screen : QGuiApplication::screens()) {
        if (id && ToolkitDisplays::id(screen) == id)
            return screen;
    }
    return nullptr;
}

std::optional<DisplayId> ToolkitDisplays::id(QScreen const* screen)
{
    if (!screen)
        return std::nullopt;
    return DisplayId(reinterpret_cast<std::uintptr_t>(screen));
}

DesktopCoordinates ToolkitDisplays::coordinates()
{
    auto const* primary = QGuiApplication::primaryScreen();
    return DesktopCoordinates(primary ? rect(place(*primary)) : fallbackDisplay);
}

} // namespace velmora
