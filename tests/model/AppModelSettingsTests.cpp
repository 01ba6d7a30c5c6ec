#include "tests/model/Desk.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

using Property = AppModel::Property;

std::vector<std::string> keysOfLastSave(Desk const& desk)
{
    std::vector<std::string> keys;
    for (auto const& [key, value] : desk.defaults.writes.back())
        keys.push_back(key);
    return keys;
}

TEST(AppModelSettings, AnEmptyStoreGivesTheFirstLaunchDefaults)
{
    Desk desk;
    auto& model = desk.launch();
    EXPECT_EQ(model.intervalMinutes(), 15);
    EXPECT_EQ(model.startMinutes(), 480);
    EXPECT_EQ(model.endMinutes(), 1320);
    EXPECT_TRUE(model.allDay());
    EXPECT_TRUE(model.soundEnabled());
    EXPECT_EQ(model.soundVolume(), 0.55);
    EXPECT_FALSE(model.paused());
    EXPECT_FALSE(model.openAtLogin());
    EXPECT_EQ(model.widgetSize(), 128);
    EXPECT_EQ(model.widgetOrigin(), Point{});
    EXPECT_FALSE(model.hasSavedOrigin());
    EXPECT_EQ(model.remainingSeconds(), 900);
    EXPECT_TRUE(model.inActiveHours());
    EXPECT_FALSE(model.isReminding());
    EXPECT_FALSE(model.showingSettings());
    EXPECT_FALSE(model.pointerInside());
    EXPECT_FALSE(model.reduceMotion());
    EXPECT_FALSE(model.loginNote());
    EXPECT_FALSE(model.hostScreen());
}

TEST(AppModelSettings, LoadingWritesNothing)
{
    Desk desk;
    desk.store("intervalMinutes", std::int64_t(90));
    desk.store("widgetSize", 5000.0);
    desk.launch();
    EXPECT_EQ(desk.saves(), 0U);
}

TEST(AppModelSettings, TheIntervalIsClampedAtLoad)
{
    for (auto const& [stored, loaded] : {std::pair<std::int64_t, std::int64_t>(1, 2), {90, 60},
             {2, 2}, {60, 60}, {std::numeric_limits<std::int64_t>::min(), 2},
             {std::numeric_limits<std::int64_t>::max(), 60}}) {
        Desk desk;
        desk.store("intervalMinutes", stored);
        EXPECT_EQ(desk.launch().intervalMinutes(), loaded);
    }
}

TEST(AppModelSettings, AnIntervalOfAnotherTypeIsTheDefault)
{
    Desk desk;
    desk.store("intervalMinutes", true);
    EXPECT_EQ(desk.launch().intervalMinutes(), 15);
}

TEST(AppModelSettings, TheHoursAreNormalisedAtLoad)
{
    Desk desk;
    desk.store("startMinutes", std::int64_t(-30));
    desk.store("endMinutes", std::int64_t(1500));
    auto& model = desk.launch();
    EXPECT_EQ(model.startMinutes(), 1410);
    EXPECT_EQ(model.endMinutes(), 60);
}

TEST(AppModelSettings, TheVolumeIsClampedAtLoad)
{
    for (auto const& [stored, loaded] : {std::pair(0.0, 0.1), {3.0, 1.0}, {0.3, 0.3}}) {
        Desk desk;
        desk.store("soundVolume", stored);
        EXPECT_EQ(desk.launch().soundVolume(), loaded);
    }
}

TEST(AppModelSettings, TheStoredCountdownIsTakenUp)
{
    for (auto const& [stored, seconds] :
        {std::pair(0.5, 15), {-1e300, 15}, {5000.0, 900}, {1e300, 900}, {1.0, 1}, {432.9, 432}}) {
        Desk desk;
        desk.store("heldRemaining", stored);
        EXPECT_EQ(desk.launch().remainingSeconds(), seconds) << stored;
    }
}

TEST(AppModelSettings, ThePauseSurvivesARestart)
{
    Desk desk;
    desk.launch().setPaused(true);
    EXPECT_TRUE(desk.launch().paused());
}

TEST(AppModelSettings, EverySettingSurvivesARestart)
{
    Desk desk;
    auto& before = desk.launch();
    before.setInterval(20, ResetRemaining::yes);
    before.setStartMinutes(540);
    before.setEndMinutes(1020);
    before.setAllDay(false);
    before.setSoundEnabled(false);
    before.setSoundVolume(0.25);
    before.setOpenAtLogin(true);
    before.setWidgetSize(200.5);
    before.saveOrigin({.x = 12.5, .y = -7});

    auto& after = desk.launch();
    EXPECT_EQ(after.intervalMinutes(), 20);
    EXPECT_EQ(after.startMinutes(), 540);
    EXPECT_EQ(after.endMinutes(), 1020);
    EXPECT_FALSE(after.allDay());
    EXPECT_FALSE(after.soundEnabled());
    EXPECT_EQ(after.soundVolume(), 0.25);
    EXPECT_TRUE(after.openAtLogin());
    EXPECT_EQ(after.widgetSize(), 200.5);
    EXPECT_EQ(after.widgetOrigin(), (Point{.x = 12.5, .y = -7}));
    EXPECT_TRUE(after.hasSavedOrigin());
    EXPECT_EQ(after.remainingSeconds(), 1200);
}

