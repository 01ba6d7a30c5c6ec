#include "Velmora/engine/StatusText.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

TEST(StatusText, WholeSecondsRoundsDownAndIsNeverNegative)
{
    EXPECT_EQ(StatusText::wholeSeconds(59.99), 59);
    EXPECT_EQ(StatusText::wholeSeconds(899.999), 899);
    EXPECT_EQ(StatusText::wholeSeconds(0.4), 0);
    EXPECT_EQ(StatusText::wholeSeconds(-3.2), 0);
    EXPECT_EQ(StatusText::wholeSeconds(900), 900);
}

TEST(StatusText, WholeSecondsTakesEveryValueThatFits)
{
    EXPECT_EQ(StatusText::wholeSeconds(9.2e18), 9'200'000'000'000'000'000);
    EXPECT_EQ(StatusText::wholeSeconds(-9223372036854775808.0), 0);
}

TEST(StatusTextDeathTest, WholeSecondsEndsTheProcessOnAValueThatIsNoNumberOfSeconds)
{
    using Limits = std::numeric_limits<double>;
    EXPECT_DEATH((void)StatusText::wholeSeconds(Limits::quiet_NaN()), "");
    EXPECT_DEATH((void)StatusText::wholeSeconds(Limits::infinity()), "");
    EXPECT_DEATH((void)StatusText::wholeSeconds(-Limits::infinity()), "");
    EXPECT_DEATH((void)StatusText::wholeSeconds(9223372036854775808.0), "");
    EXPECT_DEATH((void)StatusText::wholeSeconds(-9.3e18), "");
}

TEST(StatusText, NextLabelCountsSecondsBelowAMinute)
{
    EXPECT_EQ(StatusText::nextLabel(59), "Next in 59s");
    EXPECT_EQ(StatusText::nextLabel(0), "Next in 0s");
    EXPECT_EQ(StatusText::nextLabel(-7), "Next in 0s");
}

TEST(StatusText, NextLabelRoundsToTheNearestMinuteWithHalvesUp)
{
    EXPECT_EQ(StatusText::nextLabel(60), "Next in 1m");
    EXPECT_EQ(StatusText::nextLabel(89), "Next in 1m");
    EXPECT_EQ(StatusText::nextLabel(90), "Next in 2m");
    EXPECT_EQ(StatusText::nextLabel(150), "Next in 3m");
    EXPECT_EQ(StatusText::nextLabel(899), "Next in 15m");
    EXPECT_EQ(StatusText::nextLabel(900), "Next in 15m");
    EXPECT_EQ(StatusText::nextLabel(3600), "Next in 60m");
}

TEST(StatusText, NextLabelPrintsPlainDigits)
{
    EXPECT_EQ(StatusText::nextLabel(60 * 123456), "Next in 123456m");
}

TEST(StatusText, LineNamesARunningReminderBeforeEverythingElse)
{
    EXPECT_EQ(StatusText::line({.reminding = true, .paused = true}), "Velmora");
    EXPECT_EQ(StatusText::line({.reminding = true, .active = true, .seconds = 5}), "Velmora");
}

TEST(StatusText, LineNamesThePauseBeforeTheHours)
{
    EXPECT_EQ(StatusText::line({.paused = true, .active = true, .seconds = 5}), "Paused");
    EXPECT_EQ(StatusText::line({.paused = true}), "Paused");
}

TEST(StatusText, LineCountsDownInsideTheHours)
{
    EXPECT_EQ(StatusText::line({.active = true, .seconds = 150}), "Next in 3m");
}

TEST(StatusText, LineRestsUntilTheHoursBeginOutsideThem)
{
    EXPECT_EQ(StatusText::line({.resumeAt = "8:00 AM", .seconds = 10}), "Resting until 8:00 AM");
}

TEST(StatusText, PhrasesOfAnotherLanguageTakeTheirNumberWhereTheyWantIt)
{
    StatusPhrases const german = {.nextInMinutes = "In %1 min", .restingUntil = "Ruht bis %1"};
    EXPECT_EQ(StatusText::nextLabel(300, german), "In 5 min");
    EXPECT_EQ(StatusText::line({.resumeAt = "08:00"}, german), "Ruht bis 08:00");
    EXPECT_EQ(StatusText::nextLabel(300, {.nextInMinutes = "Soon"}), "Soon");
}

} // namespace
} // namespace velmora
