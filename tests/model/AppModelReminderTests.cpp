#include "tests/model/Desk.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Property = AppModel::Property;

/// Ticks once a second for a while, as the timer does.
void run(Desk& desk, AppModel& model, int seconds)
{
    for (int i = 0; i < seconds; ++i) {
        desk.clock.instant += 1;
        model.tick();
    }
}

/// A model whose countdown runs and has `left` seconds to go.
AppModel& counting(Desk& desk, double left)
{
    desk.store("heldRemaining", left);
    auto& model = desk.launch();
    model.tick();
    return model;
}

/// A model in the first second of a reminder.
AppModel& reminding(Desk& desk)
{
    auto& model = counting(desk, 1.0);
    run(desk, model, 1);
    return model;
}

TEST(AppModelReminder, TheFirstTickStartsTheCountdownAndOnlyRecordsTheMinute)
{
    Desk desk;
    auto& model = desk.launch();
    model.tick();
    EXPECT_EQ(desk.saves(), 0U);
    run(desk, model, 1);
    EXPECT_EQ(model.remainingSeconds(), 899);
    EXPECT_EQ(desk.saves(), 1U) << "the whole minute went from 15 to 14";
}

TEST(AppModelReminder, TheFirstTickWritesWhenItsReconcileHadAnEffect)
{
    Desk desk;
    auto& model = desk.launch();
    desk.clock.instant += 1;
    model.velmoraNow();
    auto const writes = desk.saves();
    desk.clock.instant += 31;
    model.tick();
    EXPECT_FALSE(model.isReminding());
    EXPECT_EQ(desk.saves(), writes + 1);
}

TEST(AppModelReminder, AReminderStartsAtTheFirstTickAtOrAfterTheDeadline)
{
    Desk desk;
    auto& model = counting(desk, 100);
    run(desk, model, 99);
    EXPECT_FALSE(model.isReminding());
    EXPECT_EQ(model.remainingSeconds(), 1);
    run(desk, model, 1);
    EXPECT_TRUE(model.isReminding());
    EXPECT_EQ(desk.chimes(), (std::vector{0.55F}));
    EXPECT_EQ(model.remainingSeconds(), 900) << "the next interval is on display meanwhile";
}

TEST(AppModelReminder, TheChimePlaysAtTheUsersVolumeAndOnlyWithSoundOn)
{
    Desk loud;
    loud.store("soundVolume", 0.9);
    reminding(loud);
    EXPECT_EQ(loud.chimes(), (std::vector{0.9F}));

    Desk silent;
    silent.store("soundEnabled", false);
    EXPECT_TRUE(reminding(silent).isReminding());
    EXPECT_TRUE(silent.chimes().empty());
}

TEST(AppModelReminder, AReminderEndsByItselfAfterThirtySeconds)
{
    Desk desk;
    auto& model = reminding(desk);
    run(desk, model, 29);
    EXPECT_TRUE(model.isReminding());
    run(desk, model, 1);
    EXPECT_FALSE(model.isReminding());
    EXPECT_EQ(model.remainingSeconds(), 900);
    run(desk, model, 899);
    EXPECT_FALSE(model.isReminding());
    run(desk, model, 1);
    EXPECT_TRUE(model.isReminding());
    EXPECT_EQ(desk.chimes().size(), 2U);
}

TEST(AppModelReminder, AClickEndsAReminderAndTheNextComesAFullIntervalLater)
{
    Desk desk;
    auto& model = reminding(desk);
    run(desk, model, 5);
    model.acknowledgeReminder();
    EXPECT_FALSE(model.isReminding());
    run(desk, model, 899);
    EXPECT_FALSE(model.isReminding());
    run(desk, model, 1);
    EXPECT_TRUE(model.isReminding());
    EXPECT_EQ(desk.chimes().size(), 2U) << "an acknowledgement makes no sound";
}

TEST(AppModelReminder, AnAcknowledgementWithoutAReminderDoesNothingAtAll)
{
    Desk desk;
    auto& model = counting(desk, 100);
    int told = 0;
    model.onStatus = [&] { ++told; };
    auto const writes = desk.saves();
    model.acknowledgeReminder();
    EXPECT_EQ(told, 0);
    EXPECT_EQ(desk.saves(), writes);
}

