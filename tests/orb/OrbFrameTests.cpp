#include "Velmora/orb/OrbFrame.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr double now = 800000002.25;

double presence(OrbFrame const& frame, CaptionWord word)
{
    return frame.caption->presence[static_cast<std::size_t>(word)];
}

TEST(Palette, ChoosesTheFirstRowThatMatches)
{
    OrbColor const grey = {0.62, 0.66, 0.64};
    EXPECT_EQ(colors({.paused = true}).inner, grey);
    EXPECT_EQ(colors({.paused = true, .isReminding = true, .inActiveHours = false}).inner, grey);
    EXPECT_EQ(
        colors({.isReminding = true, .inActiveHours = false}).mid, (OrbColor{0.86, 0.62, 0.48}));
    EXPECT_EQ(colors({}).outer, (OrbColor{0.18, 0.52, 0.46}));
    EXPECT_EQ(colors({.inActiveHours = false}).warm, (OrbColor{0.70, 0.78, 0.88}));
    EXPECT_EQ(colors({.inActiveHours = false}).glow, (OrbColor{0.50, 0.58, 0.70}));
}

TEST(Palette, EveryRowHasItsFiveColours)
{
    auto const expect = [](OrbState const& state, OrbColor inner, OrbColor mid, OrbColor outer,
                            OrbColor glow, OrbColor warm) {
        Palette const palette = colors(state);
        EXPECT_EQ(palette.inner, inner);
        EXPECT_EQ(palette.mid, mid);
        EXPECT_EQ(palette.outer, outer);
        EXPECT_EQ(palette.glow, glow);
        EXPECT_EQ(palette.warm, warm);
    };
    expect({.paused = true}, {0.62, 0.66, 0.64}, {0.48, 0.54, 0.52}, {0.36, 0.42, 0.40},
        {0.70, 0.74, 0.72}, {0.78, 0.76, 0.70});
    expect({.isReminding = true}, {0.98, 0.90, 0.72}, {0.86, 0.62, 0.48}, {0.72, 0.42, 0.40},
        {1.00, 0.78, 0.55}, {1.00, 0.86, 0.62});
    expect({}, {0.90, 0.97, 0.90}, {0.42, 0.74, 0.58}, {0.18, 0.52, 0.46}, {0.55, 0.88, 0.70},
        {0.95, 0.86, 0.55});
    expect({.inActiveHours = false}, {0.55, 0.62, 0.70}, {0.38, 0.46, 0.56}, {0.26, 0.32, 0.42},
        {0.50, 0.58, 0.70}, {0.70, 0.78, 0.88});
}

TEST(OrbFrame, AnIdleOrbHasEveryLayerInItsPlace)
{
    OrbFrame const frame = orbFrame({.widgetSize = 200}, 10.5 * 5 + 4.5);
    double const phase = 0.32 * (10.5 * 5 + 4.5);
    EXPECT_EQ(frame.size, 200);
    EXPECT_NEAR(frame.glow.phase, phase + 0.4, 1e-9);
    EXPECT_EQ(frame.glow.opacity, 0.42);
    EXPECT_NEAR(frame.glow.blur, 14, 1e-12);
    EXPECT_NEAR(frame.glow.scale, 1.045 * 1.06, 1e-12);
    EXPECT_FALSE(frame.ripple);
    EXPECT_NEAR(frame.body.phase, phase, 1e-9);
    EXPECT_NEAR(frame.body.centerX, 72, 1e-12);
    EXPECT_NEAR(frame.body.centerY, 60, 1e-12);
    EXPECT_NEAR(frame.body.endRadius, 84, 1e-12);
    EXPECT_NEAR(frame.body.shadow.radius, 12, 1e-12);
    EXPECT_NEAR(frame.body.shadow.dy, 6, 1e-12);
    EXPECT_EQ(frame.body.shadow.opacity, 0.22);
    EXPECT_EQ(frame.rim.lineWidth, 0.8);
    EXPECT_EQ(frame.rim.opacity, 0.35);
    EXPECT_NEAR(frame.highlight.phase, phase + 0.55, 1e-9);
    EXPECT_NEAR(frame.highlight.scale, 1.045 * 0.38, 1e-12);
    EXPECT_NEAR(frame.highlight.dx, -16, 1e-12);
    EXPECT_NEAR(frame.highlight.dy, -20, 1e-12);
    EXPECT_NEAR(frame.highlight.blur, 8, 1e-12);
    EXPECT_EQ(frame.highlight.opacity, 0.34);
    EXPECT_FALSE(frame.caption);
    EXPECT_EQ(frame.opacity, 1);
}

