#include "Velmora/platform/posix/SpawnedProcess.h"
#include "Velmora/services/LoginItem.h"

#include "tests/fakes/FakeLoginService.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <fstream>
#include <iterator>

#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

struct SpawnedProcessTest : testing::Test {
    /// A program that notes each of its arguments on a line of its own in `log` and exits with
    /// `status`.
    [[nodiscard]] fs::path tool(int status) const
    {
        auto const file = folder.path() / "a tool";
        std::ofstream(file) << "#!/bin/sh\n"
                            << "printf '<%s>' \"$@\" >> '" << log.string() << "'\n"
                            << "echo >> '" << log.string() << "'\n"
                            << "echo out; echo error >&2\n"
                            << "exit " << status << "\n";
        fs::permissions(file, fs::perms::owner_all);
        return file;
    }

    [[nodiscard]] std::string logged() const
    {
        std::ifstream stream(log);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    TemporaryFolder folder;
    fs::path log = folder.path() / "log";
    SpawnedProcess runner;
};

TEST_F(SpawnedProcessTest, GivesTheArgumentsAsTheyAreAndTheExitStatus)
{
    std::array<std::string, 4> const arguments{"", "a b", "$HOME `id` \"'", "*"};
    EXPECT_EQ(runner.run(tool(7), arguments), 7);
    EXPECT_EQ(logged(), "<><a b><$HOME `id` \"'><*>\n");
}

TEST_F(SpawnedProcessTest, OutputAndErrorGoNowhere)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(runner.run(tool(0), {}), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(SpawnedProcessTest, AProgramThatIsMissingOrNotExecutableCannotBeStarted)
{
    EXPECT_EQ(runner.run(folder.path() / "missing", {}), std::nullopt);
    std::ofstream(folder.path() / "plain") << "text";
    EXPECT_EQ(runner.run(folder.path() / "plain", {}), std::nullopt);
}

TEST_F(SpawnedProcessTest, AProgramEndedByASignalAnswersItsNumber)
{
    std::array<std::string, 2> const arguments{"-c", "kill -9 $$"};
    EXPECT_EQ(runner.run("/bin/sh", arguments), SIGKILL);
}

TEST_F(SpawnedProcessTest, AProgramStartsWithNoSignalBlockedOrIgnored)
{
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, &before);
    auto* const handler = std::signal(SIGPIPE, SIG_IGN);
    std::array<std::string, 2> const arguments{
        "-c", "grep -q 'SigBlk:.0000000000000000' /proc/self/status && kill -PIPE $$"};
    EXPECT_EQ(runner.run("/bin/sh", arguments), SIGPIPE);
    std::signal(SIGPIPE, handler);
    sigprocmask(SIG_SETMASK, &before, nullptr);
}

TEST_F(SpawnedProcessTest, ALoginItemLoadsItsAgentThroughARealTool)
{
    FakeLoginService service;
    service.refusesToRegister = true;
    LoginItem item(service, runner,
        {.home = folder.path(),
            .user = 501,
            .bundle = "/Applications/Velmora.app",
            .tool = tool(0)});
    EXPECT_EQ(item.apply(true).note, LoginPhrases().thisCopyOnly);
    auto const agent = folder.path() / "Library/LaunchAgents/com.local.velmora.plist";
    EXPECT_TRUE(fs::exists(agent));
    EXPECT_EQ(item.apply(false).note, std::nullopt);
    EXPECT_FALSE(fs::exists(agent));
    EXPECT_EQ(logged(),
        "<bootout><gui/501/com.local.velmora>\n"
        "<bootstrap><gui/501><"
            + agent.string()
            + ">\n"
              "<bootout><gui/501/com.local.velmora>\n");
}

TEST_F(SpawnedProcessTest, ALoginItemFailsWithARealToolThatFailsOrIsMissing)
{
    FakeLoginService service;
    service.refusesToRegister = true;
    for (auto const& launchctl : {tool(1), folder.path() / "missing"}) {
        LoginItem item(service, runner, {.home = folder.path(), .tool = launchctl});
        EXPECT_EQ(item.apply(true).note, LoginPhrases().failed);
    }
}

} // namespace
} // namespace velmora
