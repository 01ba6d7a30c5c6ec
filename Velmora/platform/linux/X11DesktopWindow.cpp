#include "Velmora/platform/linux/X11DesktopWindow.h"

#include "Velmora/platform/linux/xcb/Xcb.h"

#include <QGuiApplication>
#include <qguiapplication_platform.h>

#include <array>
#include <limits>
#include <string_view>

namespace velmora {

namespace {

constexpr std::uint32_t everyDesktop = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint32_t addState = 1;
/// The request comes from an application, not from a pager.
constexpr std::uint32_t fromApplication = 1;
constexpr std::uint8_t bitsPerValue = 32;

/// A request to the window manager, which is sent to the root window.
class Request {
public:
    Request(xcb_connection_t* connection, std::uint32_t window)
        : m_connection(connection)
        , m_window(window)
    {
    }

    [[nodiscard]] xcb_atom_t atom(std::string_view name) const
    {
        return xcb::atom(m_connection, name);
    }

    void send(std::string_view message, std::array<std::uint32_t, 5> const& data) const
    {
        xcb_client_message_event_t event = {};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = bitsPerValue;
        event.window = m_window;
        event.type = atom(message);
        for (std::size_t i = 0; i < data.size(); ++i)
            event.data.data32[i] = data[i];
        xcb_send_event(m_connection, 0, xcb::rootWindow(m_connection),
            XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
            reinterpret_cast<char const*>(&event));
    }

private:
    xcb_connection_t* m_connection;
    std::uint32_t m_window;
};

} // namespace

// A desktop of "all" that is written before the window is shown is taken for the last one by some
// window managers; asked for afterwards, all of them understand it.
void X11DesktopWindow::joinEveryDesktop(std::uintptr_t window)
{
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return;
    Request const request(x11->connection(), static_cast<std::uint32_t>(window));
    request.send("_NET_WM_DESKTOP", {everyDesktop, fromApplication});
    request.send("_NET_WM_STATE",
        {addState, request.atom("_NET_WM_STATE_SKIP_TASKBAR"),
            request.atom("_NET_WM_STATE_SKIP_PAGER"), fromApplication});
    xcb_flush(x11->connection());
}

} // namespace velmora
