#include "Velmora/services/LoginItem.h"

#include "tests/fakes/FakeLoginService.h"
#include "tests/fakes/FakeProcessRunner.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace velmora {
namespace {

namespace fs = std::filesystem;

using Commands = std::vector<FakeProcessRunner::Arguments>;

struct LoginItemTest : testing::Test {
    void installAgent()
    {
        fs::create_directories(agentFile.parent_path());
        std::ofstream(agentFile) << "an earlier agent";
    }

    TemporaryFolder home;
    FakeLoginService service;
    FakeProcessRunner runner;
    LoginItem item{
        service, runner, {.home = home.path(), .user = 501, .bundle = "/Applications/Velmora.app"}};
    fs::path agentFile = home.path() / "Library/LaunchAgents/com.local.velmora.plist";
    FakeProcessRunner::Arguments bootout{"bootout", "gui/501/com.local.velmora"};
    LoginItem::Status const nothingToTell;
    LoginItem::Status const allow{
        .note = "Allow Velmora in System Settings → General → Login Items."};
    LoginItem::Status const thisCopyOnly{.note = "Open at login is set for this copy of the app."};
    LoginItem::Status const failed{
        .note = "Couldn't turn on open at login. Move Velmora into Applications and try again."};
};

TEST_F(LoginItemTest, EnablingRegistersWithTheServiceAndHasNothingToTell)
{
    EXPECT_EQ(item.apply(true), nothingToTell);
    EXPECT_EQ(service.registrations, 1);
    EXPECT_TRUE(runner.commands.empty());
    EXPECT_TRUE(fs::is_empty(home.path()));
}

TEST_F(LoginItemTest, EnablingAProgramThatTheServiceDoesNotKnowRegistersIt)
{
    service.state = LoginService::Status::notFound;
    EXPECT_EQ(item.apply(true), nothingToTell);
    EXPECT_EQ(service.registrations, 1);
}

TEST_F(LoginItemTest, EnablingTwiceRegistersOnceAndRunsNoTool)
{
    EXPECT_EQ(item.apply(true), nothingToTell);
    EXPECT_EQ(item.apply(true), nothingToTell);
    EXPECT_EQ(service.registrations, 1);
    EXPECT_TRUE(runner.commands.empty());
}

TEST_F(LoginItemTest, EnablingTellsTheUserWhenApprovalIsPending)
{
    service.afterRegistering = LoginService::Status::requiresApproval;
    EXPECT_EQ(item.apply(true), allow);
}

TEST_F(LoginItemTest, EnablingLeavesAPendingRegistrationAlone)
{
    service.state = LoginService::Status::requiresApproval;
    EXPECT_EQ(item.apply(true), allow);
    EXPECT_EQ(service.registrations, 0);
}

TEST_F(LoginItemTest, EnablingRemovesAnEarlierAgent)
{
    installAgent();
    EXPECT_EQ(item.apply(true), nothingToTell);
    EXPECT_EQ(runner.commands, Commands{bootout});
    EXPECT_FALSE(fs::exists(agentFile));
}

TEST_F(LoginItemTest, EnablingWithApprovalPendingRemovesAnEarlierAgent)
{
    installAgent();
    service.state = LoginService::Status::requiresApproval;
    EXPECT_EQ(item.apply(true), allow);
    EXPECT_FALSE(fs::exists(agentFile));
}

TEST_F(LoginItemTest, ARefusalInstallsTheAgentForThisCopy)
{
    service.refusesToRegister = true;
    EXPECT_EQ(item.apply(true), thisCopyOnly);
    EXPECT_TRUE(fs::exists(agentFile));
    EXPECT_EQ(runner.commands, (Commands{bootout, {"bootstrap", "gui/501", agentFile.string()}}));
}

TEST_F(LoginItemTest, ARefusalWithAnAgentThatDoesNotLoadIsAFailure)
{
    service.refusesToRegister = true;
    runner.answer = [](auto const&) { return 1; };
    EXPECT_EQ(item.apply(true), failed);
}

TEST_F(LoginItemTest, ARefusalWithAToolThatCannotBeStartedIsAFailure)
{
    service.refusesToRegister = true;
    runner.answer = [](auto const&) { return std::nullopt; };
    EXPECT_EQ(item.apply(true), failed);
}

TEST_F(LoginItemTest, EveryEnablingTriesTheServiceAgainAndItsSuccessRemovesTheAgent)
{
    service.refusesToRegister = true;
    EXPECT_EQ(item.apply(true), thisCopyOnly);
    service.refusesToRegister = false;
    EXPECT_EQ(item.apply(true), nothingToTell);
    EXPECT_EQ(service.registrations, 2);
    EXPECT_FALSE(fs::exists(agentFile));
}

TEST_F(LoginItemTest, DisablingUnregisters)
{
    service.state = LoginService::Status::enabled;
    EXPECT_EQ(item.apply(false), nothingToTell);
    EXPECT_EQ(service.removals, 1);
}

TEST_F(LoginItemTest, DisablingUnregistersAPendingRegistrationToo)
{
    service.state = LoginService::Status::requiresApproval;
    EXPECT_EQ(item.apply(false), nothingToTell);
    EXPECT_EQ(service.removals, 1);
}

TEST_F(LoginItemTest, DisablingWhenNothingIsRegisteredChangesNothing)
{
    EXPECT_EQ(item.apply(false), nothingToTell);
    service.state = LoginService::Status::notFound;
    EXPECT_EQ(item.apply(false), nothingToTell);
    EXPECT_EQ(service.removals, 0);
    EXPECT_TRUE(runner.commands.empty());
    EXPECT_TRUE(fs::is_empty(home.path()));
}

TEST_F(LoginItemTest, DisablingThatTheServiceRefusesHasNothingToTell)
{
    service.state = LoginService::Status::enabled;
    service.refusesToUnregister = true;
    EXPECT_EQ(item.apply(false), nothingToTell);
}

TEST_F(LoginItemTest, DisablingAfterAnAgentUnloadsItAndDeletesItsFile)
{
    service.refusesToRegister = true;
    EXPECT_EQ(item.apply(true), thisCopyOnly);
    runner.commands.clear();
    EXPECT_EQ(item.apply(false), nothingToTell);
    EXPECT_EQ(runner.commands, Commands{bootout});
    EXPECT_FALSE(fs::exists(agentFile));
}

TEST_F(LoginItemTest, SpeaksTheWordsItWasGiven)
{
    service.refusesToRegister = true;
    LoginItem translated(service, runner, {.home = home.path()}, {.thisCopyOnly = "Nur hier."});
    EXPECT_EQ(translated.apply(true), LoginItem::Status{.note = "Nur hier."});
}

} // namespace
} // namespace velmora
