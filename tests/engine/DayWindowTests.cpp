#include "Velmora/engine/DayWindow.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

TEST(DayWindow, NormalizesAnyIntegerIntoTheDay)
{
    EXPECT_EQ(DayWindow::normalize(0), 0);
    EXPECT_EQ(DayWindow::normalize(-1), 1439);
    EXPECT_EQ(DayWindow::normalize(1440), 0);
    EXPECT_EQ(DayWindow::normalize(-1440), 0);
    EXPECT_EQ(DayWindow::normalize(2000), 560);
    EXPECT_EQ(DayWindow::normalize(std::numeric_limits<std::int64_t>::max()), 1087);
    EXPECT_EQ(DayWindow::normalize(std::numeric_limits<std::int64_t>::min()), 352);
}

TEST(DayWindow, TheStartIsInsideAndTheEndIsOutside)
{
    EXPECT_TRUE(DayWindow::contains(540, 540, 1020, false));
    EXPECT_TRUE(DayWindow::contains(1019, 540, 1020, false));
    EXPECT_FALSE(DayWindow::contains(1020, 540, 1020, false));
    EXPECT_FALSE(DayWindow::contains(539, 540, 1020, false));
}

TEST(DayWindow, AnEndBeforeTheStartWrapsPastMidnight)
{
    for (int const inside : {1320, 1439, 0, 359})
        EXPECT_TRUE(DayWindow::contains(inside, 1320, 360, false)) << inside;
    for (int const outside : {360, 1319})
        EXPECT_FALSE(DayWindow::contains(outside, 1320, 360, false)) << outside;
}

TEST(DayWindow, EqualBoundsAreTheWholeDay)
{
    for (int minute = 0; minute < 1440; ++minute)
        ASSERT_TRUE(DayWindow::contains(minute, 600, 600, false)) << minute;
}

TEST(DayWindow, BoundsThatNormaliseToTheSameMinuteAreTheWholeDay)
{
    EXPECT_TRUE(DayWindow::contains(3, 600, 2040, false));
}

TEST(DayWindow, AllDayHoldsWhateverTheBounds)
{
    EXPECT_TRUE(DayWindow::contains(0, 540, 1020, true));
}

TEST(DayWindow, BoundsOutsideTheDayAreNormalised)
{
    EXPECT_TRUE(DayWindow::contains(1380, -60, 1500, false));
    EXPECT_TRUE(DayWindow::contains(59, -60, 1500, false));
    EXPECT_FALSE(DayWindow::contains(60, -60, 1500, false));
    EXPECT_FALSE(DayWindow::contains(1379, -60, 1500, false));
}

TEST(DayWindow, TheMinuteAskedAboutIsNormalisedToo)
{
    EXPECT_TRUE(DayWindow::contains(540 + 1440, 540, 1020, false));
    EXPECT_TRUE(DayWindow::contains(-1440 + 540, 540, 1020, false));
}

/// Counts 86,400-second days from instant 0, so that a test names the time of day it means.
class PlainCalendar final : public Calendar {
public:
    ClockComponents components(double instant) const override
    {
        auto const second = static_cast<int>(instant) % 86400;
        return {.hour = second / 3600, .minute = second / 60 % 60};
    }
    std::string shortTime(int, int) const override { return {}; }
};

class SilentCalendar final : public Calendar {
public:
    explicit SilentCalendar(ClockComponents shown)
        : m_shown(shown)
    {
    }
    ClockComponents components(double) const override { return m_shown; }
    std::string shortTime(int, int) const override { return {}; }

private:
    ClockComponents m_shown;
};

TEST(DayWindow, TheMinuteOfAnInstantCutsOffItsSeconds)
{
    EXPECT_EQ(DayWindow::minutes(9 * 3600 + 59 * 60 + 59, PlainCalendar()), 599);
    EXPECT_EQ(DayWindow::minutes(23 * 3600 + 59 * 60 + 30, PlainCalendar()), 1439);
    EXPECT_EQ(DayWindow::minutes(0, PlainCalendar()), 0);
}

TEST(DayWindow, AComponentThatTheCalendarDoesNotYieldCountsAsZero)
{
    EXPECT_EQ(DayWindow::minutes(0, SilentCalendar({.hour = 7, .minute = {}})), 420);
    EXPECT_EQ(DayWindow::minutes(0, SilentCalendar({.hour = {}, .minute = 9})), 9);
    EXPECT_EQ(DayWindow::minutes(0, SilentCalendar({})), 0);
}

} // namespace
} // namespace velmora
