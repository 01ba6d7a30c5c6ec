#include "Velmora/platform/toolkit/ToolkitDisplays.h"

#include <QGuiApplication>
#include <QScreen>

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
        // Scaled to points, an odd number of pixels may round to a row outside the screen.
        displays.push_back({.id = *id(screen),
            .frames = {.frame = convert.fromToolkit(rect(screen->geometry())),
                .visible
                = convert.fromToolkit(rect(screen->availableGeometry() & screen->geometry()))}});
    }
    return displays;
}

std::optional<DisplayId> ToolkitDisplays::main() const
{
    return id(QGuiApplication::primaryScreen());
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
    return DesktopCoordinates(primary ? rect(primary->geometry()) : fallbackDisplay);
}

} // namespace velmora
