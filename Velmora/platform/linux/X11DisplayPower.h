#pragma once

#include "Velmora/platform/DisplayPower.h"
#include "Velmora/platform/linux/xcb/Xcb.h"

namespace velmora {

/// The power level of an X server's displays, and its own screen saver. Without a server, or on one
/// that cannot tell, the displays count as lit.
///
/// It has a connection of its own, which nobody watches: an answer waits there, without waking the
/// program, until the next question.
class X11DisplayPower final : public DisplayPower {
public:
    /// Connects to the server that the environment names, or to `display`.
    explicit X11DisplayPower(char const* display = nullptr);
    ~X11DisplayPower() override;
    X11DisplayPower(X11DisplayPower const&) = delete;
    X11DisplayPower& operator=(X11DisplayPower const&) = delete;
    X11DisplayPower(X11DisplayPower&&) = delete;
    X11DisplayPower& operator=(X11DisplayPower&&) = delete;

    [[nodiscard]] bool asleep() override;

private:
    void ask();
    void takeLevel();
    void takeSaver();

    xcb::Connection m_connection;
    bool m_knowsLevel = false;
    bool m_knowsSaver = false;
    /// The numbers of the questions that are under way; 0 is none.
    unsigned m_levelAsked = 0;
    unsigned m_saverAsked = 0;
    bool m_switchedOff = false;
    bool m_blanked = false;
};

} // namespace velmora
