#pragma once

#include "tests/fuzz/TableClock.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

namespace velmora {

/// The model's settings and its reminders a second time, rule by rule and without seams: what the
/// outside tells comes in as arguments, and what the outside would notice is counted.
class TableDriver {
public:
    /// What a launch finds stored; absent also where something of another type is stored.
    struct Stored {
        std::optional<std::int64_t> intervalMinutes, startMinutes, endMinutes;
        std::optional<bool> allDay, soundEnabled, paused;
        std::optional<double> soundVolume, heldRemaining;
    };

    TableDriver(Stored const& stored, int minuteOfDay)
        : interval(std::clamp<std::int64_t>(stored.intervalMinutes.value_or(15), 2, 60))
        , start(ofDay(stored.startMinutes.value_or(480)))
        , end(ofDay(stored.endMinutes.value_or(1320)))
        , allDay(stored.allDay.value_or(true))
        , sound(stored.soundEnabled.value_or(true))
        , volume(std::clamp(stored.soundVolume.value_or(0.55), 0.1, 1.0))
        , paused(stored.paused.value_or(false))
        , clock(60.0 * static_cast<double>(interval), heldAtLaunch(stored))
        , remaining(whole(clock.remaining(0)))
        , active(inHours(minuteOfDay))
    {
    }

    void tick(double now, int minuteOfDay)
    {
        active = inHours(minuteOfDay);
        auto const effect = clock.reconcile(now, active && !paused);
        reminding = clock.state() == TableClock::State::reminding;
        if (effect == ReminderEffect::started && sound)
            ++chimes;
        if (effect != ReminderEffect::none)
            persist(now);
        publish(now);
        auto const minute = remaining / 60;
        if (lastMinute && *lastMinute != minute)
            persist(now);
        lastMinute = minute;
        ++statuses;
    }

    void setInterval(std::int64_t minutes, bool reset, double now)
    {
        minutes = std::clamp<std::int64_t>(minutes, 2, 60);
        if (minutes != interval || reset)
            assignInterval(minutes, reset, now);
    }

    void assignInterval(std::int64_t minutes, bool reset, double now)
    {
        interval = std::clamp<std::int64_t>(minutes, 2, 60);
        bool const rings = clock.state() == TableClock::State::reminding;
        clock.update(60.0 * static_cast<double>(interval), now, !paused && active && !rings, reset);
        finish(now);
    }

    void hoursChanged(double now, int minuteOfDay)
    {
        active = inHours(minuteOfDay);
        if (clock.state() != TableClock::State::reminding)
            clock.reconcile(now, active && !paused);
        finish(now);
    }

    void setPaused(bool value, double now)
    {
        paused = value;
        if (!paused && active)
            clock.reconcile(now, true);
        if (paused && clock.state() == TableClock::State::reminding) {
            clock.cancel();
            reminding = false;
        } else if (paused) {
            clock.reconcile(now, false);
        }
        finish(now);
    }

    void remindNow(double now)
    {
        if (paused)
            setPaused(false, now);
        clock.start(now);
        reminding = true;
        chimes += sound ? 1 : 0;
        finish(now);
    }

    void acknowledge(double now)
    {
        if (clock.state() != TableClock::State::reminding)
            return;
        clock.end(now, !paused && active);
        reminding = false;
        finish(now);
    }

    void persist(double now)
    {
        ++saves;
        savedHeld = clock.remaining(now);
    }

    [[nodiscard]] std::string line() const
    {
        if (reminding)
            return "Velmora";
        if (paused)
            return "Paused";
        if (!active)
            return "Resting until " + digits(ofDay(start) / 60) + ":" + digits(ofDay(start) % 60);
        // Half a minute counts as one: whole numbers, rounded up from their half.
        return remaining < 60 ? "Next in " + std::to_string(remaining) + "s"
                              : "Next in " + std::to_string((remaining + 30) / 60) + "m";
    }

    std::int64_t interval, start, end;
    bool allDay, sound;
    double volume;
    bool paused;
    TableClock clock;
    std::int64_t remaining;
    bool active;
    bool reminding = false;
    std::optional<std::int64_t> lastMinute;
    std::size_t saves = 0, chimes = 0, statuses = 0;
    double savedHeld = 0;

private:
    static std::int64_t ofDay(std::int64_t minute) { return (minute % 1440 + 1440) % 1440; }

    static std::string digits(std::int64_t value)
    {
        return (value < 10 ? "0" : "") + std::to_string(value);
    }

    static std::int64_t whole(double seconds)
    {
        return seconds < 0 ? 0 : static_cast<std::int64_t>(seconds);
    }

    [[nodiscard]] double heldAtLaunch(Stored const& stored) const
    {
        double const whole = 60.0 * static_cast<double>(interval);
        double const held = stored.heldRemaining.value_or(whole);
        return std::min(held < 1 ? 15.0 : held, whole);
    }

    [[nodiscard]] bool inHours(int minute) const
    {
        auto const from = ofDay(start);
        auto const length = ofDay(ofDay(end) - from);
        // Minutes since the start, wherever midnight lies in between.
        return allDay || length == 0 || ofDay(minute - from) < length;
    }

    void publish(double now) { remaining = std::min(whole(clock.remaining(now)), interval * 60); }

    void finish(double now)
    {
        publish(now);
        persist(now);
        ++statuses;
    }

    // `remaining` is built from the clock, which is built from `interval`: the order above.
};

} // namespace velmora
