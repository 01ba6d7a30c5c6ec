#include "Velmora/platform/linux/session/DesktopEntry.h"
#include "Velmora/platform/linux/session/XdgAutostart.h"

#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;
using Status = LoginService::Status;

struct XdgAutostartTest : testing::Test {
    [[nodiscard]] std::string written() const
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    void put(std::string const& text) const
    {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << text;
    }

    [[nodiscard]] std::string value(char const* key) const
    {
        return DesktopEntry(written()).value(key).value_or("absent");
    }

    TemporaryFolder config;
    fs::path file = config.path() / "autostart/com.local.velmora.desktop";
    XdgAutostart autostart{config.path(), "/usr/bin/velmora"};
};

TEST_F(XdgAutostartTest, IsNotRegisteredWithoutAnEntry)
{
    EXPECT_EQ(autostart.status(), Status::notRegistered);
    EXPECT_TRUE(fs::is_empty(config.path()));
}

TEST_F(XdgAutostartTest, RegisteringWritesTheEntry)
{
    EXPECT_TRUE(autostart.registerProgram());
    EXPECT_EQ(written(),
        "[Desktop Entry]\n"
        "Type=Application\n"
        "Name=Velmora\n"
        "Comment=A breathing reminder for the desktop\n"
        "Icon=com.local.velmora\n"
        "Terminal=false\n"
        "StartupNotify=false\n"
        "X-GNOME-Autostart-enabled=true\n"
        "Exec=\"/usr/bin/velmora\"\n"
        "TryExec=/usr/bin/velmora\n");
    EXPECT_EQ(autostart.status(), Status::enabled);
}

TEST_F(XdgAutostartTest, UnregisteringRemovesTheEntryAndCanBeRepeated)
{
    EXPECT_TRUE(autostart.registerProgram());
    EXPECT_TRUE(autostart.unregisterProgram());
    EXPECT_FALSE(fs::exists(file));
    EXPECT_EQ(autostart.status(), Status::notRegistered);
    EXPECT_TRUE(autostart.unregisterProgram());
}

TEST_F(XdgAutostartTest, AHiddenEntryRequiresApprovalAndStaysHidden)
{
    EXPECT_TRUE(autostart.registerProgram());
    put(written() + "Hidden=true\n");
    auto const before = written();
    EXPECT_EQ(autostart.status(), Status::requiresApproval);
    EXPECT_EQ(written(), before);
}

TEST_F(XdgAutostartTest, AnEntryThatGnomeSwitchedOffRequiresApproval)
{
    EXPECT_TRUE(autostart.registerProgram());
    DesktopEntry entry(written());
    entry.set("X-GNOME-Autostart-enabled", "false");
    put(entry.text());
    EXPECT_EQ(autostart.status(), Status::requiresApproval);
}

TEST_F(XdgAutostartTest, AnEntryThatWasSwitchedOnAgainIsEnabled)
{
    EXPECT_TRUE(autostart.registerProgram());
    put(written() + "Hidden=false\n");
    EXPECT_EQ(autostart.status(), Status::enabled);
}

TEST_F(XdgAutostartTest, AProgramThatMovedIsFollowedAndTheRestOfTheEntryIsKept)
{
    put("# mine\n[Desktop Entry]\nName=Velmora\nExec=\"/old/velmora\"\nX-Delay=5\n"
        "[Other]\nExec=x\n");
    EXPECT_EQ(autostart.status(), Status::enabled);
    EXPECT_EQ(written(),
        "# mine\n[Desktop Entry]\nName=Velmora\nExec=\"/usr/bin/velmora\"\nX-Delay=5\n"
        "TryExec=/usr/bin/velmora\n[Other]\nExec=x\n");
}

TEST_F(XdgAutostartTest, AProgramThatMovedIsFollowedWhileSwitchedOff)
{
    put("[Desktop Entry]\nExec=\"/old/velmora\"\nHidden=true\n");
    EXPECT_EQ(autostart.status(), Status::requiresApproval);
    EXPECT_EQ(value("Exec"), "\"/usr/bin/velmora\"");
    EXPECT_EQ(value("Hidden"), "true");
}

