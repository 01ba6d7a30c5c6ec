#include "Velmora/orb/BreathingMotion.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

using namespace BreathingMotion;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr OrbState idle = {};
constexpr OrbState reminding = {.isReminding = true};
constexpr OrbState paused = {.paused = true};
constexpr OrbState still = {.reduceMotion = true};

TEST(BreathingMotion, SmoothstepClampsAndTakesNoNumberAsZero)
{
    EXPECT_EQ(smoothstep(-1), 0);
    EXPECT_EQ(smoothstep(0.5), 0.5);
    EXPECT_EQ(smoothstep(2), 1);
    EXPECT_EQ(smoothstep(notANumber), 0);
    EXPECT_NEAR(smoothstep(0.25), 0.15625, 1e-15);
}

TEST(BreathingMotion, AReminderBreathSwellsToItsFullInhaleAndHolds)
{
    EXPECT_NEAR(breathScale(800000000, reminding), 1, 1e-12);
    EXPECT_NEAR(breathScale(800000002.1, reminding), 1.08, 1e-7);
    EXPECT_NEAR(breathScale(800000004.2, reminding), 1.16, 1e-12);
    EXPECT_NEAR(breathScale(800000005.0, reminding), 1.16, 1e-12);
    EXPECT_NEAR(breathScale(800000005.2, reminding), 1.16, 1e-12);
    EXPECT_NEAR(breathScale(800000007.6, reminding), 1.08, 1e-7);
    EXPECT_GT(breathScale(9.99, reminding), 1);
    EXPECT_LT(breathScale(9.99, reminding), 1.0001);
}

TEST(BreathingMotion, AnIdleBreathIsLongerAndShallow)
{
    EXPECT_NEAR(breathScale(10.5 * 7 + 4.41, idle), 1.045, 1e-12);
    EXPECT_NEAR(breathScale(10.5 * 7 + 10.5, idle), 1, 1e-9);
    EXPECT_NEAR(breathScale(10.5 * 7 + 7.98, idle), 1.0225, 1e-9);
}

TEST(BreathingMotion, APausedOrbIsSmallAndMotionless)
{
    EXPECT_EQ(breathScale(3, paused), 0.96);
    EXPECT_EQ(breathScale(4, {.paused = true, .isReminding = true}), 0.96);
    EXPECT_EQ(breathScale(4, {.paused = true, .reduceMotion = true}), 0.96);
    EXPECT_EQ(breathScale(4, still), 1);
    EXPECT_EQ(breathScale(4, {.isReminding = true, .reduceMotion = true}), 1);
}

TEST(BreathingMotion, AClockBeforeTheEpochRests)
{
    EXPECT_EQ(breathScale(-3, reminding), 1);
    EXPECT_EQ(rippleProgress(-3, reminding), 0);
}

TEST(BreathingMotion, TheRippleSpreadsWithTheInBreathOfAReminder)
{
    EXPECT_NEAR(rippleProgress(2.25, reminding), 0.5, 1e-12);
    EXPECT_EQ(rippleProgress(4.5, reminding), 1);
    EXPECT_EQ(rippleProgress(4.6, reminding), 0);
    EXPECT_EQ(rippleProgress(2.25, idle), 0);
    EXPECT_EQ(rippleProgress(2.25, {.isReminding = true, .reduceMotion = true}), 0);
    EXPECT_NEAR(rippleProgress(2.25, {.paused = true, .isReminding = true}), 0.5, 1e-12);
}

TEST(BreathingMotion, TheWobbleGoesOnWhilePausedButNotWithReducedMotion)
{
    EXPECT_EQ(wobblePhase(100, idle), 32);
    EXPECT_EQ(wobblePhase(100, paused), 32);
    EXPECT_EQ(wobblePhase(100, still), 0);
}

TEST(BreathingMotion, ThePulseStandsInForBreathing)
{
    EXPECT_EQ(pulse(2.625, idle), 1);
    EXPECT_NEAR(pulse(0, still), 0.95, 1e-12);
    EXPECT_NEAR(pulse(2.625, still), 1.0, 1e-12);
    EXPECT_NEAR(pulse(7.875, still), 0.9, 1e-12);
}

TEST(BreathingMotion, OutsideTheActiveHoursOnlyAnUnpausedOrbIsDimmed)
{
    EXPECT_EQ(dimming(idle), 1);
    EXPECT_EQ(dimming({.inActiveHours = false}), 0.78);
    EXPECT_EQ(dimming({.isReminding = true, .inActiveHours = false}), 0.78);
    EXPECT_EQ(dimming({.paused = true, .inActiveHours = false}), 1);
}

} // namespace
} // namespace velmora
