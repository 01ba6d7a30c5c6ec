#pragma once

#include <QProcess>
#include <QString>

#include <xcb/xcb.h>

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

namespace velmora {

/// An X server without a screen anyone sees, for the tests of one suite.
class PrivateDisplay {
public:
    PrivateDisplay()
    {
        m_server.start(QStringLiteral("Xvfb"),
            {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                QStringLiteral("0"), QStringLiteral("640x480x24"), QStringLiteral("-nolisten"),
                QStringLiteral("tcp")});
        if (!m_server.waitForReadyRead())
            throw std::runtime_error("no X server");
        m_name = ":" + m_server.readLine().trimmed().toStdString();
    }
    PrivateDisplay(PrivateDisplay const&) = delete;
    PrivateDisplay& operator=(PrivateDisplay const&) = delete;
    ~PrivateDisplay()
    {
        m_server.terminate();
        m_server.waitForFinished();
    }

    [[nodiscard]] char const* name() const { return m_name.c_str(); }

private:
    QProcess m_server;
    std::string m_name;
};

/// A client that owns a role on a display, as panels and settings daemons do.
class RoleOwner {
public:
    RoleOwner(char const* display, std::string const& selection)
        : m_connection(xcb_connect(display, nullptr))
        , m_window(xcb_generate_id(m_connection))
    {
        auto const* const screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        xcb_create_window(m_connection, 0, m_window, screen->root, 0, 0, 1, 1, 0,
            XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(m_connection, m_window, atom(selection), XCB_CURRENT_TIME);
        xcb_client_message_event_t announcement{};
        announcement.response_type = XCB_CLIENT_MESSAGE;
        announcement.format = 32;
        announcement.window = screen->root;
        announcement.type = atom("MANAGER");
        announcement.data.data32[1] = atom(selection);
        announcement.data.data32[2] = m_window;
        xcb_send_event(m_connection, 0, screen->root, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
            reinterpret_cast<char const*>(&announcement));
        xcb_flush(m_connection);
    }
    RoleOwner(RoleOwner const&) = delete;
    RoleOwner& operator=(RoleOwner const&) = delete;
    ~RoleOwner() { xcb_disconnect(m_connection); }

    void setProperty(std::string const& name, std::vector<unsigned char> const& bytes)
    {
        auto const type = atom(name);
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, type, type, 8,
            static_cast<std::uint32_t>(bytes.size()), bytes.data());
        xcb_flush(m_connection);
    }

private:
    [[nodiscard]] xcb_atom_t atom(std::string const& name)
    {
        auto* const reply = xcb_intern_atom_reply(m_connection,
            xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
            nullptr);
        auto const result = reply->atom;
        std::free(reply);
        return result;
    }

    xcb_connection_t* m_connection;
    xcb_window_t m_window;
};

} // namespace velmora
