#include "Velmora/engine/ReminderClock.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr double noon = 800'000'000.0;
constexpr double quarterHour = 900.0;

ReminderClock frozenWith(double held)
{
    return {.interval = quarterHour, .held = held};
}

ReminderClock runningWith(double left)
{
    return {.interval = quarterHour, .held = quarterHour, .deadline = noon + left};
}

ReminderClock remindingFor(double left)
{
    return {.interval = quarterHour, .held = quarterHour, .remindingUntil = noon + left};
}

TEST(ReminderClock, RemainingIsTheTimeToTheDeadlineWhileRunning)
{
    EXPECT_EQ(runningWith(300).remaining(noon), 300);
}

TEST(ReminderClock, RemainingIsNeverNegativeAfterTheDeadlinePassed)
{
    EXPECT_EQ(runningWith(-1).remaining(noon), 0);
}

TEST(ReminderClock, RemainingIsWhatIsHeldWhileFrozen)
{
    EXPECT_EQ(frozenWith(120).remaining(noon), 120);
    EXPECT_EQ(frozenWith(-4).remaining(noon), 0);
}

TEST(ReminderClock, RemainingIsTheNextFullIntervalWhileReminding)
{
    EXPECT_EQ(remindingFor(12).remaining(noon), quarterHour);
}

TEST(ReminderClock, IsRemindingExactlyWhileAReminderHasAnEnd)
{
    EXPECT_TRUE(remindingFor(1).isReminding());
    EXPECT_FALSE(runningWith(1).isReminding());
    EXPECT_FALSE(frozenWith(1).isReminding());
}

TEST(ReminderClock, FrozenAndCountingStartsTheCountdownFromWhatWasHeld)
{
    auto clock = frozenWith(120);
    EXPECT_EQ(clock.reconcile(noon, true), ReminderEffect::none);
    EXPECT_EQ(clock.deadline, noon + 120);
}

TEST(ReminderClock, FrozenAtZeroAndCountingStartsAReminderInTheSameCall)
{
    auto clock = frozenWith(0);
    EXPECT_EQ(clock.reconcile(noon, true), ReminderEffect::started);
    EXPECT_EQ(clock, remindingFor(30));
}

TEST(ReminderClock, FrozenBelowZeroCountsAsZero)
{
    auto clock = frozenWith(-50);
    EXPECT_EQ(clock.reconcile(noon, true), ReminderEffect::started);
    EXPECT_EQ(clock.remindingUntil, noon + 30);
}

TEST(ReminderClock, FrozenAndNotCountingChangesNothing)
{
    auto clock = frozenWith(120);
    EXPECT_EQ(clock.reconcile(noon, false), ReminderEffect::none);
    EXPECT_EQ(clock, frozenWith(120));
}

TEST(ReminderClock, StartsAReminderExactlyAtTheDeadline)
{
    auto clock = runningWith(0);
    EXPECT_EQ(clock.reconcile(noon, true), ReminderEffect::started);
    EXPECT_EQ(clock, remindingFor(30));
}

TEST(ReminderClock, KeepsRunningJustBeforeTheDeadline)
{
    auto clock = runningWith(0.001);
    EXPECT_EQ(clock.reconcile(noon, true), ReminderEffect::none);
    EXPECT_EQ(clock, runningWith(0.001));
}

TEST(ReminderClock, FiresOnceWithItsFullLengthWhenTheMachineSleptPastTheDeadline)
{
    auto clock = runningWith(-7200);
    EXPECT_EQ(clock.reconcile(noon, true), ReminderEffect::started);
    EXPECT_EQ(clock.remindingUntil, noon + 30);
    EXPECT_EQ(clock.reconcile(noon + 1, true), ReminderEffect::none);
}

TEST(ReminderClock, RunningAndNotCountingFreezesWithTheSecondsLeft)
{
    auto clock = runningWith(300);
    EXPECT_EQ(clock.reconcile(noon, false), ReminderEffect::none);
    EXPECT_EQ(clock, frozenWith(300));
}

TEST(ReminderClock, ADeadlinePassedWhileNotCountingFreezesAtZeroAndFiresOnResume)
{
    auto clock = runningWith(-5);
    EXPECT_EQ(clock.reconcile(noon, false), ReminderEffect::none);
    EXPECT_EQ(clock, frozenWith(0));
    EXPECT_EQ(clock.reconcile(noon + 60, true), ReminderEffect::started);
}

TEST(ReminderClock, EndsAReminderExactlyAtItsEndAndCountsAFullIntervalFromNow)
{
    auto clock = remindingFor(0);
    EXPECT_EQ(clock.reconcile(noon, true), ReminderEffect::ended);
    EXPECT_EQ(clock.remaining(noon), quarterHour);
    EXPECT_FALSE(clock.isReminding());
}

TEST(ReminderClock, AReminderEndedLateCountsFromNowAndDoesNotStartAnotherInTheSameCall)
{
    auto clock = remindingFor(-5000);
    EXPECT_EQ(clock.reconcile(noon, true), ReminderEffect::ended);
    EXPECT_EQ(clock.deadline, noon + quarterHour);
}