TEST_F(XdgAutostartTest, AFolderThatCannotBeMadeRefusesRegistration)
{
    std::ofstream(config.path() / "autostart") << "a file in the way";
    EXPECT_FALSE(autostart.registerProgram());
    EXPECT_EQ(autostart.status(), Status::notRegistered);
}

TEST_F(XdgAutostartTest, AnEntryThatIsAFolderIsNeitherReadNorReplacedNorRemoved)
{
    fs::create_directories(file / "inside");
    EXPECT_EQ(autostart.status(), Status::notRegistered);
    EXPECT_FALSE(autostart.registerProgram());
    EXPECT_FALSE(autostart.unregisterProgram());
}

TEST_F(XdgAutostartTest, AFolderThatCannotBeWrittenRefusesRegistration)
{
    // Root may write everywhere but in a place that is no real file system.
    EXPECT_FALSE(XdgAutostart("/proc/self", "/usr/bin/velmora").registerProgram());
    EXPECT_FALSE(XdgAutostart("", "/usr/bin/velmora").registerProgram());
}

TEST_F(XdgAutostartTest, APathThatNoEntryCanNameRefusesRegistration)
{
    EXPECT_FALSE(XdgAutostart(config.path(), "/opt/\xFF/velmora").registerProgram());
    EXPECT_TRUE(fs::is_empty(config.path()));
}

TEST_F(XdgAutostartTest, AnEntryOfAnyContentIsNoHarm)
{
    for (auto const* const text :
        {"", "\n\n", "=", "[", "no group\nExec=x\n", "[Desktop Entry]", "\xFF\xFE\x01"}) {
        put(text);
        EXPECT_EQ(autostart.status(), Status::enabled) << text;
        EXPECT_EQ(value("Exec"), "\"/usr/bin/velmora\"") << text;
    }
}

TEST(DesktopEntry, QuotesAnyPathForExec)
{
    EXPECT_EQ(desktopEntryExec("/a b"), R"("/a b")");
    EXPECT_EQ(desktopEntryExec(R"(/a"b)"), R"("/a\\"b")");
    EXPECT_EQ(desktopEntryExec("/a`b$c"), R"("/a\\`b\\$c")");
    EXPECT_EQ(desktopEntryExec(R"(/a\b)"), R"("/a\\\\b")");
    EXPECT_EQ(desktopEntryExec("/a\nb\tc"), R"("/a\nb\tc")");
    EXPECT_EQ(desktopEntryExec("/é'~<>|&;*?#()"), "\"/é'~<>|&;*?#()\"");
}

TEST(DesktopEntry, HandsAProgramWithAnEqualsOrPercentSignInItsPathToAShellAsAnArgument)
{
    EXPECT_EQ(desktopEntryExec("/50%"), R"(/bin/sh -c "exec \\"\\$0\\"" "/50%%")");
    EXPECT_EQ(desktopEntryExec("/a=b"), R"(/bin/sh -c "exec \\"\\$0\\"" "/a=b")");
}

TEST(DesktopEntry, EscapesStringsWhereAReaderWouldTrimOrUnescape)
{
    EXPECT_EQ(desktopEntryString("/a b\\c"), R"(/a b\\c)");
    EXPECT_EQ(desktopEntryString(" a "), R"(\sa\s)");
    EXPECT_EQ(desktopEntryString("\n\r\t"), R"(\n\r\t)");
}

TEST(DesktopEntry, TheLastOfTwoValuesCounts)
{
    EXPECT_EQ(
        DesktopEntry("[Desktop Entry]\nHidden=false\n Hidden = true \n").value("Hidden"), "true");
}

TEST(DesktopEntry, KeysOfOtherGroupsAndCommentsDoNotCount)
{
    DesktopEntry const entry(
        "Hidden=1\n[Other]\nHidden=2\n[Desktop Entry]\n#Hidden=3\nHidden[de]=4\n");
    EXPECT_EQ(entry.value("Hidden"), std::nullopt);
}

} // namespace
} // namespace velmora
