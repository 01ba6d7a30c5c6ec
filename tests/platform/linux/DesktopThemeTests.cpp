#include "Velmora/platform/linux/DesktopTheme.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <vector>

namespace velmora {
namespace {

TEST(DesktopTheme, GtksDesktopsAreKnownByAnyOfTheirNames)
{
    for (char const* desktops : {"XFCE", "GNOME", "ubuntu:GNOME", "pop:GNOME", "X-Cinnamon", "mate",
             "Budgie:GNOME", "LXDE"})
        EXPECT_TRUE(usesGtk(desktops)) << desktops;
}

TEST(DesktopTheme, OtherDesktopsKeepTheirLook)
{
    for (char const* desktops : {"", ":", "KDE", "LXQt", "i3", "sway:wlroots", "XFCE4", "GNO"})
        EXPECT_FALSE(usesGtk(desktops)) << desktops;
}

class LeavingGtkAlone : public testing::Test {
protected:
    LeavingGtkAlone()
    {
        qputenv("XDG_CURRENT_DESKTOP", "XFCE");
        qunsetenv("QT_QPA_PLATFORMTHEME");
        QGuiApplication::setDesktopSettingsAware(true);
    }

    /// Whether the toolkit follows the desktop's theme after a start with these arguments.
    static bool follows(std::vector<char const*> arguments = {"velmora"})
    {
        bool const leaves = leaveGtkAlone(arguments);
        bool const aware = QGuiApplication::desktopSettingsAware();
        EXPECT_NE(leaves, aware);
        return aware;
    }
};

TEST_F(LeavingGtkAlone, HappensOnGtksDesktopsOnly)
{
    EXPECT_FALSE(follows());
    QGuiApplication::setDesktopSettingsAware(true);
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    EXPECT_TRUE(follows());
}

TEST_F(LeavingGtkAlone, DoesNotHappenWhereAThemeWasChosen)
{
    EXPECT_TRUE(follows({"velmora", "-platformtheme", "gtk3"}));
    EXPECT_TRUE(follows({"velmora", "--platformtheme=gtk3"}));
    qputenv("QT_QPA_PLATFORMTHEME", "qt5ct");
    EXPECT_TRUE(follows());
}

} // namespace
} // namespace velmora
