#include "Velmora/model/AppModel.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace velmora {

void AppModel::start()
{
    m_tick.start(std::chrono::seconds(1));
    m_seams.chime.prepare();
    assign(m_loginNote, m_seams.loginItem.apply(m_openAtLogin).note, Property::loginNote);
    tick();
}

void AppModel::tick()
{
    double const now = m_seams.clock.now();
    bool const active = insideHours(now);
    assign(m_inActiveHours, active, Property::inActiveHours);
    assign(m_reduceMotion, m_seams.motion.reduceMotion(), Property::reduceMotion);

    switch (m_clock.reconcile(now, active && !m_paused)) {
    case ReminderEffect::started:
        assign(m_isReminding, true, Property::isReminding);
        playChime();
        persist();
        break;
    case ReminderEffect::ended:
        assign(m_isReminding, false, Property::isReminding);
        persist();
        break;
    case ReminderEffect::none:
        // A reminder that a setting or a resume started without a sound becomes visible here.
        assign(m_isReminding, m_clock.isReminding(), Property::isReminding);
        break;
    }

    publishRemaining(now);
    savePerMinute();
    tellStatus();
}

void AppModel::publishRemaining(double now)
{
    auto const seconds
        = std::min(StatusText::wholeSeconds(m_clock.remaining(now)), m_intervalMinutes * 60);
    assign(m_remainingSeconds, seconds, Property::remainingSeconds);
}

void AppModel::savePerMinute()
{
    auto const minute = m_remainingSeconds / 60;
    bool const changedSinceLastTick = m_lastPersistedMinute && *m_lastPersistedMinute != minute;
    m_lastPersistedMinute = minute;
    if (changedSinceLastTick)
        persist();
}

void AppModel::togglePaused()
{
    assign(m_paused, !m_paused, Property::paused);
    pauseChanged();
}

void AppModel::pauseChanged()
{
    double const now = m_seams.clock.now();
    if (m_paused && m_clock.isReminding()) {
        m_clock.cancelReminder();
        assign(m_isReminding, false, Property::isReminding);
    } else if (m_paused) {
        (void)m_clock.reconcile(now, false);
    } else if (m_inActiveHours) {
        // A countdown that had run out starts its reminder here; the next tick shows it.
        (void)m_clock.reconcile(now, true);
    }
    publishRemaining(now);
    persist();
    tellStatus();
}

void AppModel::velmoraNow()
{
    if (m_paused)
        setPaused(false);
    double const now = m_seams.clock.now();
    m_clock.startReminder(now);
    assign(m_isReminding, true, Property::isReminding);
    publishRemaining(now);
    persist();
    playChime();
    tellStatus();
}

void AppModel::acknowledgeReminder()
{
    if (!m_clock.isReminding())
        return;
    double const now = m_seams.clock.now();
    m_clock.endReminder(now, !m_paused && m_inActiveHours);
    assign(m_isReminding, false, Property::isReminding);
    publishRemaining(now);
    persist();
    tellStatus();
}

void AppModel::clampIntervalAndApply()
{
    auto const minutes = std::clamp(m_intervalMinutes, shortestInterval, longestInterval);
    if (minutes != m_intervalMinutes) {
        setIntervalMinutes(minutes);
        return;
    }
    bool const reset = std::exchange(m_intervalReset, false);
    double const now = m_seams.clock.now();
    bool const counting = !m_paused && m_inActiveHours && !m_clock.isReminding();
    m_clock.updateInterval(60.0 * static_cast<double>(minutes), now, counting, reset);
    publishRemaining(now);
    persist();
    tellStatus();
}

void AppModel::setInterval(std::int64_t minutes, ResetRemaining reset)
{
    auto const clamped = std::clamp(minutes, shortestInterval, longestInterval);
    if (clamped != m_intervalMinutes) {
        m_intervalReset = reset == ResetRemaining::yes;
        setIntervalMinutes(clamped);
    } else if (reset == ResetRemaining::yes) {
        m_intervalReset = true;
        clampIntervalAndApply();
    }
}

void AppModel::hoursChanged()
{
    double const now = m_seams.clock.now();
    bool const active = insideHours(now);
    assign(m_inActiveHours, active, Property::inActiveHours);
    if (!m_clock.isReminding())
        (void)m_clock.reconcile(now, active && !m_paused);
    publishRemaining(now);
    persist();
    tellStatus();
}

void AppModel::playChime()
{
    if (m_soundEnabled)
        m_seams.chime.play(m_soundVolume);
}

void AppModel::tellStatus() const
{
    if (onStatus)
        onStatus();
}

} // namespace velmora
