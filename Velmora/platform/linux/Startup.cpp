#include "Velmora/platform/Startup.h"

#include "Velmora/platform/Peers.h"
#include "Velmora/platform/linux/DesktopTheme.h"
#include "Velmora/platform/linux/DisplayServer.h"
#include "Velmora/platform/linux/session/DesktopFont.h"
#include "Velmora/platform/linux/session/SessionFocus.h"
#include "Velmora/platform/linux/session/X11Watch.h"

#include <QFont>
#include <QGuiApplication>

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

/// The bus's library ends a process that makes a call while the bus is going, and the toolkit makes
/// such calls: the library is to say so and go on. Who debugs may have chosen otherwise.
void outliveTheBus()
{
    if (!qEnvironmentVariableIsSet("DBUS_FATAL_WARNINGS"))
        qputenv("DBUS_FATAL_WARNINGS", "0");
}

/// Writes in the font that was chosen for the whole desktop.
void wearDesktopFont()
{
    X11Watch watched;
    auto const wish = desktopFont(watched);
    if (!wish)
        return;
    QFont font = QGuiApplication::font();
    font.setFamilies({QString::fromStdString(wish->family)});
    if (wish->points > 0)
        font.setPointSizeF(wish->points);
    QGuiApplication::setFont(font);
}

class LinuxStartup final : public Startup {
public:
    explicit LinuxStartup(std::span<char const* const> arguments)
        : m_arguments(arguments)
        , m_session(displaySession(arguments))
    {
        outliveTheBus();
    }

    [[nodiscard]] Peers& peers() override { return m_peers; }

    [[nodiscard]] bool displayReachable() const override
    {
        return velmora::displayReachable(m_session);
    }

    void startToolkit(std::function<void()> const& start) override
    {
        bool const withoutTheme = leaveGtkAlone(m_arguments);
        {
            BackendWish const wish(preferredBackend(m_session));
            start();
        }
        if (withoutTheme)
            wearDesktopFont();
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
