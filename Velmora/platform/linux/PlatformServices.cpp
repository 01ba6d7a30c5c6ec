#include "Velmora/platform/PlatformServices.h"

#include "Velmora/platform/linux/TomlDefaultsStore.h"
#include "Velmora/platform/linux/X11DesktopPanel.h"
#include "Velmora/platform/linux/X11DesktopWindow.h"
#include "Velmora/platform/linux/X11DisplayPower.h"
#include "Velmora/platform/linux/session/CanberraSound.h"
#include "Velmora/platform/linux/session/DesktopMotion.h"
#include "Velmora/platform/linux/session/LogindSleep.h"
#include "Velmora/platform/linux/session/SessionFocus.h"
#include "Velmora/platform/linux/session/SessionLock.h"
#include "Velmora/platform/linux/session/TrayHost.h"
#include "Velmora/platform/linux/session/X11Watch.h"
#include "Velmora/platform/linux/session/XdgAutostart.h"
#include "Velmora/platform/posix/HomeFolder.h"
#include "Velmora/platform/posix/InstalledResources.h"

#include <QDBusConnection>

#include <optional>
#include <utility>

namespace velmora {

namespace {

QString kdeSettings(std::filesystem::path const& config)
{
    bool const kde = qEnvironmentVariable("XDG_CURRENT_DESKTOP").contains(QStringLiteral("KDE"));
    return kde ? QString::fromStdString((config / "kdeglobals").string()) : QString();
}

std::optional<StatusInk> statusInk(std::optional<TrayInk> const& ink)
{
    if (!ink)
        return std::nullopt;
    auto const eightBits = [](std::uint16_t part) { return static_cast<std::uint8_t>(part >> 8U); };
    return StatusInk{
        .red = eightBits(ink->red), .green = eightBits(ink->green), .blue = eightBits(ink->blue)};
}

/// What tells of the session's events.
struct Listeners {
    Listeners(
        QDBusConnection const& sessionBus, QDBusConnection const& systemBus, X11Watch& watched)
        : focus(sessionBus)
        , sleep(systemBus)
        , lock(systemBus, sessionBus)
        , tray(sessionBus, watched)
    {
    }

    FocusReceiver focus;
    LogindSleep sleep;
    SessionLock lock;
    TrayHost tray;
};

class LinuxServices final : public PlatformServices {
public:
    explicit LinuxServices(Places places)
        : m_program(std::move(places.program))
        , m_config(configFolder(places.home))
    {
    }

    [[nodiscard]] MotionSetting const& motion() const override { return m_motion; }
    [[nodiscard]] DefaultsStore& defaults() override { return m_defaults; }
    [[nodiscard]] Resources const& resources() const override { return m_resources; }
    [[nodiscard]] SoundLoader& sound() override { return m_sound; }
    [[nodiscard]] LoginService& loginService() override { return m_autostart; }
    [[nodiscard]] DesktopPanel& desktopPanel() override { return m_desktopPanel; }
    [[nodiscard]] DesktopWindow& desktopWindow() override { return m_desktopWindow; }
    [[nodiscard]] DisplayPower& displayPower() override { return m_displayPower; }
    [[nodiscard]] std::filesystem::path bundle() const override { return m_program; }
    [[nodiscard]] std::vector<std::uint32_t> statusSymbol(int /*side*/) const override
    {
        return {};
    }

    void listen(Events const& events) override
    {
        auto& from = m_listeners.emplace(m_sessionBus, m_systemBus, m_x11);
        auto const tell = [](auto& source, auto signal, auto const& listener) {
            QObject::connect(&source, signal, &source, listener);
        };
        tell(from.focus, &FocusReceiver::requested, events.focusRequested);
        tell(from.sleep, &LogindSleep::willSleep, events.willSleep);
        tell(from.sleep, &LogindSleep::didWake, events.didWake);
        tell(from.lock, &SessionLock::lockedChanged, events.sessionLocked);
        tell(from.tray, &TrayHost::availableChanged, events.trayAvailable);
        auto const tellInk
            = [&from, listener = events.statusInkChanged] { listener(statusInk(from.tray.ink())); };
        tell(from.tray, &TrayHost::inkChanged, tellInk);
        // What is known already is told at once; the rest is news to come.
        tellInk();
        events.trayAvailable(from.tray.available());
    }

private:
    std::filesystem::path m_program;
    std::filesystem::path m_config;
    QDBusConnection m_sessionBus = existingSessionBus();
    QDBusConnection m_systemBus = QDBusConnection::systemBus();
    X11Watch m_x11;
    DesktopMotion m_motion{m_sessionBus, m_x11, kdeSettings(m_config)};
    TomlDefaultsStore m_defaults{defaultsFile(m_config)};
    InstalledResources m_resources{m_program};
    CanberraSound m_sound;
    XdgAutostart m_autostart{m_config, m_program};
    X11DesktopPanel m_desktopPanel;
    X11DesktopWindow m_desktopWindow;
    X11DisplayPower m_displayPower;
    /// Last, so that nothing is told any more while the rest goes.
    std::optional<Listeners> m_listeners;
};

} // namespace

std::unique_ptr<PlatformServices> PlatformServices::make(Places const& places)
{
    return std::make_unique<LinuxServices>(places);
}

} // namespace velmora
