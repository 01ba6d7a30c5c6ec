#pragma once

#include "Velmora/geometry/SettingsPlacement.h"
#include "Velmora/platform/FocusRequest.h"
#include "Velmora/platform/posix/InstanceLock.h"
#include "Velmora/shell/StatusImage.h"

#include <QColor>
#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace velmora {

class AppModel;
class ChimePlayer;
class Clock;
class DefaultsStore;
class DesktopPanel;
class DesktopWindow;
class DisplayPower;
class DisplayPowerWatch;
class SettingsPanel;
class StatusItem;
class ToolkitDisplays;
class WidgetPanel;
class WidgetView;

/// Owns everything that lives for the whole run: the orb's panel, the status item and the lock. It
/// wires the model to them and passes on what the system tells.
class AppDelegate final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AppDelegate)

public:
    /// What the delegate works with; everything outlives it.
    struct Seams {
        AppModel& model;
        Clock const& clock;
        ToolkitDisplays& displays;
        DefaultsStore& defaults;
        ChimePlayer& chime;
        DesktopPanel& desktopPanel;
        DesktopWindow& desktopWindow;
        DisplayPower& displayPower;
        /// The system's own picture for the status item; see `PlatformServices`.
        StatusSymbol statusSymbol;
        /// The user's form of an hour and a minute, such as "h:mm AP".
        QString timeFormat;
    };

    AppDelegate(std::shared_ptr<InstanceLock> lock, Seams seams);
    ~AppDelegate() override;

    /// Builds the interface, starts the model and honours the command line.
    void applicationDidFinishLaunching(FocusRequest flags);
    /// Leaves the event loop, whatever windows are open.
    static void terminate();
    /// Saves, and returns when the settings are on the disk.
    void applicationWillTerminate();

    /// A later copy of the program asks this one to come forward.
    void takeFocusRequest(FocusRequest request);
    /// The user opened the program once more: the orb comes forward.
    void reopened();
    /// Opens the settings, or brings them to the front.
    void openSettings();
    /// The session is ending, or may still think better of it: saves, and goes on.
    void sessionEnds();
    /// The machine is about to sleep: saves, and returns when the settings are on the disk.
    void willSleep();
    /// The machine woke up: what fell due meanwhile happens at once.
    void didWake();

    /// The session was locked or unlocked: a locked one sees no frames.
    void sessionLocked(bool locked);
    /// The displays may have changed: looks at them once they have settled.
    void displaysChanged();
    /// The desktop has a place for the status item, or has lost it.
    void trayAvailable(bool available);
    /// The panel wants its symbols in this colour; absent when it does not tell.
    void trayInkChanged(std::optional<QColor> const& ink);

private:
    void save();
    void installModelCallbacks();
    void fitStoredSizeToMainScreen();
    void setupStatusItem();
    void setupWidgetPanel();
    void setupSettings();
    [[nodiscard]] SettingsPlacement::Surroundings surroundings() const;
    void honour(FocusRequest flags);
    void after(std::chrono::milliseconds delay, std::function<void()> const& action);
    void refreshStatusItem();
    void orderWidgetFront();
    void widgetSizeChanged();
    void screenParametersChanged();

    std::shared_ptr<InstanceLock> m_instanceLock;
    bool m_trayAvailable = false;
    std::optional<QColor> m_trayInk;
    Seams m_seams;
    std::unique_ptr<WidgetView> m_widgetView;
    std::unique_ptr<WidgetPanel> m_widgetPanel;
    std::unique_ptr<DisplayPowerWatch> m_displayPowerWatch;
    std::unique_ptr<SettingsPanel> m_settingsPanel;
    std::unique_ptr<StatusItem> m_statusItem;
};

} // namespace velmora
