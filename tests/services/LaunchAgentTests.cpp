#include "Velmora/services/LaunchAgent.h"
#include "Velmora/services/XmlText.h"

#include "tests/fakes/FakeProcessRunner.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace velmora {
namespace {

namespace fs = std::filesystem;

using Commands = std::vector<FakeProcessRunner::Arguments>;

struct LaunchAgentTest : testing::Test {
    LaunchAgent agent(fs::path const& bundle = "/Applications/Velmora.app")
    {
        return {runner, {.home = home.path(), .user = 501, .bundle = bundle}};
    }

    [[nodiscard]] std::string written() const
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    TemporaryFolder home;
    FakeProcessRunner runner;
    fs::path file = home.path() / "Library/LaunchAgents/com.local.velmora.plist";
    FakeProcessRunner::Arguments bootout{"bootout", "gui/501/com.local.velmora"};
    FakeProcessRunner::Arguments bootstrap{"bootstrap", "gui/501", file.string()};
};

TEST_F(LaunchAgentTest, InstallingWritesAPropertyListOfExactlyFourEntries)
{
    EXPECT_TRUE(agent().install());
    EXPECT_EQ(written(),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
        "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
        "<plist version=\"1.0\">\n"
        "<dict>\n"
        "\t<key>Label</key>\n"
        "\t<string>com.local.velmora</string>\n"
        "\t<key>LimitLoadToSessionType</key>\n"
        "\t<string>Aqua</string>\n"
        "\t<key>ProgramArguments</key>\n"
        "\t<array>\n"
        "\t\t<string>/usr/bin/open</string>\n"
        "\t\t<string>-a</string>\n"
        "\t\t<string>/Applications/Velmora.app</string>\n"
        "\t</array>\n"
        "\t<key>RunAtLoad</key>\n"
        "\t<true/>\n"
        "</dict>\n"
        "</plist>\n");
}

TEST_F(LaunchAgentTest, InstallingUnloadsAnOldAgentAndLoadsTheNewOne)
{
    EXPECT_TRUE(agent().install());
    EXPECT_EQ(runner.commands, (Commands{bootout, bootstrap}));
    EXPECT_EQ(runner.executables, (std::vector<fs::path>{"/bin/launchctl", "/bin/launchctl"}));
}

TEST_F(LaunchAgentTest, TheFileIsThereBeforeTheToolRuns)
{
    runner.answer = [this](auto const&) { return fs::exists(file) ? 0 : 3; };
    EXPECT_TRUE(agent().install());
}

TEST_F(LaunchAgentTest, AnUnloadThatFailsDoesNotMatter)
{
    runner.answer = [this](auto const& arguments) { return arguments == bootout ? 113 : 0; };
    EXPECT_TRUE(agent().install());
}

TEST_F(LaunchAgentTest, ALoadThatFailsIsARefusalAndLeavesTheFile)
{
    runner.answer = [this](auto const& arguments) { return arguments == bootstrap ? 5 : 0; };
    EXPECT_FALSE(agent().install());
    EXPECT_TRUE(fs::exists(file));
}

TEST_F(LaunchAgentTest, AToolThatCannotBeStartedIsARefusal)
{
    runner.answer = [](auto const&) { return std::nullopt; };
    EXPECT_FALSE(agent().install());
    EXPECT_EQ(runner.commands.size(), 2U);
}

TEST_F(LaunchAgentTest, AnExistingFileIsReplaced)
{
    fs::create_directories(file.parent_path());
    std::ofstream(file) << std::string(5000, 'x');
    EXPECT_TRUE(agent().install());
    EXPECT_EQ(written().find('x'), written().find("xml"));
}

TEST_F(LaunchAgentTest, AFolderThatCannotBeMadeIsARefusalAndNoToolRuns)
{
    std::ofstream(home.path() / "Library") << "a file in the way";
    EXPECT_FALSE(agent().install());
    EXPECT_TRUE(runner.commands.empty());
}

TEST_F(LaunchAgentTest, AFileThatCannotBeReplacedIsARefusalAndNoToolRuns)
{
    fs::create_directories(file / "in the way");
    EXPECT_FALSE(agent().install());
    EXPECT_TRUE(runner.commands.empty());
}

TEST_F(LaunchAgentTest, ABundlePathThatXmlCannotCarryIsARefusal)
{
    EXPECT_FALSE(agent("/Applications/\x01.app").install());
    EXPECT_FALSE(agent("/Applications/\xFF.app").install());
    EXPECT_TRUE(runner.commands.empty());
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(LaunchAgentTest, RemovingUnloadsTheAgentAndDeletesItsFile)
{
    EXPECT_TRUE(agent().install());
    runner.commands.clear();
    runner.answer = [](auto const&) { return 9; };
    agent().remove();
    EXPECT_EQ(runner.commands, Commands{bootout});
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(LaunchAgentTest, RemovingWithoutAFileRunsNothing)
{
    agent().remove();
    EXPECT_TRUE(runner.commands.empty());
    EXPECT_TRUE(fs::is_empty(home.path()));
}

TEST_F(LaunchAgentTest, AFileThatCannotBeDeletedIsNoError)
{
    fs::create_directories(file / "in the way");
    agent().remove();
    EXPECT_EQ(runner.commands, Commands{bootout});
}

TEST(XmlText, EscapesWhatMarkupIsMadeOf)
{
    EXPECT_EQ(xmlText("a<b>&c]]>\"'"), "a&lt;b&gt;&amp;c]]&gt;\"'");
}

TEST(XmlText, KeepsWhiteSpaceThatAReaderWouldChange)
{
    EXPECT_EQ(xmlText(" a\tb\nc\rd "), " a\tb\nc&#13;d ");
}

TEST(XmlText, KeepsEveryKindOfCharacter)
{
    EXPECT_EQ(xmlText("é→🫁"), "é→🫁");
    EXPECT_EQ(xmlText("\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD\xF4\x8F\xBF\xBF"),
        "\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD\xF4\x8F\xBF\xBF");
    EXPECT_EQ(xmlText(""), "");
}

TEST(XmlText, RefusesWhatXmlCannotCarry)
{
    EXPECT_EQ(xmlText("a\x1B"), std::nullopt);
    EXPECT_EQ(xmlText(std::string_view("\0", 1)), std::nullopt);
    EXPECT_EQ(xmlText("\xEF\xBF\xBE"), std::nullopt);
    EXPECT_EQ(xmlText("\xEF\xBF\xBF"), std::nullopt);
}

TEST(XmlText, RefusesBytesThatAreNotUtf8)
{
    EXPECT_EQ(xmlText("\x80"), std::nullopt);
    EXPECT_EQ(xmlText("\xC3"), std::nullopt);
    EXPECT_EQ(xmlText("\xC0\xAF"), std::nullopt);
    EXPECT_EQ(xmlText("\xE0\x80\xAF"), std::nullopt);
    EXPECT_EQ(xmlText("\xED\xA0\x80"), std::nullopt);
    EXPECT_EQ(xmlText("\xF0\x80\x80\xAF"), std::nullopt);
    EXPECT_EQ(xmlText("\xF4\x90\x80\x80"), std::nullopt);
    EXPECT_EQ(xmlText("\xC3x"), std::nullopt);
    EXPECT_EQ(xmlText("\xFF\xFE"), std::nullopt);
}

} // namespace
} // namespace velmora
