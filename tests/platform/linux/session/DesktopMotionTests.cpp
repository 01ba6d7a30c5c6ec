#include "Velmora/platform/linux/session/DesktopMotion.h"
#include "Velmora/platform/linux/session/XsettingsDocument.h"

#include "tests/fakes/TemporaryFolder.h"
#include "tests/platform/linux/session/Eventually.h"
#include "tests/platform/linux/session/FakePortal.h"
#include "tests/platform/linux/session/PrivateBus.h"
#include "tests/platform/linux/session/PrivateDisplay.h"
#include "tests/platform/linux/session/XsettingsSample.h"

#include <gtest/gtest.h>

#include <fstream>
#include <span>

namespace velmora {
namespace {

constexpr auto animations = "Gtk/EnableAnimations";

TEST(Xsettings, FindsANumberAmongSettingsOfEveryKind)
{
    for (bool const bigEndian : {false, true}) {
        auto const bytes = XsettingsSample(bigEndian)
                               .text("Net/ThemeName", "Adwaita")
                               .colour("Some/Colour")
                               .integer("Xft/DPI", 98304)
                               .integer(animations, 0)
                               .integer("Xft/Hinting", -1)
                               .bytes();
        EXPECT_EQ(xsettingsInteger(bytes, animations), 0);
        EXPECT_EQ(xsettingsInteger(bytes, "Xft/DPI"), 98304);
        EXPECT_EQ(xsettingsInteger(bytes, "Xft/Hinting"), -1);
        EXPECT_EQ(xsettingsInteger(bytes, "Xft/Missing"), std::nullopt);
        EXPECT_EQ(xsettingsInteger(bytes, "Net/ThemeName"), std::nullopt);
    }
}

TEST(Xsettings, WhatIsCutShortOrNonsenseHasNoSettings)
{
    auto const bytes = XsettingsSample().text("a", "b").integer(animations, 0).bytes();
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_EQ(xsettingsInteger(std::span(bytes).first(length), animations), std::nullopt);
    EXPECT_EQ(xsettingsInteger(std::vector<unsigned char>(4096, 0xFF), animations), std::nullopt);
}

TEST(KdeSettings, AFactorOfNothingSwitchesAnimationsOff)
{
    EXPECT_TRUE(kdeAnimationsOff(QStringLiteral("[KDE]\nAnimationDurationFactor=0\n")));
    EXPECT_TRUE(
        kdeAnimationsOff(QStringLiteral("[A]\nx=1\n[KDE]\n AnimationDurationFactor = 0.0 ")));
    EXPECT_FALSE(kdeAnimationsOff(QStringLiteral("[KDE]\nAnimationDurationFactor=0.5\n")));
    EXPECT_FALSE(kdeAnimationsOff(QStringLiteral("[KDE]\nAnimationDurationFactor=\n")));
    EXPECT_FALSE(kdeAnimationsOff(QStringLiteral("[Other]\nAnimationDurationFactor=0\n")));
    EXPECT_FALSE(kdeAnimationsOff(QStringLiteral("[KDE]\nAnimationDurationFactor\n")));
    EXPECT_FALSE(kdeAnimationsOff(QString()));
}

struct DesktopMotionTest : testing::Test {
    static void SetUpTestSuite() { display = new PrivateDisplay; }
    static void TearDownTestSuite()
    {
        delete display;
        display = nullptr;
    }

    void writeKde(std::string const& text) const
    {
        // The way KDE saves it: whole, by renaming.
        std::ofstream(kdeFile + ".new") << text;
        std::filesystem::rename(kdeFile + ".new", kdeFile);
    }

