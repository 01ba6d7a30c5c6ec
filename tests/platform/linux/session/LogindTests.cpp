#include "Velmora/platform/linux/session/LogindSleep.h"
#include "Velmora/platform/linux/session/SessionLock.h"

#include "tests/platform/linux/session/Eventually.h"
#include "tests/platform/linux/session/FakeLogind.h"
#include "tests/platform/linux/session/PrivateBus.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

struct LogindSleepTest : testing::Test {
    LogindSleepTest()
    {
        QObject::connect(&sleep, &LogindSleep::willSleep, &sleep, [this] {
            ++sleeps;
            wasHeldBackWhileSaving = logind.isHeldBack();
        });
        QObject::connect(&sleep, &LogindSleep::didWake, &sleep, [this] { ++wakes; });
    }

    PrivateBus bus;
    FakeLogind logind{bus.connect()};
    LogindSleep sleep{bus.connect()};
    int sleeps = 0;
    int wakes = 0;
    bool wasHeldBackWhileSaving = false;
};

TEST_F(LogindSleepTest, HoldsTheMachineBackFromTheStart)
{
    EXPECT_TRUE(eventually([this] { return sleep.holdsBack(); }));
    EXPECT_TRUE(logind.isHeldBack());
    EXPECT_EQ(logind.asked.value(0), QStringLiteral("sleep"));
    EXPECT_EQ(logind.asked.value(1), QStringLiteral("Velmora"));
    EXPECT_EQ(logind.asked.value(3), QStringLiteral("delay"));
}

TEST_F(LogindSleepTest, LetsTheMachineGoOnlyAfterTheListenersAreDone)
{
    ASSERT_TRUE(eventually([this] { return sleep.holdsBack(); }));
    logind.prepareForSleep(true);
    EXPECT_TRUE(eventually([this] { return sleeps == 1 && !logind.isHeldBack(); }));
    EXPECT_TRUE(wasHeldBackWhileSaving);
    EXPECT_FALSE(sleep.holdsBack());
}

TEST_F(LogindSleepTest, TellsOfTheWakingAndHoldsBackAgain)
{
    ASSERT_TRUE(eventually([this] { return sleep.holdsBack(); }));
    logind.prepareForSleep(true);
    logind.prepareForSleep(false);
    EXPECT_TRUE(eventually([this] { return wakes == 1 && logind.isHeldBack(); }));
    EXPECT_EQ(sleeps, 1);
    EXPECT_EQ(logind.inhibitors.size(), 2U);
}

TEST_F(LogindSleepTest, HoldsBackAgainWhenTheLoginManagerStartsAnew)
{
    ASSERT_TRUE(eventually([this] { return sleep.holdsBack(); }));
    logind.disappear();
    logind.appear();
    EXPECT_TRUE(eventually([this] { return logind.inhibitors.size() == 2; }));
}

TEST(LogindSleep, AnnouncesSleepWithoutALoginManagerThatCanBeHeldBack)
{
    PrivateBus bus;
    LogindSleep const sleep(bus.connect());
    int sleeps = 0;
    QObject::connect(&sleep, &LogindSleep::willSleep, &sleep, [&] { ++sleeps; });
    auto const systemBus = bus.connect();
    FakeLogind logind(systemBus);
    logind.prepareForSleep(true);
    EXPECT_TRUE(eventually([&] { return sleeps == 1; }));
}

TEST(LogindSleep, WithoutABusIsSilent)
{
    LogindSleep const sleep(noBus());
    EXPECT_FALSE(sleep.holdsBack());
}

struct SessionLockTest : testing::Test {
    void saverActive(bool active)
    {
        auto message = QDBusMessage::createSignal(QStringLiteral("/ScreenSaver"),
            QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("ActiveChanged"));
        message << active;
        peer.send(message);
    }

    PrivateBus bus;
    QDBusConnection peer = bus.connect();
    FakeLogind logind{peer};
    FakeLoginSession session{peer};
};

TEST_F(SessionLockTest, KnowsASessionThatWasLockedBefore)
{
    session.lockedHint = true;
    SessionLock const lock(bus.connect(), noBus());
    EXPECT_TRUE(eventually([&] { return lock.locked(); }));
}

TEST_F(SessionLockTest, FollowsTheLoginManagersHint)
{
    SessionLock const lock(bus.connect(), noBus());
    std::vector<bool> changes;
    QObject::connect(
        &lock, &SessionLock::lockedChanged, &lock, [&](bool locked) { changes.push_back(locked); });
    // The hint is set again until the watch is up.
    EXPECT_TRUE(eventually([&] {
        session.setLocked(true);
        return lock.locked();
    }));
    session.setLocked(false);
    EXPECT_TRUE(eventually([&] { return !lock.locked(); }));
    EXPECT_EQ(changes, (std::vector<bool>{true, false}));
}

TEST_F(SessionLockTest, FollowsTheScreenSaver)
{
    SessionLock const lock(noBus(), bus.connect());
    saverActive(true);
    EXPECT_TRUE(eventually([&] { return lock.locked(); }));
    saverActive(false);
    EXPECT_TRUE(eventually([&] { return !lock.locked(); }));
}

TEST(SessionLock, WithoutBusesIsNeverLocked)
{
    EXPECT_FALSE(SessionLock(noBus(), noBus()).locked());
}

} // namespace
} // namespace velmora
