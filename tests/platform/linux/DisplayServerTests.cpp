#include "Velmora/platform/linux/DisplayServer.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace velmora {
namespace {

/// A session without a display server and without a choice, whatever the test runs in.
class DisplayServer : public testing::Test {
protected:
    DisplayServer()
    {
        for (char const* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            unsetenv(name);
    }

    static DisplaySession read(std::vector<char const*> arguments = {"velmora"})
    {
        return displaySession(arguments);
    }
};

TEST_F(DisplayServer, TheSessionIsWhatTheEnvironmentSays)
{
    EXPECT_EQ(read(), DisplaySession{});
    setenv("DISPLAY", ":7", 1);
    setenv("WAYLAND_DISPLAY", "wayland-1", 1);
    EXPECT_EQ(read(), (DisplaySession{.x11 = ":7", .wayland = "wayland-1"}));
}

TEST_F(DisplayServer, TheUsersChoiceOfABackendIsSeenInTheVariableAndInTheOption)
{
    EXPECT_FALSE(read({"velmora", "--platform-like", "-p"}).backendChosen);
    EXPECT_TRUE(read({"velmora", "-platform", "offscreen"}).backendChosen);
    EXPECT_TRUE(read({"velmora", "--platform=offscreen"}).backendChosen);
    setenv("QT_QPA_PLATFORM", "wayland", 1);
    EXPECT_TRUE(read().backendChosen);
}

TEST_F(DisplayServer, X11ComesFirstInAWaylandSession)
{
    EXPECT_EQ(preferredBackend({.x11 = ":0"}), "xcb");
    EXPECT_EQ(preferredBackend({.x11 = ":0", .wayland = "wayland-0"}), "xcb;wayland");
    EXPECT_EQ(preferredBackend({.wayland = "wayland-0"}), "wayland");
    EXPECT_EQ(preferredBackend({.x11 = ":0", .backendChosen = true}), std::nullopt);
}

TEST_F(DisplayServer, ADisplayThatDoesNotAnswerIsNotReachable)
{
    TemporaryFolder const runtime;
    setenv("XDG_RUNTIME_DIR", runtime.path().c_str(), 1);
    EXPECT_FALSE(displayReachable({}));
    EXPECT_FALSE(displayReachable({.x11 = ":9173"}));
    EXPECT_FALSE(displayReachable({.x11 = "nonsense"}));
    EXPECT_FALSE(displayReachable({.wayland = "wayland-9"}));
    EXPECT_FALSE(displayReachable({.wayland = std::string(200, 'w')}));
    EXPECT_FALSE(displayReachable({.x11 = ":9173", .wayland = "wayland-9"}));
}

TEST_F(DisplayServer, AChosenBackendIsLeftToTheToolkitToJudge)
{
    EXPECT_TRUE(displayReachable({.backendChosen = true}));
}

TEST_F(DisplayServer, AWaylandSocketThatListensIsReachableByNameAndByPath)
{
    TemporaryFolder const runtime;
    setenv("XDG_RUNTIME_DIR", runtime.path().c_str(), 1);
    auto const path = (runtime.path() / "wayland-5").string();
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof(address.sun_path));
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    int const server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(bind(server, reinterpret_cast<sockaddr const*>(&address), sizeof(address)), 0);
    EXPECT_FALSE(displayReachable({.wayland = "wayland-5"})) << "nobody listens yet";
    ASSERT_EQ(listen(server, 4), 0);
    EXPECT_TRUE(displayReachable({.wayland = "wayland-5"}));
    EXPECT_TRUE(displayReachable({.x11 = ":9173", .wayland = path}));
    close(server);
}

TEST_F(DisplayServer, TheWishForABackendEndsWithItsObject)
{
    {
        BackendWish const wish("xcb;wayland");
        EXPECT_STREQ(std::getenv("QT_QPA_PLATFORM"), "xcb;wayland");
    }
    EXPECT_EQ(std::getenv("QT_QPA_PLATFORM"), nullptr);

    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    {
        BackendWish const none(std::nullopt);
    }
    EXPECT_STREQ(std::getenv("QT_QPA_PLATFORM"), "offscreen");
}

} // namespace
} // namespace velmora
