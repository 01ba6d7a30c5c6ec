#include "Velmora/platform/linux/X11DisplayPower.h"

#include <xcb/dpms.h>
#include <xcb/screensaver.h>
#include <xcb/xcbext.h>

namespace velmora {

namespace {

bool present(xcb_connection_t* connection, xcb_extension_t* extension)
{
    auto const* data = xcb_get_extension_data(connection, extension);
    return data && data->present;
}

/// Takes the answer to a question if it has come. True when the question is no longer under way.
template <typename Answer>
bool taken(xcb_connection_t* connection, unsigned question, xcb::Owned<Answer>& answer)
{
    void* reply = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (xcb_poll_for_reply(connection, question, &reply, &error) == 0)
        return false;
    xcb::Owned<xcb_generic_error_t> const discarded(error);
    answer.reset(static_cast<Answer*>(reply));
    return true;
}

} // namespace

X11DisplayPower::X11DisplayPower(char const* display)
    : m_connection(xcb_connect(display, nullptr))
{
    if (xcb_connection_has_error(m_connection.get()) != 0)
        return;
    m_knowsLevel = present(m_connection.get(), &xcb_dpms_id);
    m_knowsSaver = present(m_connection.get(), &xcb_screensaver_id);
}

X11DisplayPower::~X11DisplayPower() = default;

bool X11DisplayPower::asleep()
{
    if (!m_connection || xcb_connection_has_error(m_connection.get()) != 0)
        return false;
    if (m_levelAsked != 0)
        takeLevel();
    if (m_saverAsked != 0)
        takeSaver();
    ask();
    return m_switchedOff || m_blanked;
}

void X11DisplayPower::ask()
{
    auto* connection = m_connection.get();
    if (m_knowsLevel && m_levelAsked == 0)
        m_levelAsked = xcb_dpms_info_unchecked(connection).sequence;
    if (m_knowsSaver && m_saverAsked == 0) {
        auto const root = xcb::rootWindow(connection);
        m_saverAsked = xcb_screensaver_query_info_unchecked(connection, root).sequence;
    }
    xcb_flush(connection);
}

void X11DisplayPower::takeLevel()
{
    xcb::Owned<xcb_dpms_info_reply_t> answer;
    if (!taken(m_connection.get(), m_levelAsked, answer))
        return;
    m_levelAsked = 0;
    m_switchedOff = answer && answer->state != 0 && answer->power_level != XCB_DPMS_DPMS_MODE_ON;
}

void X11DisplayPower::takeSaver()
{
    xcb::Owned<xcb_screensaver_query_info_reply_t> answer;
    if (!taken(m_connection.get(), m_saverAsked, answer))
        return;
    m_saverAsked = 0;
    m_blanked = answer && answer->state == XCB_SCREENSAVER_STATE_ON;
}

} // namespace velmora