TEST(AppModelSettings, PersistWritesTheThirteenKeysInTheirOrder)
{
    Desk desk;
    desk.launch().persist();
    std::vector<std::string> const expected = {"intervalMinutes", "startMinutes", "endMinutes",
        "allDay", "soundEnabled", "soundVolume", "paused", "openAtLogin", "widgetSize",
        "widgetOriginX", "widgetOriginY", "hasSavedOrigin", "heldRemaining"};
    EXPECT_EQ(keysOfLastSave(desk), expected);
    EXPECT_EQ(desk.defaults.number("heldRemaining"), 900);
}

TEST(AppModelSettings, PersistStoresTheCountdownAsItStandsNow)
{
    Desk desk;
    auto& model = desk.launch();
    model.tick();
    desk.clock.instant += 100.25;
    model.persist();
    EXPECT_EQ(desk.defaults.number("heldRemaining"), 799.75);
}

TEST(AppModelSettings, AnEqualAssignmentRunsItsRuleAndNotifiesNobody)
{
    Desk desk;
    auto& model = desk.launch();
    (void)desk.takeChanges();
    std::size_t expectedWrites = 0;
    auto const expectRule = [&] { EXPECT_EQ(desk.saves(), ++expectedWrites); };
    model.setSoundEnabled(model.soundEnabled());
    expectRule();
    model.setSoundVolume(model.soundVolume());
    expectRule();
    model.setIntervalMinutes(model.intervalMinutes());
    expectRule();
    model.setStartMinutes(model.startMinutes());
    expectRule();
    model.setEndMinutes(model.endMinutes());
    expectRule();
    model.setAllDay(model.allDay());
    expectRule();
    model.setPaused(model.paused());
    expectRule();
    model.setOpenAtLogin(model.openAtLogin());
    expectRule();
    model.setWidgetSize(model.widgetSize());
    expectRule();
    EXPECT_TRUE(desk.takeChanges().empty());
}

TEST(AppModelSettings, EveryRealChangeIsNotifiedOnce)
{
    Desk desk;
    auto& model = desk.launch();
    model.setSoundEnabled(false);
    EXPECT_EQ(desk.takeChanges(), (std::vector{Property::soundEnabled}));
    model.setSoundVolume(0.7);
    EXPECT_EQ(desk.takeChanges(), (std::vector{Property::soundVolume}));
    model.setEndMinutes(1000);
    EXPECT_EQ(desk.takeChanges(), (std::vector{Property::endMinutes}));
    model.setPointerInside(true);
    EXPECT_EQ(desk.takeChanges(), (std::vector{Property::pointerInside}));
    model.setHostScreen(DisplayId(1));
    EXPECT_EQ(desk.takeChanges(), (std::vector{Property::hostScreen}));
    model.saveOrigin({.x = 3, .y = 0});
    EXPECT_EQ(desk.takeChanges(), (std::vector{Property::widgetOriginX, Property::hasSavedOrigin}));
}

TEST(AppModelSettings, ValuesAreKeptAsAssignedUntilTheNextLoad)
{
    Desk desk;
    auto& model = desk.launch();
    model.setStartMinutes(-60);
    model.setSoundVolume(2);
    EXPECT_EQ(model.startMinutes(), -60);
    EXPECT_EQ(desk.defaults.integer("startMinutes"), -60);
    EXPECT_EQ(model.soundVolume(), 2);
    EXPECT_EQ(model.formatMinutes(-60), "23:00");

    auto& after = desk.launch();
    EXPECT_EQ(after.startMinutes(), 1380);
    EXPECT_EQ(after.soundVolume(), 1.0);
}

TEST(AppModelSettings, ShowingSettingsCallsTheShellOnAChangeOnly)
{
    Desk desk;
    auto& model = desk.launch();
    std::vector<bool> calls;
    model.onShowingSettings = [&](bool showing) { calls.push_back(showing); };
    model.setShowingSettings(false);
    model.setShowingSettings(true);
    model.setShowingSettings(true);
    model.setShowingSettings(false);
    EXPECT_EQ(calls, (std::vector{true, false}));
}

TEST(AppModelSettings, OpenAtLoginAppliesAndKeepsTheNote)
{
    Desk desk;
    desk.login.state = LoginService::Status::requiresApproval;
    auto& model = desk.launch();
    model.setOpenAtLogin(true);
    ASSERT_TRUE(model.loginNote());
    EXPECT_EQ(desk.defaults.boolean("openAtLogin"), true);
    model.setOpenAtLogin(false);
    EXPECT_FALSE(model.loginNote());
}

TEST(AppModelSettings, FormatMinutesNormalises)
{
    Desk desk;
    auto& model = desk.launch();
    EXPECT_EQ(model.formatMinutes(1440), model.formatMinutes(0));
    EXPECT_EQ(model.formatMinutes(-60), model.formatMinutes(1380));
    EXPECT_EQ(model.formatMinutes(485), "08:05");
}

TEST(AppModelSettings, TheStatusLineFollowsTheState)
{
    Desk desk;
    desk.setLocalTime(12, 0);
    auto& model = desk.launch();
    EXPECT_EQ(model.statusLine(), "Next in 15m");
    model.setStartMinutes(13 * 60);
    model.setAllDay(false);
    EXPECT_EQ(model.statusLine(), "Resting until 13:00");
    model.setPaused(true);
    EXPECT_EQ(model.statusLine(), "Paused");
    model.velmoraNow();
    EXPECT_EQ(model.statusLine(), "Velmora");
}

} // namespace
} // namespace velmora
