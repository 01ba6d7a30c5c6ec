#pragma once

#include "Velmora/engine/Calendar.h"
#include "Velmora/engine/ReminderClock.h"
#include "Velmora/engine/StatusText.h"
#include "Velmora/platform/Clock.h"
#include "Velmora/platform/DefaultsStore.h"
#include "Velmora/platform/Displays.h"
#include "Velmora/platform/MotionSetting.h"
#include "Velmora/services/ChimePlayer.h"
#include "Velmora/services/LoginItem.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// Whether a new interval starts the countdown over or keeps the time already left.
enum class ResetRemaining {
    no,
    yes,
};

/// The one observable object that holds every setting and every value on display, drives the
/// reminder once a second, and keeps the orb's size and place valid on the displays.
///
/// Nothing here fails: out-of-range values are clamped or normalised. The main thread only.
class AppModel final : public QObject {
    Q_OBJECT

public:
    /// What the model needs from outside; everything outlives it.
    struct Seams {
        Clock const& clock;
        Calendar const& calendar;
        Displays const& displays;
        MotionSetting const& motion;
        DefaultsStore& defaults;
        ChimePlayer& chime;
        LoginItem& loginItem;
        /// The words of the status line.
        StatusPhrases phrases = {};
    };

    /// Names a published property in `changed`.
    enum class Property {
        intervalMinutes,
        startMinutes,
        endMinutes,
        allDay,
        soundEnabled,
        soundVolume,
        paused,
        openAtLogin,
        widgetSize,
        widgetOriginX,
        widgetOriginY,
        hasSavedOrigin,
        remainingSeconds,
        inActiveHours,
        isReminding,
        showingSettings,
        pointerInside,
        reduceMotion,
        loginNote,
        hostScreen,
    };
    Q_ENUM(Property)

    /// Minutes between reminders.
    static constexpr std::int64_t shortestInterval = 2;
    static constexpr std::int64_t longestInterval = 60;
    /// The orb's smallest side in desktop points.
    static constexpr double minimumSize = 72.0;

    /// Loads the stored settings; writes nothing and starts nothing.
    explicit AppModel(Seams seams);

    // Settings. Assigning one runs its rule also when the value stays the same; observers hear of
    // real changes only.

    /// Minutes between reminders, always 2 to 60.
    [[nodiscard]] std::int64_t intervalMinutes() const { return m_intervalMinutes; }
    void setIntervalMinutes(std::int64_t minutes);
    /// Start of the active hours, a minute of the day; kept as given and normalised where used.
    [[nodiscard]] std::int64_t startMinutes() const { return m_startMinutes; }
    void setStartMinutes(std::int64_t minutes);
    /// End of the active hours, a minute of the day; before the start it means overnight.
    [[nodiscard]] std::int64_t endMinutes() const { return m_endMinutes; }
    void setEndMinutes(std::int64_t minutes);
    [[nodiscard]] bool allDay() const { return m_allDay; }
    void setAllDay(bool allDay);
    [[nodiscard]] bool soundEnabled() const { return m_soundEnabled; }
    void setSoundEnabled(bool enabled);
    /// 0 to 1, linear in amplitude; kept as given and clamped to 0.1...1 at the next load.
    [[nodiscard]] double soundVolume() const { return m_soundVolume; }
    void setSoundVolume(double volume);
    [[nodiscard]] bool paused() const { return m_paused; }
    void setPaused(bool paused);
    [[nodiscard]] bool openAtLogin() const { return m_openAtLogin; }
    void setOpenAtLogin(bool open);
    /// Side of the orb's square in desktop points; kept inside what the host display allows.
    [[nodiscard]] double widgetSize() const { return m_widgetSize; }
    void setWidgetSize(double size);

    // What the views show.

    /// The saved place of the orb's bottom-left corner, in desktop points, y up.
    [[nodiscard]] Point widgetOrigin() const { return m_widgetOrigin; }
    [[nodiscard]] bool hasSavedOrigin() const { return m_hasSavedOrigin; }
    /// Whole seconds to the next reminder, never above the interval.
    [[nodiscard]] std::int64_t remainingSeconds() const { return m_remainingSeconds; }
    [[nodiscard]] bool inActiveHours() const { return m_inActiveHours; }
    [[nodiscard]] bool isReminding() const { return m_isReminding; }
    [[nodiscard]] bool reduceMotion() const { return m_reduceMotion; }
    /// What the settings form tells about opening at login, UTF-8; absent when all is well.
    [[nodiscard]] std::optional<std::string> const& loginNote() const { return m_loginNote; }
    [[nodiscard]] bool showingSettings() const { return m_showingSettings; }
    void setShowingSettings(bool showing);
    /// Whether the pointer is over the orb or its grip.
    [[nodiscard]] bool pointerInside() const { return m_pointerInside; }
    void setPointerInside(bool inside);
    /// The display that holds the orb.
    [[nodiscard]] std::optional<DisplayId> hostScreen() const { return m_hostScreen; }
    void setHostScreen(std::optional<DisplayId> screen);

