#include "Velmora/platform/linux/session/X11Watch.h"

namespace velmora {

namespace {

/// The events of a window that mean "look again".
void select(xcb_connection_t* connection, xcb_window_t window, std::uint32_t events)
{
    xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &events);
}

bool isOfInterest(xcb_generic_event_t const& event)
{
    auto const type = xcb::typeOf(event);
    return type == XCB_CLIENT_MESSAGE || type == XCB_DESTROY_NOTIFY || type == XCB_PROPERTY_NOTIFY;
}

} // namespace

X11Watch::X11Watch(char const* display, QObject* parent)
    : QObject(parent)
    , m_connection(xcb_connect(display, &m_screen))
{
    if (xcb_connection_has_error(m_connection.get()) != 0) {
        m_connection.reset();
        return;
    }
    // Whoever takes a role announces it to the listeners of the root window.
    auto roots = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get()));
    for (int i = 0; i < m_screen && roots.rem > 1; ++i)
        xcb_screen_next(&roots);
    select(m_connection.get(), roots.data->root, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    xcb_flush(m_connection.get());
    m_readable = std::make_unique<QSocketNotifier>(
        xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read);
    connect(m_readable.get(), &QSocketNotifier::activated, this, &X11Watch::drain);
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &X11Watch::drain);
}

std::string X11Watch::roleOnScreen(std::string_view role) const
{
    return std::string(role) + "_S" + std::to_string(m_screen);
}

xcb_window_t X11Watch::owner(std::string_view selection)
{
    if (!m_connection)
        return XCB_NONE;
    auto* const connection = m_connection.get();
    xcb::Owned<xcb_get_selection_owner_reply_t> const reply(
        xcb_get_selection_owner_reply(connection,
            xcb_get_selection_owner(connection, xcb::atom(connection, selection)), nullptr));
    xcb_window_t const window = reply ? reply->owner : static_cast<xcb_window_t>(XCB_NONE);
    if (window != XCB_NONE)
        select(
            connection, window, XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
    drainSoon();
    return window;
}

std::vector<unsigned char> X11Watch::property(xcb_window_t window, std::string_view name)
{
    if (!m_connection)
        return {};
    auto* const connection = m_connection.get();
    constexpr std::uint32_t enoughWords = 1U << 18U;
    xcb::Owned<xcb_get_property_reply_t> const reply(xcb_get_property_reply(connection,
        xcb_get_property(connection, 0, window, xcb::atom(connection, name),
            XCB_GET_PROPERTY_TYPE_ANY, 0, enoughWords),
        nullptr));
    drainSoon();
    if (!reply)
        return {};
    auto const* const bytes
        = static_cast<unsigned char const*>(xcb_get_property_value(reply.get()));
    return {bytes, bytes + xcb_get_property_value_length(reply.get())};
}

void X11Watch::drainSoon()
{
    xcb_flush(m_connection.get());
    // Waiting for an answer may have read events that the notifier will not speak of again.
    m_soon.start();
}

void X11Watch::drain()
{
    bool interesting = false;
    while (xcb::Owned<xcb_generic_event_t> const event{xcb_poll_for_event(m_connection.get())})
        interesting = interesting || isOfInterest(*event);
    if (xcb_connection_has_error(m_connection.get()) != 0)
        m_readable->setEnabled(false);
    if (interesting)
        Q_EMIT changed();
}

} // namespace velmora
