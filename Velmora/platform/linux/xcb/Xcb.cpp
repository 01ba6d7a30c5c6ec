#include "Velmora/platform/linux/xcb/Xcb.h"

namespace velmora::xcb {

std::uint8_t typeOf(xcb_generic_event_t const& event)
{
    constexpr unsigned sentByAProgram = 0x80;
    return static_cast<std::uint8_t>(event.response_type & ~sentByAProgram);
}

xcb_window_t rootWindow(xcb_connection_t* connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name)
{
    auto const cookie
        = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    Owned<xcb_intern_atom_reply_t> const reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace velmora::xcb
