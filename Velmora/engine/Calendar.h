#pragma once

#include <optional>
#include <string>

namespace velmora {

/// The hour and the minute that a local clock shows; absent where the calendar yields none.
struct ClockComponents {
    /// 0 to 23.
    std::optional<int> hour;
    /// 0 to 59.
    std::optional<int> minute;

    bool operator==(ClockComponents const&) const = default;
};

/// The user's calendar: what the local clock shows, and how a time of day is written.
class Calendar {
public:
    virtual ~Calendar() = default;

    /// What the local clock shows at `instant` (seconds since 2001-01-01 00:00:00 UTC), in the time
    /// zone that holds at the moment of the call.
    [[nodiscard]] virtual ClockComponents components(double instant) const = 0;

    /// A time of day in the user's short form, hours and minutes only, such as "8:00 AM" or
    /// "08:00"; UTF-8. `hour` is 0 to 23, `minute` 0 to 59.
    [[nodiscard]] virtual std::string shortTime(int hour, int minute) const = 0;
};

} // namespace velmora