TEST(AppModelReminder, AnAcknowledgementOutsideTheHoursLeavesAFullIntervalFrozen)
{
    Desk desk;
    desk.setLocalTime(3, 0);
    desk.store("allDay", false);
    auto& model = desk.launch();
    model.velmoraNow();
    model.acknowledgeReminder();
    run(desk, model, 60);
    EXPECT_EQ(model.remainingSeconds(), 900);
}

TEST(AppModelReminder, AReminderDueDuringASleepFiresOnceAtTheWake)
{
    Desk desk;
    auto& model = counting(desk, 100);
    desk.clock.instant += 7 * 3600;
    model.tick();
    EXPECT_TRUE(model.isReminding());
    run(desk, model, 29);
    EXPECT_TRUE(model.isReminding());
    run(desk, model, 2);
    EXPECT_FALSE(model.isReminding());
    EXPECT_EQ(desk.chimes().size(), 1U);
}

TEST(AppModelReminder, PausingDuringAReminderStopsItAndResumingStartsAFullInterval)
{
    Desk desk;
    auto& model = reminding(desk);
    model.setPaused(true);
    EXPECT_FALSE(model.isReminding());
    EXPECT_EQ(model.remainingSeconds(), 900);
    run(desk, model, 60);
    EXPECT_EQ(model.remainingSeconds(), 900);
    model.setPaused(false);
    run(desk, model, 1);
    EXPECT_EQ(model.remainingSeconds(), 899);
}

TEST(AppModelReminder, PausingKeepsTheSecondsLeftForAsLongAsItLasts)
{
    Desk desk;
    auto& model = counting(desk, 300);
    model.togglePaused();
    run(desk, model, 3600);
    EXPECT_EQ(model.remainingSeconds(), 300);
    model.togglePaused();
    EXPECT_EQ(model.remainingSeconds(), 300);
    run(desk, model, 1);
    EXPECT_EQ(model.remainingSeconds(), 299);
}

TEST(AppModelReminder, TogglePausedRunsThePauseRuleExactlyOnce)
{
    Desk desk;
    auto& model = counting(desk, 300);
    (void)desk.takeChanges();
    int told = 0;
    model.onStatus = [&] { ++told; };
    auto const writes = desk.saves();
    model.togglePaused();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(desk.saves(), writes + 1);
    EXPECT_EQ(desk.takeChanges(), (std::vector{Property::paused}));
}

TEST(AppModelReminder, ACountdownFrozenAtZeroShowsItsReminderAtTheTickAfterTheResumeWithoutAChime)
{
    Desk desk;
    auto& model = counting(desk, 100);
    desk.clock.instant += 200;
    model.setPaused(true);
    EXPECT_EQ(model.remainingSeconds(), 0);
    model.setPaused(false);
    EXPECT_FALSE(model.isReminding());
    run(desk, model, 1);
    EXPECT_TRUE(model.isReminding());
    EXPECT_TRUE(desk.chimes().empty());
    run(desk, model, 29);
    EXPECT_FALSE(model.isReminding());
}

TEST(AppModelReminder, ResumingOutsideTheHoursLeavesTheCountdownFrozen)
{
    Desk desk;
    desk.setLocalTime(3, 0);
    desk.store("allDay", false);
    desk.store("paused", true);
    desk.store("heldRemaining", 200.0);
    auto& model = desk.launch();
    model.setPaused(false);
    run(desk, model, 30);
    EXPECT_EQ(model.remainingSeconds(), 200);
    EXPECT_EQ(model.statusLine(), "Resting until 08:00");
}

TEST(AppModelReminder, VelmoraNowUnpausesAndRemindsAlsoOutsideTheHours)
{
    Desk desk;
    desk.setLocalTime(3, 0);
    desk.store("allDay", false);
    desk.store("paused", true);
    auto& model = desk.launch();
    model.velmoraNow();
    EXPECT_FALSE(model.paused());
    EXPECT_TRUE(model.isReminding());
    EXPECT_EQ(desk.chimes().size(), 1U);
    EXPECT_EQ(desk.defaults.boolean("paused"), false);
    run(desk, model, 29);
    EXPECT_TRUE(model.isReminding());
    run(desk, model, 1);
    EXPECT_FALSE(model.isReminding());
    EXPECT_EQ(model.remainingSeconds(), 900);
}

TEST(AppModelReminder, VelmoraNowDuringAReminderRestartsItsThirtySeconds)
{
    Desk desk;
    auto& model = reminding(desk);
    run(desk, model, 20);
    model.velmoraNow();
    run(desk, model, 29);
    EXPECT_TRUE(model.isReminding());
    run(desk, model, 1);
    EXPECT_FALSE(model.isReminding());
}

