#include "Velmora/platform/linux/session/TrayHost.h"

#include "tests/platform/linux/session/Eventually.h"
#include "tests/platform/linux/session/FakeNotifierWatcher.h"
#include "tests/platform/linux/session/PrivateBus.h"
#include "tests/platform/linux/session/PrivateDisplay.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <vector>

namespace velmora {
namespace {

using namespace std::chrono_literals;

constexpr auto tray = "_NET_SYSTEM_TRAY_S0";

struct TrayHostTest : testing::Test {
    static void SetUpTestSuite() { display = new PrivateDisplay; }
    static void TearDownTestSuite()
    {
        delete display;
        display = nullptr;
    }

    static PrivateDisplay* display;
    PrivateBus bus;
    QDBusConnection desktop = bus.connect();
    X11Watch x11{display->name()};
};

PrivateDisplay* TrayHostTest::display = nullptr;

TEST_F(TrayHostTest, IsNotThereWithoutAnyTray)
{
    TrayHost const host(bus.connect(), x11, 0ms);
    FakeNotifierWatcher watcher(desktop, false);
    EXPECT_FALSE(host.available());
    watcher.setHost(true);
    EXPECT_TRUE(eventually([&] { return host.available(); }));
}

TEST_F(TrayHostTest, ANotifierHostIsReportedAtOnce)
{
    FakeNotifierWatcher const watcher(desktop, true);
    TrayHost const host(bus.connect(), x11, 1h);
    EXPECT_TRUE(eventually([&] { return host.available(); }));
}

TEST_F(TrayHostTest, FollowsNotifierHostsThatComeAndGo)
{
    TrayHost const host(bus.connect(), x11, 1h);
    std::vector<bool> changes;
    QObject::connect(&host, &TrayHost::availableChanged, &host,
        [&](bool available) { changes.push_back(available); });
    std::optional<FakeNotifierWatcher> watcher;
    watcher.emplace(desktop, true);
    EXPECT_TRUE(eventually([&] { return host.available(); }));
    watcher->setHost(false);
    EXPECT_TRUE(eventually([&] { return !host.available(); }));
    watcher->setHost(true);
    EXPECT_TRUE(eventually([&] { return host.available(); }));
    watcher.reset();
    EXPECT_TRUE(eventually([&] { return !host.available(); }));
    EXPECT_EQ(changes, (std::vector<bool>{true, false, true, false}));
}

TEST_F(TrayHostTest, AnXTrayAloneIsReportedAfterAWhile)
{
    QElapsedTimer timer;
    timer.start();
    TrayHost const host(bus.connect(), x11, 300ms);
    RoleOwner const panel(display->name(), tray);
    EXPECT_TRUE(eventually([&] { return host.available(); }));
    // The timer may be early by a twentieth.
    EXPECT_GE(timer.elapsed(), 280);
}

TEST_F(TrayHostTest, AnXTrayIsNotReportedWhileANotifierHostMayStillCome)
{
    RoleOwner const panel(display->name(), tray);
    TrayHost const host(bus.connect(), x11, 1h);
    FakeNotifierWatcher watcher(desktop, false);
    EXPECT_FALSE(host.available());
    watcher.setHost(true);
    EXPECT_TRUE(eventually([&] { return host.available(); }));
}

TEST_F(TrayHostTest, FollowsAnXTrayThatRestarts)
{
    TrayHost const host(bus.connect(), x11, 0ms);
    std::optional<RoleOwner> panel;
    panel.emplace(display->name(), tray);
    EXPECT_TRUE(eventually([&] { return host.available(); }));
    panel.reset();
    EXPECT_TRUE(eventually([&] { return !host.available(); }));
    panel.emplace(display->name(), tray);
    EXPECT_TRUE(eventually([&] { return host.available(); }));
}

/// A tray's colours: ordinary ones of these parts, and three more of no interest.
std::vector<unsigned char> colours(std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    std::vector<std::uint32_t> const numbers{red, green, blue, 1, 1, 1, 2, 2, 2, 3, 3, 3};
    std::vector<unsigned char> bytes(numbers.size() * 4);
    std::memcpy(bytes.data(), numbers.data(), bytes.size());
    return bytes;
}

TEST_F(TrayHostTest, FollowsTheColourThatTheTrayWants)
{
    TrayHost const host(bus.connect(), x11, 0ms);
    EXPECT_EQ(host.ink(), std::nullopt);
    int changes = 0;
    QObject::connect(&host, &TrayHost::inkChanged, &host, [&] { ++changes; });
    std::optional<RoleOwner> panel;
    panel.emplace(display->name(), tray);
    panel->setProperty("_NET_SYSTEM_TRAY_COLORS", colours(65535, 32768, 1));
    TrayInk const light{.red = 65535, .green = 32768, .blue = 1};
    EXPECT_TRUE(eventually([&] { return host.ink() == light; }));
    panel->setProperty("_NET_SYSTEM_TRAY_COLORS", colours(0, 0, 0));
    EXPECT_TRUE(eventually([&] { return host.ink() == TrayInk{}; }));
    panel.reset();
    EXPECT_TRUE(eventually([&] { return !host.ink(); }));
    EXPECT_EQ(changes, 3);
}

TEST(TrayInk, IsAbsentWhenThePropertyIsCutShort)
{
    auto bytes = colours(1, 2, 3);
    EXPECT_TRUE(trayInk(bytes));
    bytes.pop_back();
    EXPECT_FALSE(trayInk(bytes));
    EXPECT_FALSE(trayInk({}));
}

TEST_F(TrayHostTest, WithoutABusAnXTrayIsReportedAtOnce)
{
    RoleOwner const panel(display->name(), tray);
    EXPECT_TRUE(eventually([&] { return x11.owner(tray) != XCB_NONE; }));
    EXPECT_TRUE(TrayHost(noBus(), x11, 1h).available());
}

TEST(TrayHost, WithNeitherBusNorDisplayIsNotThere)
{
    X11Watch nowhere(":nonexistent");
    EXPECT_FALSE(TrayHost(noBus(), nowhere, 0ms).available());
}

} // namespace
} // namespace velmora
