#include "Velmora/engine/ReminderClock.h"

#include <algorithm>

namespace velmora {

double ReminderClock::remaining(double now) const
{
    return std::max(deadline ? *deadline - now : held, 0.0);
}

ReminderEffect ReminderClock::reconcile(double now, bool counting)
{
    if (remindingUntil) {
        if (now >= *remindingUntil) {
            endReminder(now, counting);
            return ReminderEffect::ended;
        }
        deadline.reset();
        return ReminderEffect::none;
    }

    if (!counting) {
        if (deadline) {
            held = remaining(now);
            deadline.reset();
        }
        return ReminderEffect::none;
    }

    if (!deadline)
        deadline = now + std::max(held, 0.0);
    if (now >= *deadline) {
        startReminder(now);
        return ReminderEffect::started;
    }
    return ReminderEffect::none;
}

void ReminderClock::startReminder(double now)
{
    remindingUntil = now + reminderLength;
    deadline.reset();
    held = interval;
}

void ReminderClock::endReminder(double now, bool counting)
{
    remindingUntil.reset();
    restart(now, counting, interval);
}

void ReminderClock::cancelReminder()
{
    remindingUntil.reset();
    deadline.reset();
    held = interval;
}

void ReminderClock::updateInterval(double seconds, double now, bool counting, bool reset)
{
    interval = std::max(seconds, 1.0);
    if (remindingUntil) {
        held = interval;
        return;
    }
    restart(now, counting, reset ? interval : std::min(interval, remaining(now)));
}

void ReminderClock::restart(double now, bool counting, double left)
{
    held = left;
    deadline = counting ? std::optional(now + left) : std::nullopt;
}

} // namespace velmora
