#include "Velmora/model/AppModel.h"

#include "Velmora/engine/DayWindow.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmora {

namespace {

constexpr double quietestStoredVolume = 0.1;

/// A countdown that had run out when the program ended fires this long after the next launch
/// instead of at once, in seconds.
constexpr double launchGrace = 15.0;

} // namespace

AppModel::AppModel(Seams seams)
    : m_seams(std::move(seams))
{
    load();
    // A coarse timer is late by at most a twentieth of its interval and may share wake-ups.
    m_tick.setTimerType(Qt::CoarseTimer);
    connect(&m_tick, &QTimer::timeout, this, &AppModel::tick);
}

void AppModel::load()
{
    m_isApplyingStoredState = true;
    loadSettings();
    loadPlace();
    loadCountdown();
    m_inActiveHours = insideHours(m_seams.clock.now());
    m_reduceMotion = m_seams.motion.reduceMotion();
    m_isApplyingStoredState = false;
}

void AppModel::loadSettings()
{
    auto const& stored = m_seams.defaults;
    m_intervalMinutes = std::clamp(stored.integer("intervalMinutes").value_or(m_intervalMinutes),
        shortestInterval, longestInterval);
    m_startMinutes = DayWindow::normalize(stored.integer("startMinutes").value_or(m_startMinutes));
    m_endMinutes = DayWindow::normalize(stored.integer("endMinutes").value_or(m_endMinutes));
    m_allDay = stored.boolean("allDay").value_or(m_allDay);
    m_soundEnabled = stored.boolean("soundEnabled").value_or(m_soundEnabled);
    m_soundVolume = std::clamp(
        stored.number("soundVolume").value_or(m_soundVolume), quietestStoredVolume, 1.0);
    m_paused = stored.boolean("paused").value_or(m_paused);
    m_openAtLogin = stored.boolean("openAtLogin").value_or(m_openAtLogin);
}

void AppModel::loadPlace()
{
    auto const& stored = m_seams.defaults;
    setWidgetSize(stored.number("widgetSize").value_or(m_widgetSize));
    m_widgetOrigin = {.x = stored.number("widgetOriginX").value_or(0),
        .y = stored.number("widgetOriginY").value_or(0)};
    m_hasSavedOrigin = stored.boolean("hasSavedOrigin").value_or(false);
}

void AppModel::loadCountdown()
{
    auto const interval = 60.0 * static_cast<double>(m_intervalMinutes);
    double held = m_seams.defaults.number("heldRemaining").value_or(interval);
    if (held < 1.0)
        held = launchGrace;
    held = std::min(held, interval);
    m_clock = {.interval = interval, .held = held};
    m_remainingSeconds = StatusText::wholeSeconds(held);
}

void AppModel::persist()
{
    std::array<DefaultsEntry, 13> const entries = {{
        {"intervalMinutes", m_intervalMinutes},
        {"startMinutes", m_startMinutes},
        {"endMinutes", m_endMinutes},
        {"allDay", m_allDay},
        {"soundEnabled", m_soundEnabled},
        {"soundVolume", m_soundVolume},
        {"paused", m_paused},
        {"openAtLogin", m_openAtLogin},
        {"widgetSize", m_widgetSize},
        {"widgetOriginX", m_widgetOrigin.x},
        {"widgetOriginY", m_widgetOrigin.y},
        {"hasSavedOrigin", m_hasSavedOrigin},
        {"heldRemaining", m_clock.remaining(m_seams.clock.now())},
    }};
    m_seams.defaults.write(entries);
}

void AppModel::setIntervalMinutes(std::int64_t minutes)
{
    assign(m_intervalMinutes, minutes, Property::intervalMinutes);
    clampIntervalAndApply();
}

void AppModel::setStartMinutes(std::int64_t minutes)
{
    assign(m_startMinutes, minutes, Property::startMinutes);
    hoursChanged();
}

void AppModel::setEndMinutes(std::int64_t minutes)
{
    assign(m_endMinutes, minutes, Property::endMinutes);
    hoursChanged();
}

void AppModel::setAllDay(bool allDay)
{
    assign(m_allDay, allDay, Property::allDay);
    hoursChanged();
}

void AppModel::setSoundEnabled(bool enabled)
{
    assign(m_soundEnabled, enabled, Property::soundEnabled);
    persist();
}

void AppModel::setSoundVolume(double volume)
{
    assign(m_soundVolume, volume, Property::soundVolume);
    persist();
}

void AppModel::setPaused(bool paused)
{
    assign(m_paused, paused, Property::paused);
    pauseChanged();
}

void AppModel::setOpenAtLogin(bool open)
{
    assign(m_openAtLogin, open, Property::openAtLogin);
    assign(m_loginNote, m_seams.loginItem.apply(open).note, Property::loginNote);
    persist();
}

void AppModel::setShowingSettings(bool showing)
{
    if (showing == m_showingSettings)
        return;
    assign(m_showingSettings, showing, Property::showingSettings);
    if (onShowingSettings)
        onShowingSettings(showing);
}

void AppModel::setPointerInside(bool inside)
{
    assign(m_pointerInside, inside, Property::pointerInside);
}

void AppModel::setHostScreen(std::optional<DisplayId> screen)
{
    assign(m_hostScreen, screen, Property::hostScreen);
}

std::string AppModel::statusLine() const
{
    return StatusText::line({.reminding = m_isReminding,
                                .paused = m_paused,
                                .active = m_inActiveHours,
                                .resumeAt = formatMinutes(m_startMinutes),
                                .seconds = m_remainingSeconds},
        m_seams.phrases);
}

std::string AppModel::formatMinutes(std::int64_t minutes) const
{
    int const minute = DayWindow::normalize(minutes);
    return m_seams.calendar.shortTime(minute / 60, minute % 60);
}

bool AppModel::insideHours(double now) const
{
    return DayWindow::contains(
        DayWindow::minutes(now, m_seams.calendar), m_startMinutes, m_endMinutes, m_allDay);
}

} // namespace velmora
