#pragma once

#include "Velmora/engine/Calendar.h"

#include <cstdint>

/// The arithmetic of the active hours: a daily window given by two minutes of the day.
///
/// A minute of the day is 0 to 1439, counted from local midnight; any other value is accepted and
/// normalised.
namespace velmora::DayWindow {

inline constexpr int minutesPerDay = 1440;

/// `minute` modulo 1440, always 0 to 1439.
[[nodiscard]] int normalize(std::int64_t minute);

/// Whether a minute lies in the window: the start is inside, the end is outside, an end before the
/// start wraps past midnight, and a start equal to the end is the whole day.
[[nodiscard]] bool contains(
    std::int64_t nowMinutes, std::int64_t start, std::int64_t end, bool allDay);

/// The local minute of the day of an instant (seconds since 2001-01-01 00:00:00 UTC); seconds are
/// cut off, and a component that the calendar does not yield counts as 0.
[[nodiscard]] int minutes(double instant, Calendar const& calendar);

} // namespace velmora::DayWindow
