"""The program through the hours of a day, on a clock that the test sets."""

import signal
import time
from datetime import datetime
from zoneinfo import ZoneInfo

import pytest

from harness import Clock, Desktop, Program, wait_for, watch
from orb_hand import OrbHand

BERLIN = ZoneInfo("Europe/Berlin")


@pytest.fixture
def berlin() -> Desktop:
    with Desktop(timezone="Europe/Berlin") as desktop:
        yield desktop


def minutes(hour: int, minute: int = 0) -> int:
    return hour * 60 + minute


def hours(desktop: Desktop, start: int, end: int, **more) -> None:
    """Stores active hours, given as minutes of the day."""
    desktop.settings.write(allDay=False, startMinutes=start, endMinutes=end, **more)


def says(program: Program, line: str) -> None:
    """Waits for exactly that status line."""
    wait_for(lambda: program.status_line == line, 3, f"the line {line!r}")


def goes_on_saying(program: Program, line: str) -> None:
    """Sees that a few ticks leave the status line as it is."""
    says(program, line)
    watch(lambda: program.status_line == line, 2.5, f"{line!r}")


def test_a_whole_morning_of_reminders(berlin: Desktop):
    """Clicked, left alone and cancelled by a pause in turn, from eight to noon every half an hour."""
    hours(berlin, minutes(8), minutes(12), intervalMinutes=30)
    clock = Clock(berlin, datetime(2026, 11, 23, 7, 59, 59, tzinfo=BERLIN))
    program = clock.run()
    orb = OrbHand(berlin, program)
    goes_on_saying(program, "Resting until 08:00")
    clock.forward(seconds=1)
    says(program, "Next in 30m")

    reminders, ends = 0, ("click", "leave", "cancel")
    with berlin.sound.listen() as ear:
        while True:
            clock.forward(minutes=29, seconds=59)
            if clock.now.hour >= 12:
                break
            says(program, "Next in 1s")
            clock.forward(seconds=1)
            started = time.monotonic()
            says(program, "Velmora")
            wait_for(lambda: ear.peak(since=started) > -40, 5, f"the chime at {clock.now:%H:%M:%S}")
            reminders += 1
            _end_reminder(orb, clock, ends[reminders % 3])
            says(program, "Next in 30m")
            wait_for(lambda: ear.peak(since=time.monotonic() - 0.5) < -60, 5, "the chime to fade")
        says(program, "Resting until 08:00")
        assert reminders == 7
        assert len(ear.sounds(gap=0.4)) == 7, "one chime for each reminder"
    assert program.stop() == 0
    assert program.errors == ""


def _end_reminder(orb: OrbHand, clock: Clock, way: str) -> None:
    program = orb.program
    if way == "click":
        orb.desktop.pointer.click(*orb.at(0, -20))
    elif way == "leave":
        clock.forward(seconds=29.5)
        goes_on_saying(program, "Velmora")
        clock.forward(seconds=0.5)
    else:
        program.item.choose("Pause Reminders")
        says(program, "Paused")
        clock.forward(minutes=3)
        program.item.choose("Resume Reminders")


def test_the_countdown_is_held_through_the_night_and_goes_on_in_the_morning(berlin: Desktop):
    hours(berlin, minutes(8), minutes(22), intervalMinutes=20, heldRemaining=600.0)
    clock = Clock(berlin, datetime(2026, 11, 23, 21, 59, 30, tzinfo=BERLIN))
    program = clock.run()
    says(program, "Next in 10m")
    clock.forward(seconds=29)
    says(program, "Next in 10m")
    clock.forward(seconds=1)
    says(program, "Resting until 08:00")
    clock.forward(hours=9, minutes=59, seconds=59)
    goes_on_saying(program, "Resting until 08:00")
    clock.forward(seconds=1)
    # Thirty seconds were used up in the evening.
    says(program, "Next in 10m")
    clock.forward(minutes=9, seconds=29)
    says(program, "Next in 1s")
    clock.forward(seconds=1)
    says(program, "Velmora")


