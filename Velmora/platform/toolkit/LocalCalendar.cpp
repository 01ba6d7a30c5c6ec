#include "Velmora/platform/toolkit/LocalCalendar.h"

#include "Velmora/platform/toolkit/SystemClock.h"

#include <QLocale>
#include <QRegularExpression>
#include <QTime>

#include <cmath>
#include <ctime>
#include <limits>

namespace velmora {

QString withoutSeconds(QString format)
{
    // The seconds go together with what stands between them and the minutes.
    static QRegularExpression const seconds(QStringLiteral("[^A-Za-z']*s+"));
    return format.remove(seconds).trimmed();
}

LocalCalendar::LocalCalendar()
    : m_format(withoutSeconds(QLocale::system().timeFormat(QLocale::ShortFormat)))
{
}

ClockComponents LocalCalendar::components(double instant) const
{
    double const since1970 = std::floor(instant + referenceDateSince1970);
    constexpr auto limit = static_cast<double>(std::numeric_limits<std::int32_t>::max()) * 1e6;
    if (!(std::abs(since1970) < limit))
        return {};

    // The C library looks for a changed zone here and nowhere else.
    tzset();
    auto const time = static_cast<std::time_t>(since1970);
    std::tm local = {};
    if (!localtime_r(&time, &local))
        return {};
    return {.hour = local.tm_hour, .minute = local.tm_min};
}

std::string LocalCalendar::shortTime(int hour, int minute) const
{
    return QLocale::system().toString(QTime(hour, minute), m_format).toStdString();
}

} // namespace velmora
