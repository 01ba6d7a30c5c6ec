#include "Velmora/platform/linux/X11Stacking.h"

#include <xcb/xcb.h>

#include <array>
#include <cstdlib>
#include <optional>

namespace velmora {

namespace {

struct Free {
    void operator()(void* p) const { std::free(p); } // NOLINT(cppcoreguidelines-no-malloc)
};
using Event = std::unique_ptr<xcb_generic_event_t, Free>;

constexpr std::uint8_t eventTypeBits = 0x7f;

/// The managed window that an event shows or restacks.
std::optional<xcb_window_t> risen(xcb_generic_event_t const& event)
{
    auto const type = event.response_type & eventTypeBits;
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

void X11Stacking::Disconnect::operator()(xcb_connection_t* connection) const
{
    xcb_disconnect(connection);
}

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
    auto const root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    std::uint32_t const events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    // Nothing is missed from here on: the server has answered before the window is shown.
    std::unique_ptr<xcb_generic_error_t, Free> const refused(xcb_request_check(m_connection.get(),
        xcb_change_window_attributes_checked(
            m_connection.get(), root, XCB_CW_EVENT_MASK, &events)));
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
    while (Event const event{xcb_poll_for_event(m_connection.get())}) {
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
