#include "Velmora/services/SingleInstance.h"

#include "Velmora/platform/Peers.h"
#include "tests/fakes/FakeStandardError.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

/// Keeps what was asked of the other copies, in order.
class FakePeers final : public Peers {
public:
    [[nodiscard]] bool anyRuns() override { return listed; }
    void post(FocusRequest const& request) override
    {
        calls.emplace_back("post");
        posted.push_back(request);
    }
    void settle() override { calls.emplace_back("settle"); }
    void activateFirst() override { calls.emplace_back("activate"); }

    bool listed = false;
    std::vector<std::string> calls;
    std::vector<FocusRequest> posted;
};

class SingleInstanceTest : public testing::Test {
protected:
    std::shared_ptr<InstanceLock> claim(FocusRequest const& request = {})
    {
        return SingleInstance(peers, standardError, std::chrono::milliseconds(0))
            .claim(home.path(), request);
    }

    [[nodiscard]] bool lockFileExists() const
    {
        return exists(home.path() / "Library/Application Support/Velmora/instance.lock");
    }

    TemporaryFolder home;
    FakePeers peers;
    FakeStandardError standardError;
    static constexpr auto message = "Velmora: already running — bringing it forward.\n";
};

TEST_F(SingleInstanceTest, TheFirstCopyTakesTheLockAndSaysNothing)
{
    EXPECT_TRUE(claim());
    EXPECT_TRUE(lockFileExists());
    EXPECT_TRUE(peers.calls.empty());
    EXPECT_EQ(standardError.text, "");
}

TEST_F(SingleInstanceTest, ACopyOnTheSystemsListIsAskedThreeTimesAndThenActivated)
{
    peers.listed = true;
    EXPECT_FALSE(claim());
    EXPECT_EQ(
        peers.calls, (std::vector<std::string>{"post", "post", "post", "settle", "activate"}));
    EXPECT_EQ(standardError.text, message);
}

TEST_F(SingleInstanceTest, ACopyOnTheSystemsListKeepsTheLockUntouched)
{
    peers.listed = true;
    EXPECT_FALSE(claim());
    EXPECT_FALSE(lockFileExists());
}

TEST_F(SingleInstanceTest, ACopyThatOnlyTheLockTellsOfIsAskedButNotActivated)
{
    auto const first = InstanceLock::acquire(home.path());
    ASSERT_TRUE(first);
    EXPECT_FALSE(claim());
    EXPECT_EQ(peers.calls, (std::vector<std::string>{"post", "post", "post", "settle"}));
    EXPECT_EQ(standardError.text, message);
}

TEST_F(SingleInstanceTest, ACopyWhoseLockCannotBeTakenGivesWayToo)
{
    EXPECT_FALSE(SingleInstance(peers, standardError, std::chrono::milliseconds(0)).claim("", {}));
    EXPECT_EQ(standardError.text, message);
}

TEST_F(SingleInstanceTest, EveryPostCarriesTheWholeRequest)
{
    peers.listed = true;
    FocusRequest const request = {.settings = true, .preview = true};
    claim(request);
    EXPECT_EQ(peers.posted, (std::vector<FocusRequest>{request, request, request}));
}

TEST_F(SingleInstanceTest, EachPostIsFollowedByItsPause)
{
    peers.listed = true;
    constexpr std::chrono::milliseconds pause(5);
    auto const before = std::chrono::steady_clock::now();
    EXPECT_FALSE(SingleInstance(peers, standardError, pause).claim(home.path(), {}));
    EXPECT_GE(std::chrono::steady_clock::now() - before, 3 * pause);
}

} // namespace
} // namespace velmora