TEST(ReminderClock, KeepsRemindingWhileNotCountingAndIsLeftFrozenAtAFullInterval)
{
    auto clock = remindingFor(10);
    EXPECT_EQ(clock.reconcile(noon, false), ReminderEffect::none);
    EXPECT_TRUE(clock.isReminding());
    EXPECT_EQ(clock.reconcile(noon + 10, false), ReminderEffect::ended);
    EXPECT_EQ(clock, frozenWith(quarterHour));
}

TEST(ReminderClock, AReconcileDuringAReminderClearsAStrayDeadline)
{
    auto clock = remindingFor(10);
    clock.deadline = noon + 1;
    EXPECT_EQ(clock.reconcile(noon, true), ReminderEffect::none);
    EXPECT_EQ(clock, remindingFor(10));
}

TEST(ReminderClock, StartReminderWorksFromEveryStateAndRestartsARunningOne)
{
    for (auto clock : {frozenWith(120), runningWith(300), remindingFor(3)}) {
        clock.startReminder(noon);
        EXPECT_EQ(clock, remindingFor(30));
    }
}

TEST(ReminderClock, EndReminderRunsAFullIntervalFromNowWhenCounting)
{
    for (auto clock : {frozenWith(120), runningWith(300), remindingFor(3)}) {
        clock.endReminder(noon, true);
        EXPECT_EQ(clock, runningWith(quarterHour));
    }
}

TEST(ReminderClock, EndReminderLeavesAFullIntervalFrozenWhenNotCounting)
{
    for (auto clock : {frozenWith(120), runningWith(300), remindingFor(3)}) {
        clock.endReminder(noon, false);
        EXPECT_EQ(clock, frozenWith(quarterHour));
    }
}

TEST(ReminderClock, CancelReminderLeavesAFullIntervalFrozenFromEveryState)
{
    for (auto clock : {frozenWith(120), runningWith(300), remindingFor(3)}) {
        clock.cancelReminder();
        EXPECT_EQ(clock, frozenWith(quarterHour));
    }
}

TEST(ReminderClock, AnIntervalBelowASecondIsRaisedToOne)
{
    auto clock = frozenWith(120);
    clock.updateInterval(0.2, noon, true, true);
    EXPECT_EQ(clock.interval, 1);
    EXPECT_EQ(clock.deadline, noon + 1);
}

TEST(ReminderClock, ShorteningTheIntervalCutsTheCountdownToIt)
{
    auto clock = runningWith(300);
    clock.updateInterval(120, noon, true, false);
    EXPECT_EQ(clock.remaining(noon), 120);
    EXPECT_EQ(clock.held, 120);
}

TEST(ReminderClock, LengtheningTheIntervalKeepsTheTimeLeft)
{
    auto clock = runningWith(300);
    clock.updateInterval(1200, noon, true, false);
    EXPECT_EQ(clock.remaining(noon), 300);
    EXPECT_EQ(clock.interval, 1200);
}

TEST(ReminderClock, AnUpdateWhileNotCountingFreezesWhatIsLeft)
{
    auto clock = runningWith(300);
    clock.updateInterval(1200, noon, false, false);
    EXPECT_EQ(clock, (ReminderClock{.interval = 1200, .held = 300}));
}

TEST(ReminderClock, AnUpdateAfterTheDeadlineKeepsZeroLeft)
{
    auto clock = runningWith(-20);
    clock.updateInterval(1200, noon, true, false);
    EXPECT_EQ(clock.deadline, noon);
}

TEST(ReminderClock, AnUpdateOfAFrozenClockKeepsWhatWasHeld)
{
    auto clock = frozenWith(100);
    clock.updateInterval(600, noon, true, false);
    EXPECT_EQ(clock.deadline, noon + 100);
    EXPECT_EQ(clock.held, 100);
}

TEST(ReminderClock, AnUpdateWithResetStartsAFullInterval)
{
    auto running = runningWith(300);
    running.updateInterval(1200, noon, true, true);
    EXPECT_EQ(running.deadline, noon + 1200);

    auto frozen = frozenWith(10);
    frozen.updateInterval(1200, noon, false, true);
    EXPECT_EQ(frozen, (ReminderClock{.interval = 1200, .held = 1200}));
}

TEST(ReminderClock, AnUpdateDuringAReminderChangesOnlyTheNextInterval)
{
    for (bool const reset : {false, true}) {
        auto clock = remindingFor(10);
        clock.updateInterval(1200, noon, true, reset);
        EXPECT_EQ(
            clock, (ReminderClock{.interval = 1200, .held = 1200, .remindingUntil = noon + 10}));
    }
}

TEST(ReminderClock, ClocksWithTheSameFieldsAreEqualAndInstantsCompareExactly)
{
    EXPECT_EQ(runningWith(300), runningWith(300));
    EXPECT_NE(runningWith(300), runningWith(300.001));
}

TEST(ReminderClock, AStepBackwardsProlongsWhatRuns)
{
    auto running = runningWith(300);
    EXPECT_EQ(running.reconcile(noon - 3600, true), ReminderEffect::none);
    EXPECT_EQ(running.remaining(noon - 3600), 3900);

    auto reminding = remindingFor(10);
    EXPECT_EQ(reminding.reconcile(noon - 3600, true), ReminderEffect::none);
    EXPECT_EQ(reminding, remindingFor(10));
}

} // namespace
} // namespace velmora
