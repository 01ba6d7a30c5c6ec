#include "Velmora/platform/linux/X11DesktopPanel.h"

#include "Velmora/platform/linux/xcb/Xcb.h"

#include <QByteArray>
#include <QGuiApplication>
#include <qguiapplication_platform.h>

#include <xcb/shape.h>
#include <xcb/xfixes.h>

#include <algorithm>
#include <array>
#include <limits>

namespace velmora {

namespace {

/// The compositing manager of the first screen; toolkits know only that one.
constexpr std::string_view compositorOfScreen = "_NET_WM_CM_S0";
constexpr std::uint8_t bitsPerAtom = 32;

std::int16_t coordinate(int value)
{
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(std::clamp<int>(value, Limits::min(), Limits::max()));
}

std::uint16_t extent(int value)
{
    return static_cast<std::uint16_t>(
        std::clamp<int>(value, 0, std::numeric_limits<std::uint16_t>::max()));
}

std::vector<xcb_rectangle_t> rectangles(std::span<PixelRect const> outline)
{
    std::vector<xcb_rectangle_t> result;
    result.reserve(outline.size());
    for (auto const& r : outline)
        result.push_back({coordinate(r.x), coordinate(r.y), extent(r.width), extent(r.height)});
    return result;
}

void setAtoms(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property,
    std::span<xcb_atom_t const> values)
{
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_ATOM,
        bitsPerAtom, static_cast<std::uint32_t>(values.size()), values.data());
}

} // namespace

X11DesktopPanel::X11DesktopPanel()
{
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return;
    m_connection = x11->connection();
    qGuiApp->installNativeEventFilter(this);
    watchCompositor();
    readCompositor();
}

X11DesktopPanel::~X11DesktopPanel()
{
    if (m_connection && qGuiApp)
        qGuiApp->removeNativeEventFilter(this);
}

std::uint32_t X11DesktopPanel::atom(std::string_view name) const
{
    return xcb::atom(m_connection, name);
}

void X11DesktopPanel::watchCompositor()
{
    m_compositorSelection = atom(compositorOfScreen);
    auto const* fixes = xcb_get_extension_data(m_connection, &xcb_xfixes_id);
    if (!fixes || !fixes->present)
        return;
    // The server answers no other request of the extension before it knows the version.
    xcb::Owned<xcb_xfixes_query_version_reply_t> const version(xcb_xfixes_query_version_reply(
        m_connection,
        xcb_xfixes_query_version(m_connection, XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION),
        nullptr));
    if (!version)
        return;
    m_fixesEvent = fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY;
    xcb_xfixes_select_selection_input(m_connection, xcb::rootWindow(m_connection),
        m_compositorSelection,
        XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
            | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
            | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
}

void X11DesktopPanel::readCompositor()
{
    xcb::Owned<xcb_get_selection_owner_reply_t> const owner(xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, m_compositorSelection), nullptr));
    m_translucent = owner && owner->owner != XCB_WINDOW_NONE;
}

void X11DesktopPanel::adopt(std::uintptr_t window)
{
    if (!m_connection)
        return;
    m_window = static_cast<std::uint32_t>(window);
    m_frames.adopt(m_window);
    m_stacking.keepAbove(m_window);
    setType();
    setState();
    bound();
}

// The window manager leaves the window alone; what is written here is for pagers, compositing
// managers and people who ask.
void X11DesktopPanel::setType() const
{
    std::array const types = {atom("_NET_WM_WINDOW_TYPE_UTILITY")};
    setAtoms(m_connection, m_window, atom("_NET_WM_WINDOW_TYPE"), types);
}

void X11DesktopPanel::setState() const
{
    std::array const states = {atom("_NET_WM_STATE_ABOVE"), atom("_NET_WM_STATE_STICKY"),
        atom("_NET_WM_STATE_SKIP_TASKBAR"), atom("_NET_WM_STATE_SKIP_PAGER")};
    setAtoms(m_connection, m_window, atom("_NET_WM_STATE"), states);
}

void X11DesktopPanel::setOutline(std::span<PixelRect const> outline)
{
    m_outline.assign(outline.begin(), outline.end());
    if (!m_connection || m_window == XCB_WINDOW_NONE)
        return;
    auto const region = rectangles(m_outline);
    xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
        XCB_CLIP_ORDERING_YX_SORTED, m_window, 0, 0, static_cast<std::uint32_t>(region.size()),
        region.data());
    bound();
}

void X11DesktopPanel::bound()
{
    if (m_translucent) {
        xcb_shape_mask(
            m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, m_window, 0, 0, XCB_PIXMAP_NONE);
    } else {
        auto const region = rectangles(m_outline);
        xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
            XCB_CLIP_ORDERING_YX_SORTED, m_window, 0, 0, static_cast<std::uint32_t>(region.size()),
            region.data());
    }
    // Not at the next frame: there may be none for a while.
    xcb_flush(m_connection);
}

bool X11DesktopPanel::nativeEventFilter(
    QByteArray const& /*type*/, void* message, qintptr* /*result*/)
{
    auto const* event = static_cast<xcb_generic_event_t const*>(message);
    if (m_fixesEvent < 0 || xcb::typeOf(*event) != m_fixesEvent)
        return false;
    auto const* notice = static_cast<xcb_xfixes_selection_notify_event_t const*>(message);
    if (notice->selection != m_compositorSelection)
        return false;
    auto const translucent = notice->owner != XCB_WINDOW_NONE;
    if (translucent == m_translucent)
        return false;
    m_translucent = translucent;
    if (m_window != XCB_WINDOW_NONE)
        bound();
    if (onTranslucency)
        onTranslucency();
    return false;
}

} // namespace velmora
