#include "Velmora/platform/toolkit/LocalCalendar.h"
#include "Velmora/platform/toolkit/SystemClock.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>

namespace velmora {
namespace {

/// 2026-07-01 06:30:00 UTC.
constexpr double julyMorning = 1'782'887'400.0 - referenceDateSince1970;

/// Holds the process in a time zone for the length of a test.
class InZone {
public:
    explicit InZone(char const* zone) { setenv("TZ", zone, 1); }
    InZone(InZone const&) = delete;
    InZone& operator=(InZone const&) = delete;
    ~InZone() { unsetenv("TZ"); }
};

TEST(LocalCalendar, ShowsTheLocalTimeOfAnInstant)
{
    InZone const zone("Europe/Berlin");
    EXPECT_EQ(LocalCalendar().components(julyMorning), (ClockComponents{.hour = 8, .minute = 30}));
}

TEST(LocalCalendar, FollowsAZoneChangedWhileTheProgramRuns)
{
    LocalCalendar const calendar;
    {
        InZone const zone("Europe/Berlin");
        EXPECT_EQ(calendar.components(julyMorning).hour, 8);
    }
    InZone const zone("America/New_York");
    EXPECT_EQ(calendar.components(julyMorning).hour, 2);
}

TEST(LocalCalendar, FollowsDaylightSavingTime)
{
    InZone const zone("Europe/Berlin");
    // 2026-10-25 00:59:00 UTC is 02:59 in summer time; a minute later it is 02:00 again.
    double const lastSummerMinute = 1'792'889'940.0 - referenceDateSince1970;
    LocalCalendar const calendar;
    EXPECT_EQ(calendar.components(lastSummerMinute), (ClockComponents{.hour = 2, .minute = 59}));
    EXPECT_EQ(
        calendar.components(lastSummerMinute + 60), (ClockComponents{.hour = 2, .minute = 0}));
}

TEST(LocalCalendar, YieldsNothingForAnInstantBeyondEveryCalendar)
{
    LocalCalendar const calendar;
    EXPECT_EQ(calendar.components(1e300), ClockComponents{});
    EXPECT_EQ(calendar.components(std::numeric_limits<double>::quiet_NaN()), ClockComponents{});
}

TEST(LocalCalendar, AShortTimeHasHoursAndMinutesOnlyInEveryLocale)
{
    auto const locales
        = QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
    ASSERT_GT(locales.size(), 100);
    for (auto const& locale : locales) {
        auto const format = withoutSeconds(locale.timeFormat(QLocale::ShortFormat));
        EXPECT_FALSE(format.contains(QLatin1Char('s'))) << locale.name().toStdString();
        EXPECT_TRUE(format.contains(QLatin1Char('h'), Qt::CaseInsensitive)
            && format.contains(QLatin1Char('m')))
            << locale.name().toStdString() << ": " << format.toStdString();
    }
}

TEST(LocalCalendar, TheSecondsGoWithTheirSeparator)
{
    EXPECT_EQ(withoutSeconds(QStringLiteral("HH:mm:ss")), QStringLiteral("HH:mm"));
    EXPECT_EQ(withoutSeconds(QStringLiteral("h:mm:ss AP")), QStringLiteral("h:mm AP"));
    EXPECT_EQ(withoutSeconds(QStringLiteral("H.mm")), QStringLiteral("H.mm"));
}

TEST(SystemClock, CountsSecondsSinceTheReferenceDate)
{
    auto const before = static_cast<double>(std::time(nullptr)) - referenceDateSince1970;
    double const now = SystemClock().now();
    EXPECT_GE(now, before);
    EXPECT_LT(now, before + 60);
}

} // namespace
} // namespace velmora
