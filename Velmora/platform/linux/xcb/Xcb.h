#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

/// The words in which the adapters speak to an X server.
namespace velmora::xcb {

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

/// A connection of one's own. One that failed is a connection too, which only says so.
using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

/// Replies, errors and events come from the C allocator.
struct Free {
    void operator()(void* p) const { std::free(p); } // NOLINT(cppcoreguidelines-no-malloc)
};

/// What the server sent; nothing when it sent an error instead.
template <typename Sent>
using Owned = std::unique_ptr<Sent, Free>;

/// What kind of event it is, whether the server or another program sent it.
[[nodiscard]] std::uint8_t typeOf(xcb_generic_event_t const& event);

/// The root window of the first screen; toolkits know only that one.
[[nodiscard]] xcb_window_t rootWindow(xcb_connection_t* connection);

/// The server's number for a name, which costs a round trip; none when the connection is lost.
[[nodiscard]] xcb_atom_t atom(xcb_connection_t* connection, std::string_view name);

} // namespace velmora::xcb
