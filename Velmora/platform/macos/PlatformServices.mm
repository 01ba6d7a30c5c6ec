#import <Foundation/Foundation.h>

#include "Velmora/platform/PlatformServices.h"

#include "Velmora/platform/macos/AppKitDesktopPanel.h"
#include "Velmora/platform/macos/AppKitDesktopWindow.h"
#include "Velmora/platform/macos/ApplicationMenu.h"
#include "Velmora/platform/macos/AudioPlayerSound.h"
#include "Velmora/platform/macos/BundleResources.h"
#include "Velmora/platform/macos/CorePreferences.h"
#include "Velmora/platform/macos/DistributedFocus.h"
#include "Velmora/platform/macos/PreferencesDefaultsStore.h"
#include "Velmora/platform/macos/ProcessActivity.h"
#include "Velmora/platform/macos/QuartzDisplayPower.h"
#include "Velmora/platform/macos/ServiceManagementLogin.h"
#include "Velmora/platform/macos/StatusSymbol.h"
#include "Velmora/platform/macos/WorkspaceEvents.h"
#include "Velmora/platform/macos/WorkspaceMotion.h"

namespace velmora {

namespace {

/// What tells of the session's events.
struct Listeners {
    explicit Listeners(PlatformServices::Events const& events)
        : focus(events.focusRequested)
        , workspace(events)
        , menu({.openSettings = events.settingsRequested, .quit = events.endRequested})
    {
    }

    DistributedFocus focus;
    WorkspaceEvents workspace;
    ApplicationMenu menu;
};

class MacServices final : public PlatformServices {
public:
    [[nodiscard]] MotionSetting const& motion() const override { return m_motion; }
    [[nodiscard]] DefaultsStore& defaults() override { return m_defaults; }
    [[nodiscard]] Resources const& resources() const override { return m_resources; }
    [[nodiscard]] SoundLoader& sound() override { return m_sound; }
    [[nodiscard]] LoginService& loginService() override { return m_login; }
    [[nodiscard]] DesktopPanel& desktopPanel() override { return m_desktopPanel; }
    [[nodiscard]] DesktopWindow& desktopWindow() override { return m_desktopWindow; }
    [[nodiscard]] DisplayPower& displayPower() override { return m_displayPower; }
    [[nodiscard]] std::filesystem::path bundle() const override { return bundlePath(); }
    [[nodiscard]] std::vector<std::uint32_t> statusSymbol(int side) const override
    {
        return windSymbol(side);
    }

    void listen(Events const& events) override
    {
        m_listeners.emplace(events);
        // The menu bar is always there, and tints what it is given.
        events.statusInkChanged(StatusInk{});
        events.trayAvailable(true);
    }

private:
    ProcessActivity m_activity;
    WorkspaceMotion m_motion;
    CorePreferences m_preferences;
    PreferencesDefaultsStore m_defaults{m_preferences};
    BundleResources m_resources;
    AudioPlayerSound m_sound;
    ServiceManagementLogin m_login;
    AppKitDesktopPanel m_desktopPanel;
    AppKitDesktopWindow m_desktopWindow;
    QuartzDisplayPower m_displayPower;
    /// Last, so that nothing is told any more while the rest goes.
    std::optional<Listeners> m_listeners;
};

} // namespace

std::unique_ptr<PlatformServices> PlatformServices::make(Places const& /*places*/)
{
    return std::make_unique<MacServices>();
}

} // namespace velmora
