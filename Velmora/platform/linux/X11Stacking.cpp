#include "Velmora/platform/linux/X11Stacking.h"

#include <array>
#include <optional>

namespace velmora {

namespace {

/// The managed window that an event shows or restacks.
std::optional<xcb_window_t> risen(xcb_generic_event_t const& event)
{
    auto const type = xcb::typeOf(event);
    if (type == XCB_CONFIGURE_NOTIFY) {
        auto const& moved = reinterpret_cast<xcb_configure_notify_event_t const&>(event);
        if (moved.override_redirect == 0)
            return moved.window;
    } else if (type == XCB_MAP_NOTIFY) {
        auto const& shown = reinterpret_cast<xcb_map_notify_event_t const&>(event);
        if (shown.override_redirect == 0)
            return shown.window;
    }
    return std::nullopt;
}

} // namespace

X11Stacking::X11Stacking(char const* display)
    : m_connection(xcb_connect(display, nullptr))
{
    if (xcb_connection_has_error(m_connection.get()) != 0)
        m_connection.reset();
}

X11Stacking::~X11Stacking() = default;

void X11Stacking::keepAbove(std::uint32_t window)
{
    m_window = window;
    if (!m_connection || m_readable)
        return;
    std::uint32_t const events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    // Nothing is missed from here on: the server has answered before the window is shown.
    auto* const connection = m_connection.get();
    xcb::Owned<xcb_generic_error_t> const refused(xcb_request_check(connection,
        xcb_change_window_attributes_checked(
            connection, xcb::rootWindow(connection), XCB_CW_EVENT_MASK, &events)));
    m_readable = std::make_unique<QSocketNotifier>(
        xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read);
    QObject::connect(
        m_readable.get(), &QSocketNotifier::activated, m_readable.get(), [this] { drain(); });
    // What came along with the answer is not announced again.
    drain();
}

void X11Stacking::drain()
{
    // Errors come here too, from windows that have gone meanwhile, and mean nothing.
    while (xcb::Owned<xcb_generic_event_t> const event{xcb_poll_for_event(m_connection.get())}) {
        if (auto const window = risen(*event))
            riseOver(*window);
    }
    if (xcb_connection_has_error(m_connection.get()) != 0)
        m_readable->setEnabled(false);
    else
        xcb_flush(m_connection.get());
}

void X11Stacking::riseOver(std::uint32_t sibling)
{
    // The server itself looks whether the one covers the other, so there is nothing to ask first.
    std::array<std::uint32_t, 2> const order = {sibling, XCB_STACK_MODE_TOP_IF};
    xcb_configure_window(m_connection.get(), m_window,
        XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, order.data());
}

} // namespace velmora
