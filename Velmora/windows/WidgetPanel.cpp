#include "Velmora/windows/WidgetPanel.h"

#include "Velmora/geometry/PointerTracker.h"
#include "Velmora/platform/Clock.h"
#include "Velmora/platform/DesktopPanel.h"
#include "Velmora/platform/toolkit/ToolkitDisplays.h"
#include "Velmora/views/WidgetView.h"
#include "Velmora/windows/WidgetAccessible.h"

#include <QExposeEvent>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {

namespace {

constexpr auto panelFlags = Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint
    | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint;

constexpr int alphaBits = 8;

/// The whole numbers nearest to a frame, about the same centre.
QRect wholePoints(Rect const& frame)
{
    auto const width = std::max(static_cast<int>(std::lround(frame.width)), 1);
    auto const height = std::max(static_cast<int>(std::lround(frame.height)), 1);
    return {static_cast<int>(std::lround(frame.midX() - width / 2.0)),
        static_cast<int>(std::lround(frame.midY() - height / 2.0)), width, height};
}

} // namespace

WidgetPanel::WidgetPanel(Seams seams, WidgetView& view)
    : m_seams(seams)
    , m_view(view)
    , m_container(seams.model, view)
    , m_presenter(*this, seams.desktop.frames())
    , m_frameClock([this] { drawFrame(); })
    , m_help(*this, view)
    , m_coordinates(ToolkitDisplays::coordinates())
{
    configure();
    m_view.setWindow(this);
    m_container.setWindow(this);
    m_container.resizeKnob().onCursor = [this](GripCursor cursor) { setCursorFor(cursor); };
    m_seams.desktop.onTranslucency = [this] { drawFrame(); };
    m_seams.desktop.onPointer = [this](Point screen) { pointerTick(windowPoint(screen)); };
    connect(&m_seams.model, &AppModel::changed, this, &WidgetPanel::modelChanged);
    readPace();
    WidgetAccessible::install();
    m_announced = m_view.accessibleValue();
}

WidgetPanel::~WidgetPanel()
{
    m_seams.desktop.onTranslucency = nullptr;
    m_seams.desktop.onPointer = nullptr;
    m_view.setWindow(nullptr);
}

void WidgetPanel::configure()
{
    setTitle(QStringLiteral("Velmora"));
    setFlags(panelFlags);
    setSurfaceType(QSurface::RasterSurface);
    QSurfaceFormat translucent;
    translucent.setAlphaBufferSize(alphaBits);
    setFormat(translucent);
    create();
    m_seams.desktop.adopt(static_cast<std::uintptr_t>(winId()));
}

void WidgetPanel::modelChanged(AppModel::Property property)
{
    switch (property) {
    case AppModel::Property::reduceMotion:
        readPace();
        break;
    case AppModel::Property::isReminding:
        // Another window of this kind may have come to lie above.
        if (m_seams.model.isReminding() && isVisible())
            raise();
        announceLater();
        break;
    case AppModel::Property::paused:
    case AppModel::Property::inActiveHours:
        announceLater();
        break;
    default:
        break;
    }
}

void WidgetPanel::announceLater()
{
    if (m_announcing)
        return;
    m_announcing = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_announcing = false;
            WidgetAccessible::announce(*this, std::exchange(m_announced, m_view.accessibleValue()));
        },
        Qt::QueuedConnection);
}

QAccessibleInterface* WidgetPanel::accessibleRoot() const
{
    // The toolkit asks a constant window and wants a changeable one.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
    return QAccessible::queryAccessibleInterface(const_cast<WidgetPanel*>(this));
}

void WidgetPanel::readPace()
{
    m_frameClock.setPace(
        m_seams.model.reduceMotion() ? FrameClock::Pace::calm : FrameClock::Pace::flowing);
}

Rect WidgetPanel::frame() const
{
    return m_frame;
}

void WidgetPanel::setFrameOrigin(Point origin)
{
    m_frame.x = origin.x;
    m_frame.y = origin.y;
    applyFrame();
}

void WidgetPanel::setFrame(Rect const& frame)
{
    m_frame = frame;
    applyFrame();
    drawFrame();
}

void WidgetPanel::applyFrame()
{
    auto const whole = wholePoints(m_coordinates.toToolkit(m_frame));
    if (whole != geometry())
        setGeometry(whole);
    fitContent();
}

void WidgetPanel::displaysSettled()
{
    auto const now = ToolkitDisplays::coordinates();
    auto const before = m_frame.origin();
    m_frame = now.fromToolkit(m_coordinates.toToolkit(m_frame));
    m_coordinates = now;
    m_container.desktopShifted({.x = m_frame.x - before.x, .y = m_frame.y - before.y});
    applyFrame();
    drawFrame();
}

void WidgetPanel::fitContent()
{
    auto const scale = devicePixelRatio();
    if (size() == m_fittedSize && scale == m_fittedScale)
        return;
    m_fittedSize = size();
    m_fittedScale = scale;
    Size const bounds
        = {.width = static_cast<double>(width()), .height = static_cast<double>(height())};
    m_container.layout(bounds);
    m_presenter.invalidate();
    m_seams.desktop.setOutline(OrbHitArea::outline(bounds, scale));
}

void WidgetPanel::drawFrame()
{
    if (!isExposed())
        return;
    fitContent();
    auto* canvas = m_presenter.begin(m_fittedSize, m_fittedScale);
    if (!canvas)
        return;
    m_view.draw(*canvas, m_seams.clock.now(),
        m_seams.desktop.translucent() ? WidgetView::Ground::clear : WidgetView::Ground::dark);
    m_container.drawGrip(*canvas);
    m_presenter.present();
}

std::optional<DisplayId> WidgetPanel::display() const
{
    auto const all = m_seams.displays.all();
    std::vector<ScreenFrames> frames;
    frames.reserve(all.size());
    for (auto const& display : all)
        frames.push_back(display.frames);
    auto const index = displayHolding(m_frame, frames);
    return index ? std::optional(all[*index].id) : std::nullopt;
}

std::optional<Rect> WidgetPanel::visibleFrame() const
{
    auto const here = display();
    auto const wanted = here ? here : m_seams.displays.main();
    for (auto const& display : m_seams.displays.all()) {
        if (wanted && display.id == *wanted)
            return display.frames.visible;
    }
    return std::nullopt;
}

void WidgetPanel::orderFrontRegardless()
{
    // Somebody else may have taken the window off the screen without the toolkit minding.
    if (isVisible() && !isExposed())
        hide();
    show();
    m_seams.desktop.shown();
    raise();
}

void WidgetPanel::setCursorFor(GripCursor cursor)
{
    if (cursor == GripCursor::resize) {
        setCursor(Qt::SizeFDiagCursor);
        m_seams.desktop.showResizeCursor();
    } else {
        unsetCursor();
    }
}

} // namespace velmora
