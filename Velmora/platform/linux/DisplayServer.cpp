#include "Velmora/platform/linux/DisplayServer.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace velmora {

namespace {

constexpr char const* backendVariable = "QT_QPA_PLATFORM";

std::string variable(char const* name)
{
    char const* value = std::getenv(name);
    return value ? value : "";
}

bool x11Answers(std::string const& display)
{
    auto* connection = xcb_connect(display.c_str(), nullptr);
    bool const answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

bool waylandAnswers(std::string const& name)
{
    auto const path = name.starts_with('/') ? name : variable("XDG_RUNTIME_DIR") + '/' + name;
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path))
        return false;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);

    int const connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connection < 0)
        return false;
    auto const* generic = reinterpret_cast<sockaddr const*>(&address);
    bool const answers = connect(connection, generic, sizeof(address)) == 0;
    close(connection);
    return answers;
}

} // namespace

DisplaySession displaySession(std::span<char const* const> arguments)
{
    bool const option = std::ranges::any_of(arguments, [](char const* argument) {
        std::string_view const text = argument ? argument : "";
        return text == "-platform" || text == "--platform" || text.starts_with("-platform=")
            || text.starts_with("--platform=");
    });
    return {.x11 = variable("DISPLAY"),
        .wayland = variable("WAYLAND_DISPLAY"),
        .backendChosen = option || !variable(backendVariable).empty()};
}

std::optional<std::string_view> preferredBackend(DisplaySession const& session)
{
    if (session.backendChosen)
        return std::nullopt;
    if (session.wayland.empty())
        return "xcb";
    return session.x11.empty() ? "wayland" : "xcb;wayland";
}

bool displayReachable(DisplaySession const& session)
{
    return session.backendChosen || (!session.x11.empty() && x11Answers(session.x11))
        || (!session.wayland.empty() && waylandAnswers(session.wayland));
}

BackendWish::BackendWish(std::optional<std::string_view> backend)
    : m_set(backend && setenv(backendVariable, std::string(*backend).c_str(), 1) == 0)
{
}

BackendWish::~BackendWish()
{
    if (m_set)
        unsetenv(backendVariable);
}

} // namespace velmora
