#pragma once

#include "Velmora/platform/FocusRequest.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace velmora {

class DefaultsStore;
class DesktopPanel;
class DesktopWindow;
class DisplayPower;
class LoginService;
class MotionSetting;
class Resources;
class SoundLoader;

/// The colour in which a panel wants its symbols; each part is 0 to 255.
struct StatusInk {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(StatusInk const&) const = default;
};

/// The system's own adapters, made together once the toolkit runs and handed out as seams.
class PlatformServices {
public:
    /// Where the program lives; both absolute.
    struct Places {
        std::filesystem::path home;
        std::filesystem::path program;
    };

    /// What the system tells while the program runs, each on the main thread.
    struct Events {
        /// A later copy asks this one to come forward.
        std::function<void(FocusRequest const&)> focusRequested;
        /// The machine sleeps when this has returned.
        std::function<void()> willSleep;
        std::function<void()> didWake;
        std::function<void(bool locked)> sessionLocked;
        /// The displays may have changed, over what the toolkit has noticed.
        std::function<void()> displaysChanged;
        /// The desktop has a place for the status item, or has lost it.
        std::function<void(bool available)> trayAvailable;
        /// The panel wants symbols in this colour; absent when it does not tell.
        std::function<void(std::optional<StatusInk> const&)> statusInkChanged;
        /// The user opened the program, which runs already, once more.
        std::function<void()> reopened;
        /// The system's menu for the program asks for the settings.
        std::function<void()> settingsRequested;
        /// The system's menu for the program asks it to save and end.
        std::function<void()> endRequested;
    };

    [[nodiscard]] static std::unique_ptr<PlatformServices> make(Places const& places);

    virtual ~PlatformServices() = default;

    [[nodiscard]] virtual MotionSetting const& motion() const = 0;
    [[nodiscard]] virtual DefaultsStore& defaults() = 0;
    [[nodiscard]] virtual Resources const& resources() const = 0;
    [[nodiscard]] virtual SoundLoader& sound() = 0;
    [[nodiscard]] virtual LoginService& loginService() = 0;
    [[nodiscard]] virtual DesktopPanel& desktopPanel() = 0;
    [[nodiscard]] virtual DesktopWindow& desktopWindow() = 0;
    [[nodiscard]] virtual DisplayPower& displayPower() = 0;

    /// What opens the program at login: its bundle, or the program itself where there are none.
    [[nodiscard]] virtual std::filesystem::path bundle() const = 0;

    /// The system's own symbol for the status item on a square of `side` pixels: premultiplied
    /// 0xAARRGGBB, rows from the top, of which only the coverage counts. Empty where the system has
    /// none.
    [[nodiscard]] virtual std::vector<std::uint32_t> statusSymbol(int side) const = 0;

    /// Tells these from now on, and what holds already at once, for as long as this object lives.
    /// To be called once, before the event loop runs.
    virtual void listen(Events const& events) = 0;
};

} // namespace velmora