TEST(AppModelReminder, VelmoraNowIsSilentWithSoundOff)
{
    Desk desk;
    desk.store("soundEnabled", false);
    auto& model = desk.launch();
    model.velmoraNow();
    EXPECT_TRUE(desk.chimes().empty());
}

TEST(AppModelReminder, LeavingTheHoursFreezesTheCountdownAndEnteringThemResumesIt)
{
    Desk desk;
    desk.setLocalTime(21, 59);
    desk.store("allDay", false);
    auto& model = counting(desk, 600);
    run(desk, model, 60);
    EXPECT_FALSE(model.inActiveHours());
    EXPECT_EQ(model.remainingSeconds(), 540);
    run(desk, model, 10 * 3600 - 1);
    EXPECT_FALSE(model.inActiveHours());
    EXPECT_EQ(model.remainingSeconds(), 540);
    run(desk, model, 1);
    EXPECT_TRUE(model.inActiveHours());
    run(desk, model, 539);
    EXPECT_FALSE(model.isReminding());
    run(desk, model, 1);
    EXPECT_TRUE(model.isReminding());
}

TEST(AppModelReminder, AReminderRunsOutAfterTheHoursEndAndLeavesAFullIntervalFrozen)
{
    Desk desk;
    desk.setLocalTime(21, 59);
    desk.store("allDay", false);
    auto& model = counting(desk, 50);
    run(desk, model, 70);
    EXPECT_FALSE(model.inActiveHours());
    EXPECT_TRUE(model.isReminding());
    run(desk, model, 10);
    EXPECT_FALSE(model.isReminding());
    run(desk, model, 1000);
    EXPECT_EQ(model.remainingSeconds(), 900);
}

TEST(AppModelReminder, HoursChangedToExcludeNowFreezeAtOnce)
{
    Desk desk;
    desk.setLocalTime(12, 0);
    auto& model = counting(desk, 600);
    model.setEndMinutes(11 * 60);
    model.setAllDay(false);
    EXPECT_FALSE(model.inActiveHours());
    run(desk, model, 100);
    EXPECT_EQ(model.remainingSeconds(), 600);
    model.setAllDay(true);
    EXPECT_TRUE(model.inActiveHours());
    run(desk, model, 1);
    EXPECT_EQ(model.remainingSeconds(), 599);
}

TEST(AppModelReminder, HoursChangedLeaveARunningReminderAlone)
{
    Desk desk;
    desk.setLocalTime(12, 0);
    auto& model = reminding(desk);
    model.setEndMinutes(11 * 60);
    model.setAllDay(false);
    EXPECT_TRUE(model.isReminding());
    run(desk, model, 30);
    EXPECT_FALSE(model.isReminding());
}

TEST(AppModelReminder, AReminderDueAtAChangeOfHoursShowsAtTheNextTickWithoutAChime)
{
    Desk desk;
    auto& model = counting(desk, 100);
    desk.clock.instant += 200;
    model.setStartMinutes(0);
    EXPECT_FALSE(model.isReminding());
    model.tick();
    EXPECT_TRUE(model.isReminding());
    EXPECT_TRUE(desk.chimes().empty());
}

TEST(AppModelReminder, ANewIntervalKeepsTheProgressWithoutAReset)
{
    Desk desk;
    auto& model = counting(desk, 600);
    model.setInterval(20, ResetRemaining::no);
    EXPECT_EQ(model.remainingSeconds(), 600);
    model.setInterval(5, ResetRemaining::no);
    EXPECT_EQ(model.remainingSeconds(), 300);
}

TEST(AppModelReminder, ANewIntervalStartsOverWithAReset)
{
    Desk desk;
    auto& model = counting(desk, 600);
    model.setInterval(20, ResetRemaining::yes);
    EXPECT_EQ(model.remainingSeconds(), 1200);
    model.setIntervalMinutes(30);
    EXPECT_EQ(model.remainingSeconds(), 1200) << "the reset was for one change only";
}

TEST(AppModelReminder, TheSameIntervalStartsOverOnlyWithAReset)
{
    Desk desk;
    auto& model = counting(desk, 600);
    int told = 0;
    model.onStatus = [&] { ++told; };
    auto const writes = desk.saves();
    model.setInterval(15, ResetRemaining::no);
    EXPECT_EQ(told, 0);
    EXPECT_EQ(desk.saves(), writes);
    EXPECT_EQ(model.remainingSeconds(), 600);
    model.setInterval(15, ResetRemaining::yes);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(model.remainingSeconds(), 900);
}

