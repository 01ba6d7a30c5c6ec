#pragma once

#include "Velmora/engine/Calendar.h"

#include <cmath>

namespace velmora {

/// A calendar whose every day has 86,400 seconds, counted from the instant 0, in a zone that the
/// test sets; times of day read "08:05".
class FakeCalendar final : public Calendar {
public:
    [[nodiscard]] ClockComponents components(double instant) const override
    {
        constexpr double secondsPerDay = 86'400;
        if (!std::isfinite(instant))
            return {};
        double const local = instant + 60.0 * utcOffsetMinutes;
        double const ofDay = local - std::floor(local / secondsPerDay) * secondsPerDay;
        int const minute = static_cast<int>(std::floor(ofDay / 60));
        return {.hour = minute / 60, .minute = minute % 60};
    }

    [[nodiscard]] std::string shortTime(int hour, int minute) const override
    {
        return twoDigits(hour) + ":" + twoDigits(minute);
    }

    /// How far local time is ahead of UTC.
    int utcOffsetMinutes = 0;

private:
    static std::string twoDigits(int value)
    {
        return (value < 10 ? "0" : "") + std::to_string(value);
    }
};

} // namespace velmora