def test_hours_that_run_overnight_include_midnight(berlin: Desktop):
    hours(berlin, minutes(22), minutes(6), intervalMinutes=60)
    clock = Clock(berlin, datetime(2026, 11, 23, 21, 59, 59, tzinfo=BERLIN))
    program = clock.run()
    goes_on_saying(program, "Resting until 22:00")
    clock.forward(seconds=1)
    says(program, "Next in 60m")
    for _ in range(7):
        clock.forward(hours=1)
        says(program, "Velmora")
        clock.forward(seconds=30)
        says(program, "Next in 60m")
    assert f"{clock.now:%a %H:%M:%S}" == "Tue 05:03:30"
    clock.forward(minutes=56, seconds=29)
    says(program, "Next in 4m")
    clock.forward(seconds=1)
    goes_on_saying(program, "Resting until 22:00")


def test_hours_whose_start_the_clock_leaps_over_begin_with_the_leap(berlin: Desktop):
    hours(berlin, minutes(2, 30), minutes(5))
    clock = Clock(berlin, datetime(2026, 3, 29, 1, 59, 59, tzinfo=BERLIN))
    program = clock.run()
    goes_on_saying(program, "Resting until 02:30")
    clock.forward(seconds=1)
    assert f"{clock.now:%H:%M}" == "03:00"
    goes_on_saying(program, "Next in 15m")
    clock.forward(hours=2)
    says(program, "Resting until 02:30")


def test_hours_whose_end_the_clock_leaps_over_end_with_the_leap(berlin: Desktop):
    hours(berlin, minutes(1), minutes(2, 30))
    clock = Clock(berlin, datetime(2026, 3, 29, 1, 59, 59, tzinfo=BERLIN))
    program = clock.run()
    goes_on_saying(program, "Next in 15m")
    clock.forward(seconds=1)
    goes_on_saying(program, "Resting until 01:00")


def test_hours_that_the_clock_runs_through_twice_are_active_twice(berlin: Desktop):
    hours(berlin, minutes(2, 30), minutes(3), intervalMinutes=45)
    clock = Clock(berlin, datetime(2026, 10, 25, 2, 29, 59, tzinfo=BERLIN))
    program = clock.run()
    goes_on_saying(program, "Resting until 02:30")
    clock.forward(seconds=1)
    says(program, "Next in 45m")
    clock.forward(minutes=29, seconds=59)
    says(program, "Next in 15m")
    clock.forward(seconds=1)
    assert f"{clock.now:%H:%M %Z}" == "02:00 CET"
    goes_on_saying(program, "Resting until 02:30")
    clock.forward(minutes=30)
    says(program, "Next in 15m")
    clock.forward(minutes=15)
    says(program, "Velmora")


@pytest.mark.parametrize("start", [datetime(2026, 3, 29, 1, 50, tzinfo=BERLIN),
                                   datetime(2026, 10, 25, 2, 50, tzinfo=BERLIN)], ids=["spring", "autumn"])
def test_the_change_of_the_clocks_makes_no_countdown_longer_or_shorter(berlin: Desktop, start: datetime):
    berlin.settings.write(intervalMinutes=20)
    clock = Clock(berlin, start)
    program = clock.run()
    says(program, "Next in 20m")
    before = clock.now.utcoffset()
    clock.forward(minutes=19, seconds=59)
    assert clock.now.utcoffset() != before
    goes_on_saying(program, "Next in 1s")
    clock.forward(seconds=1)
    says(program, "Velmora")


def test_a_time_zone_that_is_behind_takes_its_own_hours():
    with Desktop(timezone="America/New_York") as desktop:
        hours(desktop, minutes(8), minutes(9))
        clock = Clock(desktop, datetime(2026, 11, 23, 12, 59, 59, tzinfo=ZoneInfo("UTC")))
        program = clock.run()
        goes_on_saying(program, "Resting until 08:00")
        clock.forward(seconds=1)
        says(program, "Next in 15m")


def test_a_clock_set_forward_brings_what_fell_due_once_and_at_the_next_tick(berlin: Desktop):
    clock = Clock(berlin, datetime(2026, 11, 23, 9, 0, tzinfo=BERLIN))
    program = clock.run()
    says(program, "Next in 15m")
    with berlin.sound.listen() as ear:
        clock.forward(hours=5)
        says(program, "Velmora")
        wait_for(ear.sounds, 5, "the chime")
        watch(lambda: len(ear.sounds(gap=1.0)) == 1, 3, "one chime for all that was missed")
    clock.forward(seconds=29)
    goes_on_saying(program, "Velmora")
    clock.forward(seconds=1)
    says(program, "Next in 15m")