TEST(AppModelReminder, AnIntervalOutOfRangeIsClamped)
{
    Desk desk;
    auto& model = desk.launch();
    model.setInterval(1, ResetRemaining::no);
    EXPECT_EQ(model.intervalMinutes(), 2);
    model.setIntervalMinutes(1000);
    EXPECT_EQ(model.intervalMinutes(), 60);
    EXPECT_EQ(desk.defaults.integer("intervalMinutes"), 60);
}

TEST(AppModelReminder, AnIntervalChangedDuringAReminderCountsFromItsEnd)
{
    Desk desk;
    auto& model = reminding(desk);
    model.setInterval(2, ResetRemaining::yes);
    EXPECT_TRUE(model.isReminding());
    EXPECT_EQ(model.remainingSeconds(), 120);
    run(desk, model, 30);
    EXPECT_FALSE(model.isReminding());
    EXPECT_EQ(model.remainingSeconds(), 120);
}

TEST(AppModelReminder, TheCountdownIsSavedOnceAMinute)
{
    Desk desk;
    auto& model = counting(desk, 800);
    auto const before = desk.saves();
    run(desk, model, 600);
    EXPECT_EQ(desk.saves(), before + 10);
}

TEST(AppModelReminder, AKilledProcessLosesAtMostAMinute)
{
    Desk desk;
    auto& model = counting(desk, 800);
    run(desk, model, 333);
    auto const left = model.remainingSeconds();
    auto const restored = desk.launch().remainingSeconds();
    EXPECT_GE(restored, left);
    EXPECT_LE(restored, left + 60);
}

TEST(AppModelReminder, ATickNotifiesOnlyWhatChanged)
{
    Desk desk;
    auto& model = counting(desk, 800.5);
    (void)desk.takeChanges();
    run(desk, model, 1);
    EXPECT_EQ(desk.takeChanges(), (std::vector{Property::remainingSeconds}));
    model.tick();
    EXPECT_TRUE(desk.takeChanges().empty());
}

TEST(AppModelReminder, EveryTickAndEveryActionTellsTheShell)
{
    Desk desk;
    auto& model = desk.launch();
    int told = 0;
    model.onStatus = [&] { ++told; };
    model.tick();
    model.togglePaused();
    model.togglePaused();
    model.velmoraNow();
    model.acknowledgeReminder();
    model.setInterval(20, ResetRemaining::no);
    model.setAllDay(false);
    EXPECT_EQ(told, 7);
}

TEST(AppModelReminder, TheMotionSettingIsFollowedAtTheNextTick)
{
    Desk desk;
    auto& model = desk.launch();
    desk.motion.reduced = true;
    model.tick();
    EXPECT_TRUE(model.reduceMotion());
    EXPECT_TRUE(desk.launch().reduceMotion());
}

TEST(AppModelReminder, TheShownCountdownNeverExceedsTheIntervalWhenTheClockStepsBack)
{
    Desk desk;
    auto& model = counting(desk, 600);
    desk.clock.instant -= 3600;
    model.tick();
    EXPECT_EQ(model.remainingSeconds(), 900);
    desk.clock.instant += 3600 + 599;
    model.tick();
    EXPECT_FALSE(model.isReminding());
    run(desk, model, 1);
    EXPECT_TRUE(model.isReminding());
}

TEST(AppModelReminder, StartPreparesTheChimeBringsTheLoginItemInLineAndTicks)
{
    Desk desk;
    desk.store("openAtLogin", true);
    auto& model = desk.launch();
    int told = 0;
    model.onStatus = [&] { ++told; };
    model.start();
    EXPECT_TRUE(desk.chimePrepared());
    EXPECT_EQ(desk.login.state, LoginService::Status::enabled);
    EXPECT_EQ(told, 1);
}

TEST(AppModelReminder, AWholeDayOfSecondsHoldsOneReminderAnInterval)
{
    Desk desk;
    auto& model = desk.launch();
    model.tick();
    int reminders = 0;
    QObject::connect(&model, &AppModel::changed, &model, [&](Property property) {
        reminders += property == Property::isReminding && model.isReminding() ? 1 : 0;
    });
    run(desk, model, 24 * 3600);
    EXPECT_EQ(reminders, 24 * 3600 / (900 + 30)) << "900 seconds of countdown, 30 of reminder";
}

} // namespace
} // namespace velmora
