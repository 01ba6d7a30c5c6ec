#include "Velmora/platform/Startup.h"

#include "Velmora/platform/Peers.h"
#include "Velmora/platform/linux/DesktopTheme.h"
#include "Velmora/platform/linux/DisplayServer.h"
#include "Velmora/platform/linux/session/SessionFocus.h"

#include <optional>

namespace velmora {

namespace {

/// A session lists no programs: the lock alone tells whether another copy runs.
class SessionPeers final : public Peers {
public:
    [[nodiscard]] bool anyRuns() override { return false; }
    void post(FocusRequest const& request) override { sender().post(request); }
    void settle() override { sender().settle(); }
    void activateFirst() override { }

private:
    /// The bus is left alone by a program that has nothing to post.
    FocusSender& sender()
    {
        if (!m_sender)
            m_sender.emplace(existingSessionBus());
        return *m_sender;
    }

    std::optional<FocusSender> m_sender;
};

class LinuxStartup final : public Startup {
public:
    explicit LinuxStartup(std::span<char const* const> arguments)
        : m_arguments(arguments)
        , m_session(displaySession(arguments))
    {
    }

    [[nodiscard]] Peers& peers() override { return m_peers; }

    [[nodiscard]] bool displayReachable() const override
    {
        return velmora::displayReachable(m_session);
    }

    void startToolkit(std::function<void()> const& start) override
    {
        leaveGtkAlone(m_arguments);
        BackendWish const wish(preferredBackend(m_session));
        start();
    }

private:
    std::span<char const* const> m_arguments;
    DisplaySession m_session;
    SessionPeers m_peers;
};

} // namespace

std::unique_ptr<Startup> Startup::make(std::span<char const* const> arguments)
{
    return std::make_unique<LinuxStartup>(arguments);
}

} // namespace velmora
