#include "Velmora/orb/OrbTransitions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace velmora {
namespace {

constexpr double start = 800000000;
constexpr OrbState idle = {};
constexpr OrbState reminding = {.isReminding = true};
constexpr OrbState paused = {.paused = true};

double word(OrbFrame const& frame, CaptionWord which)
{
    return frame.caption ? frame.caption->presence[static_cast<std::size_t>(which)] : 0;
}

TEST(EaseInOut, IsTheCurveOfItsTwoControlPoints)
{
    EXPECT_EQ(easeInOut(0), 0);
    EXPECT_EQ(easeInOut(1), 1);
    EXPECT_NEAR(easeInOut(0.5), 0.5, 1e-12);
    // At the parameter 0.25 the curve stands at (0.2575 + ..., 0.15625).
    double const s = 0.25;
    double const x = 3 * (1 - s) * (1 - s) * s * 0.42 + 3 * (1 - s) * s * s * 0.58 + s * s * s;
    EXPECT_NEAR(easeInOut(x), 0.15625, 1e-12);
    EXPECT_NEAR(easeInOut(1 - x), 1 - 0.15625, 1e-12);
    EXPECT_EQ(easeInOut(-3), 0);
    EXPECT_EQ(easeInOut(7), 1);
    EXPECT_EQ(easeInOut(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(OrbTransitions, TheFirstFrameShowsTheStateAtOnce)
{
    OrbTransitions transitions;
    OrbState const state
        = {.paused = true, .isReminding = true, .showWord = true, .showChrome = true};
    EXPECT_EQ(transitions.frame(state, start), orbFrame(state, start));
    EXPECT_TRUE(transitions.settled());
    EXPECT_EQ(transitions.controlsOpacity(), 1);
}

TEST(OrbTransitions, AReminderCrossFadesInNotQuiteHalfASecond)
{
    OrbTransitions transitions;
    static_cast<void>(transitions.frame(idle, start));
    EXPECT_EQ(transitions.frame(reminding, start), orbFrame(reminding, start, settledBlend(idle)));
    OrbFrame const half = transitions.frame(reminding, start + 0.225);
    OrbFrame const from = orbFrame(idle, start + 0.225);
    OrbFrame const to = orbFrame(reminding, start + 0.225);
    EXPECT_NEAR(half.glow.color.red, (from.glow.color.red + to.glow.color.red) / 2, 1e-6);
    EXPECT_NEAR(
        half.body.stops[1].blue, (from.body.stops[1].blue + to.body.stops[1].blue) / 2, 1e-6);
    EXPECT_NEAR(half.body.scale, (from.body.scale + to.body.scale) / 2, 1e-6);
    EXPECT_NEAR(half.ripple->opacity, to.ripple->opacity / 2, 1e-6);
    EXPECT_FALSE(transitions.settled());
    EXPECT_EQ(transitions.frame(reminding, start + 0.46), orbFrame(reminding, start + 0.46));
    EXPECT_TRUE(transitions.settled());
}

TEST(OrbTransitions, PausingOutsideTheActiveHoursCrossFadesTheStacksOpacity)
{
    OrbTransitions transitions;
    OrbState state = {.inActiveHours = false};
    static_cast<void>(transitions.frame(state, start));
    state.paused = true;
    static_cast<void>(transitions.frame(state, start));
    EXPECT_NEAR(transitions.frame(state, start + 0.225).opacity, 0.89, 1e-6);
}

TEST(OrbTransitions, EveryOtherChangeShowsAtOnce)
{
    OrbTransitions transitions;
    static_cast<void>(transitions.frame(idle, start));
    for (OrbState const& state : {OrbState{.inActiveHours = false}, OrbState{.reduceMotion = true},
             OrbState{.widgetSize = 300}})
        EXPECT_EQ(transitions.frame(state, start + 1), orbFrame(state, start + 1));
    EXPECT_TRUE(transitions.settled());
}

TEST(OrbTransitions, APauseInTheMiddleOfAReminderSetsOffFromWhereTheFadeStands)
{
    OrbTransitions transitions;
    static_cast<void>(transitions.frame(idle, start));
    static_cast<void>(transitions.frame(reminding, start));
    OrbFrame const before = transitions.frame(reminding, start + 0.2);
    OrbFrame const after = transitions.frame({.paused = true, .isReminding = true}, start + 0.2);
    EXPECT_NEAR(after.body.scale, before.body.scale, 1e-12);
    EXPECT_NEAR(after.glow.color.green, before.glow.color.green, 1e-12);
    EXPECT_NEAR(after.glow.opacity, before.glow.opacity, 1e-12);
    EXPECT_NEAR(after.ripple->opacity, before.ripple->opacity, 1e-12);
    EXPECT_FALSE(transitions.settled());
}

double ringOpacity(OrbFrame const& frame)
{
    return frame.ripple ? frame.ripple->opacity : 0;
}

TEST(OrbTransitions, NothingJumpsHoweverOftenTheStateChanges)
{
    OrbTransitions transitions;
    // Outside of the active hours a pause changes the stack's opacity as well.
    OrbFrame last = transitions.frame({.inActiveHours = false}, start);
    constexpr double step = 1.0 / 480;
    OrbState const states[] = {reminding, {.paused = true, .isReminding = true}, paused, idle};
    for (int i = 1; i < 2000; ++i) {
        OrbState state = states[i / 37 % 4];
        state.inActiveHours = false;
        OrbFrame const next = transitions.frame(state, start + i * step);
        // The steepest of any of these moves in a 480th of a second.
        EXPECT_LT(std::fabs(next.body.scale - last.body.scale), 0.0025) << i;
        EXPECT_LT(std::fabs(next.glow.color.blue - last.glow.color.blue), 0.005) << i;
        EXPECT_LT(std::fabs(next.highlight.opacity - last.highlight.opacity), 0.004) << i;
        EXPECT_LT(std::fabs(next.opacity - last.opacity), 0.004) << i;
        EXPECT_LT(std::fabs(ringOpacity(next) - ringOpacity(last)), 0.006) << i;
        last = next;
    }
}

TEST(OrbTransitions, TheWordFadesInAndOutWithoutAJump)
{
    OrbTransitions transitions;
    static_cast<void>(transitions.frame(idle, start));
    OrbState shown = {.isReminding = true, .showWord = true};
    EXPECT_FALSE(transitions.frame(shown, start).caption);
    EXPECT_LT(word(transitions.frame(shown, start + 0.3), CaptionWord::velmora), 0.5);
    OrbBlend const halfway = transitions.blend();
    EXPECT_NEAR(halfway.word, 0.5, 1e-6);
    static_cast<void>(transitions.frame(reminding, start + 0.3));
    EXPECT_NEAR(transitions.blend().word, 0.5, 1e-6);
    static_cast<void>(transitions.frame(reminding, start + 0.6));
    EXPECT_NEAR(transitions.blend().word, 0.25, 1e-6);
    EXPECT_FALSE(transitions.frame(reminding, start + 0.91).caption);
}

TEST(OrbTransitions, OneWordFadesIntoTheOtherUnderThePointer)
{
    OrbTransitions transitions;
    OrbState state = {.showChrome = true};
    static_cast<void>(transitions.frame(state, start));
    state.paused = true;
    static_cast<void>(transitions.frame(state, start));
    OrbFrame const half = transitions.frame(state, start + 0.225);
    EXPECT_NEAR(word(half, CaptionWord::relax), 0.5, 1e-6);
    EXPECT_NEAR(word(half, CaptionWord::paused), 0.5, 1e-6);
    EXPECT_EQ(half.caption->statusPresence, 1);
}

TEST(OrbTransitions, TheControlsFadeInAFifthOfASecond)
{
    OrbTransitions transitions;
    static_cast<void>(transitions.frame(idle, start));
    OrbState const over = {.showChrome = true};
    static_cast<void>(transitions.frame(over, start));
    EXPECT_EQ(transitions.controlsOpacity(), 0);
    static_cast<void>(transitions.frame(over, start + 0.1));
    EXPECT_NEAR(transitions.controlsOpacity(), 0.5, 1e-5);
    static_cast<void>(transitions.frame(over, start + 0.21));
    EXPECT_EQ(transitions.controlsOpacity(), 1);
}

TEST(OrbTransitions, AClockSetBackNeitherJumpsNorStalls)
{
    OrbTransitions transitions;
    static_cast<void>(transitions.frame(idle, start));
    static_cast<void>(transitions.frame(paused, start));
    OrbFrame const before = transitions.frame(paused, start + 0.2);
    OrbFrame const back = transitions.frame(paused, start - 3600);
    EXPECT_EQ(back.glow.color, before.glow.color);
    static_cast<void>(transitions.frame(paused, start - 3600 + 0.3));
    EXPECT_TRUE(transitions.settled());
}

} // namespace
} // namespace velmora
