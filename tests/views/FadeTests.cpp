#include "Velmora/views/Fade.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(Fade, StandsStillUntilItIsTurned)
{
    EXPECT_EQ(Fade(0.2).at(5), 0);
    EXPECT_EQ(Fade(0.2, true).at(5), 1);
    EXPECT_FALSE(Fade(0.2).moving(5));
}

TEST(Fade, EasesInAndOut)
{
    Fade fade(0.2);
    fade.set(true, 10);
    EXPECT_NEAR(fade.at(10), 0, 1e-9);
    EXPECT_NEAR(fade.at(10.05), 0.129, 0.001);
    EXPECT_NEAR(fade.at(10.1), 0.5, 1e-6);
    EXPECT_NEAR(fade.at(10.15), 0.871, 0.001);
    EXPECT_EQ(fade.at(10.2), 1);
}

TEST(Fade, TurnedHalfWayItStartsFromWhereItIs)
{
    Fade fade(0.2);
    fade.set(true, 10);
    fade.set(false, 10.1);
    EXPECT_NEAR(fade.at(10.1), 0.5, 1e-6);
    EXPECT_NEAR(fade.at(10.2), 0.25, 1e-6);
    EXPECT_EQ(fade.at(10.31), 0);
}

TEST(Fade, HearingTheSameAgainDoesNotStartItOver)
{
    Fade fade(0.2);
    fade.set(true, 10);
    fade.set(true, 10.15);
    EXPECT_EQ(fade.at(10.2), 1);
}

TEST(Fade, AClockSetBackEndsIt)
{
    Fade fade(0.2);
    fade.set(true, 10);
    EXPECT_EQ(fade.at(3), 1);
    EXPECT_FALSE(fade.moving(3));
}

} // namespace
} // namespace velmora
