#pragma once

#include "Velmora/engine/ReminderEffect.h"

#include <optional>

namespace velmora {

/// The whole state of the countdown and of a running reminder.
///
/// Instants are seconds since 2001-01-01 00:00:00 UTC on the wall clock, handed in by the caller;
/// durations are seconds. Every input is accepted. `counting` says whether the countdown may run at
/// that moment: not paused, and inside the active hours.
///
/// The state follows from the fields: reminding while `remindingUntil` is present, else running
/// while `deadline` is present, else frozen with `held` seconds left.
struct ReminderClock {
    /// How long a reminder lasts unless it is acknowledged earlier, in seconds.
    static constexpr double reminderLength = 30.0;

    /// Length of one countdown in seconds; at least 1 once set by `updateInterval`.
    double interval = 0;
    /// Seconds left while the countdown is frozen; stale while it runs.
    double held = 0;
    /// When the running countdown expires; absent while frozen and while reminding.
    std::optional<double> deadline = std::nullopt;
    /// When the running reminder ends; present exactly while one runs.
    std::optional<double> remindingUntil = std::nullopt;

    /// Seconds left of the countdown, never negative; during a reminder the next full interval.
    [[nodiscard]] double remaining(double now) const;

    [[nodiscard]] bool isReminding() const { return remindingUntil.has_value(); }

    /// Brings the clock up to `now`: starts, ends, runs or freezes what is due. A reminder runs its
    /// full length from the instant at which it was noticed, whatever `counting` says meanwhile.
    /// At most one effect happens in a call.
    [[nodiscard]] ReminderEffect reconcile(double now, bool counting);

    /// Begins a reminder at once, whatever the state; a running one starts over.
    void startReminder(double now);

    /// Ends a reminder early; the next countdown starts at `now` with a full interval. Callers
    /// check `isReminding` first.
    void endReminder(double now, bool counting);

    /// Drops a reminder and leaves the countdown frozen at a full interval.
    void cancelReminder();

    /// Sets the interval, raised to 1 second. With `reset` the countdown starts over; otherwise the
    /// time left is kept, cut to the new interval. A running reminder goes on untouched.
    void updateInterval(double seconds, double now, bool counting, bool reset);

    bool operator==(ReminderClock const&) const = default;

private:
    void restart(double now, bool counting, double left);
};

} // namespace velmora