def test_a_clock_set_back_prolongs_the_countdown_and_shows_no_more_than_the_interval(berlin: Desktop):
    berlin.settings.write(intervalMinutes=15, heldRemaining=300.0)
    clock = Clock(berlin, datetime(2026, 11, 23, 9, 0, tzinfo=BERLIN))
    program = clock.run()
    says(program, "Next in 5m")
    clock.forward(hours=-2)
    goes_on_saying(program, "Next in 15m")
    clock.forward(hours=1, minutes=59)
    says(program, "Next in 6m")
    clock.forward(minutes=5, seconds=59)
    says(program, "Next in 1s")
    clock.forward(seconds=1)
    says(program, "Velmora")


def test_a_clock_set_back_prolongs_a_reminder(berlin: Desktop):
    clock = Clock(berlin, datetime(2026, 11, 23, 9, 0, tzinfo=BERLIN))
    program = clock.run()
    says(program, "Next in 15m")
    program.item.click("Velmora Now")
    says(program, "Velmora")
    clock.forward(minutes=-10)
    goes_on_saying(program, "Velmora")
    clock.forward(minutes=10, seconds=29)
    goes_on_saying(program, "Velmora")
    clock.forward(seconds=1)
    says(program, "Next in 15m")


def test_what_was_stored_under_a_clock_set_back_is_shown_within_the_interval(berlin: Desktop):
    berlin.settings.write(intervalMinutes=15, heldRemaining=300.0)
    clock = Clock(berlin, datetime(2026, 11, 23, 9, 0, tzinfo=BERLIN))
    program = clock.run()
    says(program, "Next in 5m")
    clock.forward(hours=-2)
    says(program, "Next in 15m")
    assert program.stop() == 0
    program = clock.run()
    goes_on_saying(program, "Next in 15m")
    clock.forward(minutes=15)
    says(program, "Velmora")


def test_a_night_of_sleep_brings_one_reminder_at_the_waking(berlin: Desktop):
    clock = Clock(berlin, datetime(2026, 11, 23, 22, 0, tzinfo=BERLIN))
    program = clock.run()
    says(program, "Next in 15m")
    berlin.logind.going_to_sleep()
    # A sleeping machine runs nothing, and its clock goes on.
    program.send(signal.SIGSTOP)
    clock.forward(hours=9)
    with berlin.sound.listen() as ear:
        program.send(signal.SIGCONT)
        berlin.logind.woke_up()
        says(program, "Velmora")
        wait_for(ear.sounds, 5, "the chime")
        watch(lambda: len(ear.sounds(gap=1.0)) == 1, 3, "one chime for the night")


def test_waking_ticks_at_once(berlin: Desktop):
    clock = Clock(berlin, datetime(2026, 11, 23, 9, 0, tzinfo=BERLIN))
    program = clock.run()
    says(program, "Next in 15m")
    took: list[float] = []
    # A busy machine may be late now and then, but an ordinary tick is never early.
    while not took or (took[-1] > 0.6 and len(took) < 10):
        clock.forward(minutes=14)
        wait_for(lambda: program.status_line == "Next in 1m", 3, "an ordinary tick", every=0.005)
        clock.forward(minutes=1)
        start = time.monotonic()
        berlin.logind.woke_up()
        says(program, "Velmora")
        took.append(time.monotonic() - start)
        berlin.pointer.click(*OrbHand(berlin, program).at(0, -20))
        says(program, "Next in 15m")
    assert took[-1] <= 0.6, took


def test_sleep_outside_the_active_hours_costs_no_reminder(berlin: Desktop):
    hours(berlin, minutes(8), minutes(22), heldRemaining=60.5)
    clock = Clock(berlin, datetime(2026, 11, 23, 21, 59, 30, tzinfo=BERLIN))
    program = clock.run()
    says(program, "Next in 1m")
    berlin.logind.going_to_sleep()
    clock.forward(hours=4)
    berlin.logind.woke_up()
    goes_on_saying(program, "Resting until 08:00")
    clock.set(datetime(2026, 11, 24, 8, 0, tzinfo=BERLIN))
    # It had fallen due while the machine slept, and comes as soon as reminders do.
    says(program, "Velmora")