TEST(OrbFrame, APausedOrbIsGreyAndDimButWobbles)
{
    OrbFrame const frame = orbFrame({.paused = true, .showWord = true}, 100);
    EXPECT_EQ(frame.glow.opacity, 0.18);
    EXPECT_EQ(frame.highlight.opacity, 0.12);
    EXPECT_EQ(frame.body.scale, 0.96);
    EXPECT_EQ(frame.body.phase, 32);
    EXPECT_EQ(frame.body.stops[0], (OrbColor{0.62, 0.66, 0.64}));
    EXPECT_EQ(presence(frame, CaptionWord::paused), 1);
}

TEST(OrbFrame, HalfwayThroughTheInBreathTheRingIsHalfway)
{
    OrbFrame const frame = orbFrame({.isReminding = true}, now);
    ASSERT_TRUE(frame.ripple);
    EXPECT_NEAR(frame.ripple->scale, 0.91, 1e-6);
    EXPECT_NEAR(frame.ripple->opacity, 0.275, 1e-6);
    EXPECT_EQ(frame.ripple->color, (OrbColor{1.00, 0.86, 0.62}));
    EXPECT_NEAR(frame.ripple->lineWidth, 2.048, 1e-12);
    EXPECT_EQ(frame.ripple->blur, 0.5);
    EXPECT_FALSE(orbFrame({.isReminding = true}, 800000004.6).ripple);
    EXPECT_FALSE(orbFrame({.isReminding = true, .reduceMotion = true}, now).ripple);
}

TEST(OrbFrame, SmallOrbsKeepReadableSizes)
{
    OrbState const state = {.isReminding = true, .showWord = true, .widgetSize = 60};
    OrbFrame const frame = orbFrame(state, now);
    EXPECT_EQ(frame.ripple->lineWidth, 2);
    EXPECT_EQ(frame.caption->wordFontSize, 11);
    EXPECT_EQ(frame.caption->statusFontSize, 8);
}

TEST(OrbFrame, TheWordSaysWhatTheOrbDoes)
{
    EXPECT_EQ(captionWord({.paused = true, .isReminding = true}), CaptionWord::velmora);
    EXPECT_EQ(captionWord({.paused = true, .inActiveHours = false}), CaptionWord::paused);
    EXPECT_EQ(captionWord({}), CaptionWord::relax);
    EXPECT_EQ(captionWord({.inActiveHours = false}), CaptionWord::resting);
}

TEST(OrbFrame, ThePointerBringsTheStatusLineExceptInAReminder)
{
    OrbFrame const away = orbFrame({.showWord = true, .widgetSize = 200}, now);
    EXPECT_EQ(away.caption->statusPresence, 0);
    EXPECT_EQ(away.caption->dy, 0);
    OrbFrame const over = orbFrame({.showChrome = true, .widgetSize = 200}, now);
    EXPECT_EQ(over.caption->statusPresence, 1);
    EXPECT_EQ(presence(over, CaptionWord::relax), 1);
    EXPECT_NEAR(over.caption->dy, -8, 1e-12);
    EXPECT_NEAR(over.caption->spacing, 4, 1e-12);
    EXPECT_NEAR(over.caption->wordFontSize, 22, 1e-12);
    EXPECT_NEAR(over.caption->statusFontSize, 13, 1e-12);
    OrbFrame const reminding = orbFrame({.isReminding = true, .showChrome = true}, now);
    EXPECT_EQ(reminding.caption->statusPresence, 0);
}

TEST(OrbFrame, DimmingAndPulseAreOneOpacityOfTheStack)
{
    OrbState state = {.inActiveHours = false, .reduceMotion = true};
    EXPECT_NEAR(orbFrame(state, 7.875).opacity, 0.78 * 0.9, 1e-12);
    EXPECT_EQ(orbFrame(state, 7.875).glow.opacity, 0.42);
    EXPECT_EQ(orbFrame(state, 7.875).body.phase, 0);
    state.paused = true;
    EXPECT_NEAR(orbFrame(state, 7.875).opacity, 0.9, 1e-12);
}

TEST(OrbFrame, TheSameInstantGivesTheSameFrame)
{
    OrbState const state = {.isReminding = true, .showWord = true};
    EXPECT_EQ(orbFrame(state, now), orbFrame(state, now));
}

} // namespace
} // namespace velmora