    /// The one short line for the tooltip, the menu and the orb, UTF-8.
    [[nodiscard]] std::string statusLine() const;
    /// A minute of the day in the user's short form, UTF-8.
    [[nodiscard]] std::string formatMinutes(std::int64_t minutes) const;

    /// Hands every setting and the countdown to the store.
    void persist();

    // The reminder.

    /// Starts the tick, readies the chime, brings opening at login in line, and ticks once.
    void start();
    /// Brings everything up to the present instant; once a second and after a wake.
    void tick();
    void togglePaused();
    /// Starts a reminder at once, whatever the state; a pause ends.
    void velmoraNow();
    /// Ends a running reminder and starts a full interval; without one, nothing.
    void acknowledgeReminder();
    /// Sets the interval, clamped to 2...60 minutes. The same interval with a reset starts over,
    /// without one nothing happens.
    void setInterval(std::int64_t minutes, ResetRemaining reset);

    // The orb's size and place, in desktop points.

    /// The largest side on a display: 0.22 of the longer side of its visible frame. An absent
    /// display, or one that has gone, means the main one.
    [[nodiscard]] double maxWidgetSize(std::optional<DisplayId> screen) const;
    /// A side raised to the smallest and then cut to the largest; a value that is not a number
    /// counts as the smallest.
    [[nodiscard]] double clampSize(double size, std::optional<DisplayId> screen) const;
    /// Every resize by the user's hand comes through here.
    void applySize(double size, std::optional<DisplayId> screen);
    /// Where the orb's panel goes when it is made.
    [[nodiscard]] Point originForLaunch(double size) const;
    /// Where an orb that stands at `origin` goes after the displays changed.
    [[nodiscard]] Point originPullingOnScreen(Point origin, double size) const;
    /// Records a place as the saved one, as given.
    void saveOrigin(Point origin);
    /// The displays' frames, the main display first; the fallback display when there is none.
    [[nodiscard]] std::vector<ScreenFrames> screenFrames() const;

    // What the shell is told.

    /// The settings are to be shown (true) or hidden.
    std::function<void(bool)> onShowingSettings;
    /// The orb's panel is to be fitted to `widgetSize`.
    std::function<void()> onWidgetSize;
    /// The status line is to be read again.
    std::function<void()> onStatus;

Q_SIGNALS:
    /// A published property has a new value.
    void changed(velmora::AppModel::Property property);

private:
    void load();
    void loadSettings();
    void loadCountdown();
    void loadPlace();

    void clampIntervalAndApply();
    void hoursChanged();
    void pauseChanged();
    void sizeChanged();
    void tellSize();
    void publishRemaining(double now);
    void savePerMinute();
    void playChime();
    void tellStatus() const;
    [[nodiscard]] bool insideHours(double now) const;
    [[nodiscard]] Rect visibleFrame(std::optional<DisplayId> screen) const;

    /// Stores a new value and tells the observers; an equal one tells nobody.
    template <typename Value>
    void assign(Value& field, Value value, Property property);

    Seams m_seams;
    ReminderClock m_clock;
    QTimer m_tick;
    bool m_isApplyingStoredState = false;
    bool m_intervalReset = false;
    /// The shell is being told of the size, and may assign another.
    bool m_isTellingSize = false;
    std::optional<std::int64_t> m_lastPersistedMinute;

    std::int64_t m_intervalMinutes = 15;
    std::int64_t m_startMinutes = 480;
    std::int64_t m_endMinutes = 1320;
    bool m_allDay = true;
    bool m_soundEnabled = true;
    double m_soundVolume = 0.55;
    bool m_paused = false;
    bool m_openAtLogin = false;
    double m_widgetSize = 128;
    Point m_widgetOrigin;
    bool m_hasSavedOrigin = false;
    std::int64_t m_remainingSeconds = 0;
    bool m_inActiveHours = true;
    bool m_isReminding = false;
    bool m_showingSettings = false;
    bool m_pointerInside = false;
    bool m_reduceMotion = false;
    std::optional<std::string> m_loginNote;
    std::optional<DisplayId> m_hostScreen;
};

template <typename Value>
void AppModel::assign(Value& field, Value value, Property property)
{
    if (field == value)
        return;
    field = std::move(value);
    Q_EMIT changed(property);
}

} // namespace velmora