    static PrivateDisplay* display;
    PrivateBus bus;
    X11Watch x11{display->name()};
    TemporaryFolder folder;
    std::string kdeFile = (folder.path() / "kdeglobals").string();
};

PrivateDisplay* DesktopMotionTest::display = nullptr;

TEST_F(DesktopMotionTest, IsNotReducedWhereNobodyAsksForIt)
{
    EXPECT_FALSE(DesktopMotion(bus.connect(), x11).reduceMotion());
    X11Watch nowhere(":nonexistent");
    EXPECT_FALSE(DesktopMotion(noBus(), nowhere).reduceMotion());
}

TEST_F(DesktopMotionTest, HearsThePortalsWishForReducedMotion)
{
    FakePortal portal(bus.connect());
    portal.settings[{"org.freedesktop.appearance", "reduced-motion"}] = 1U;
    DesktopMotion const motion(bus.connect(), x11);
    EXPECT_TRUE(eventually([&] { return motion.reduceMotion(); }));
    portal.change("org.freedesktop.appearance", "reduced-motion", 0U);
    EXPECT_TRUE(eventually([&] { return !motion.reduceMotion(); }));
}

TEST_F(DesktopMotionTest, HearsThatThePortalHasAnimationsSwitchedOff)
{
    FakePortal portal(bus.connect());
    portal.settings[{"org.gnome.desktop.interface", "enable-animations"}] = false;
    DesktopMotion const motion(bus.connect(), x11);
    EXPECT_TRUE(eventually([&] { return motion.reduceMotion(); }));
    portal.change("org.gnome.desktop.interface", "enable-animations", true);
    EXPECT_TRUE(eventually([&] { return !motion.reduceMotion(); }));
}

TEST_F(DesktopMotionTest, AsksAPortalThatComesLate)
{
    DesktopMotion const motion(bus.connect(), x11);
    FakePortal portal(bus.connect());
    EXPECT_FALSE(motion.reduceMotion());
    portal.settings[{"org.freedesktop.appearance", "reduced-motion"}] = 1U;
    EXPECT_TRUE(eventually([&] { return motion.reduceMotion(); }));
}

TEST_F(DesktopMotionTest, ValuesOfAnotherTypeAreNoWish)
{
    FakePortal portal(bus.connect());
    portal.settings[{"org.gnome.desktop.interface", "enable-animations"}] = QStringLiteral("no");
    portal.settings[{"org.freedesktop.appearance", "reduced-motion"}] = QStringLiteral("yes");
    DesktopMotion const motion(bus.connect(), x11);
    EXPECT_TRUE(eventually([&] { return portal.asked >= 2; }));
    portal.change("org.freedesktop.appearance", "color-scheme", 1U);
    EXPECT_FALSE(motion.reduceMotion());
    // Only 1 is defined; the portal's own words for the rest are "no preference".
    portal.change("org.freedesktop.appearance", "reduced-motion", 2U);
    portal.change("org.gnome.desktop.interface", "enable-animations", false);
    ASSERT_TRUE(eventually([&] { return motion.reduceMotion(); }));
    portal.change("org.gnome.desktop.interface", "enable-animations", true);
    EXPECT_TRUE(eventually([&] { return !motion.reduceMotion(); }));
}

TEST_F(DesktopMotionTest, FollowsTheXSettings)
{
    DesktopMotion const motion(bus.connect(), x11);
    std::vector<bool> changes;
    QObject::connect(&motion, &DesktopMotion::reduceMotionChanged, &motion,
        [&](bool reduce) { changes.push_back(reduce); });
    {
        RoleOwner daemon(display->name(), "_XSETTINGS_S0");
        daemon.setProperty("_XSETTINGS_SETTINGS", XsettingsSample().integer(animations, 0).bytes());
        EXPECT_TRUE(eventually([&] { return motion.reduceMotion(); }));
        daemon.setProperty("_XSETTINGS_SETTINGS", XsettingsSample().integer(animations, 1).bytes());
        EXPECT_TRUE(eventually([&] { return !motion.reduceMotion(); }));
        daemon.setProperty("_XSETTINGS_SETTINGS", XsettingsSample().integer(animations, 0).bytes());
        EXPECT_TRUE(eventually([&] { return motion.reduceMotion(); }));
    }
    EXPECT_TRUE(eventually([&] { return !motion.reduceMotion(); }));
    EXPECT_EQ(changes, (std::vector<bool>{true, false, true, false}));
}

TEST_F(DesktopMotionTest, KnowsXSettingsThatWereThereBefore)
{
    RoleOwner daemon(display->name(), "_XSETTINGS_S0");
    daemon.setProperty("_XSETTINGS_SETTINGS", XsettingsSample().integer(animations, 0).bytes());
    EXPECT_TRUE(eventually([&] { return DesktopMotion(noBus(), x11).reduceMotion(); }));
}

TEST_F(DesktopMotionTest, FollowsKdesSettingsFile)
{
    writeKde("[KDE]\nAnimationDurationFactor=0\n");
    DesktopMotion const motion(noBus(), x11, QString::fromStdString(kdeFile));
    EXPECT_TRUE(motion.reduceMotion());
    writeKde("[KDE]\nAnimationDurationFactor=1\n");
    EXPECT_TRUE(eventually([&] { return !motion.reduceMotion(); }));
    writeKde("[KDE]\nAnimationDurationFactor=0\n");
    EXPECT_TRUE(eventually([&] { return motion.reduceMotion(); }));
    std::filesystem::remove(kdeFile);
    EXPECT_TRUE(eventually([&] { return !motion.reduceMotion(); }));
}

} // namespace
} // namespace velmora
