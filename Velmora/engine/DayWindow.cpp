#include "Velmora/engine/DayWindow.h"

namespace velmora::DayWindow {

int normalize(std::int64_t minute)
{
    auto const remainder = static_cast<int>(minute % minutesPerDay);
    return remainder < 0 ? remainder + minutesPerDay : remainder;
}

bool contains(std::int64_t nowMinutes, std::int64_t start, std::int64_t end, bool allDay)
{
    int const s = normalize(start);
    int const e = normalize(end);
    if (allDay || s == e)
        return true;
    int const n = normalize(nowMinutes);
    return s < e ? s <= n && n < e : n >= s || n < e;
}

int minutes(double instant, Calendar const& calendar)
{
    auto const shown = calendar.components(instant);
    return shown.hour.value_or(0) * 60 + shown.minute.value_or(0);
}

} // namespace velmora::DayWindow
