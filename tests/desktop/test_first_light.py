"""The program's main job, from its start to its end, on an ordinary desktop."""

import signal
import time
from datetime import datetime, timedelta, timezone

import pytest

from harness import Desktop, Program, Rectangle, wait_for, watch
from harness.screenshots import palette_worn
from harness.x11 import Window

ALREADY_RUNNING = "Velmora: already running — bringing it forward.\n"


def test_a_reminder_comes_is_heard_is_clicked_away_and_survives_a_kill(desktop: Desktop):
    desktop.settings.write(intervalMinutes=2, heldRemaining=10.0)
    with desktop.sound.listen() as ear:
        program = desktop.run()
        seconds = _countdown_until_the_reminder(program)
        reminded = time.monotonic()
        assert seconds == sorted(seconds, reverse=True) and len(seconds) >= 4 and seconds[0] <= 10

        orb = program.wait_for_orb()
        _wait_for_palette(desktop, program, "reminding")
        wait_for(lambda: ear.peak(since=reminded - 1) > -40, 2, "the chime")
        assert ear.peak() < -6, "the chime is no louder than its file at the chosen volume"
        assert len(ear.sounds(gap=1.0)) == 1, "one reminder, one chime"
        assert abs(ear.sounds()[0][0].when - reminded) < 2.0, "it sounds when the reminder starts"

        _click_on(desktop, orb)
        clicked = time.monotonic()
        program.wait_for_status("Next in 2m", 2)
        _wait_for_palette(desktop, program, "active")
        watch(lambda: len(ear.sounds(gap=1.0)) == 1, 1.0, "the click is silent")
    assert clicked - reminded < 15, "it was the click that ended it, not the thirty seconds"

    wait_for(lambda: program.settings.read().get("heldRemaining", 0) > 60, 2, "the countdown saved")
    program.kill()
    left = 120 - (time.monotonic() - clicked)
    again = desktop.run()
    again.wait_for_status("Next in 2m", 5)
    assert again.stop() == 0
    assert abs(again.settings.read()["heldRemaining"] - left) < 60
    assert program.errors == again.errors == ""


def test_a_reminder_that_nobody_clicks_ends_by_itself_after_thirty_seconds():
    with Desktop() as desktop:
        program = desktop.run("--preview")
        program.wait_for_status("Velmora", 10)
        started = time.monotonic()
        program.wait_for_status("Next in 15m", 35)
        assert time.monotonic() - started == pytest.approx(30, abs=2.5)


def test_the_menu_tells_the_state_follows_it_and_acts(desktop: Desktop):
    desktop.settings.write(intervalMinutes=2, heldRemaining=50.0)
    program = desktop.run()
    program.wait_for_status("Next in", 10)
    rows = program.item.open_menu()
    assert [None if row.separator else row.text for row in rows[1:]] == [
        None, "Pause Reminders", "Velmora Now", None, "Settings…", None, "Quit Velmora"]
    assert rows[0].text.startswith("Next in ") and rows[0].text.endswith("s")
    assert [row.enabled for row in rows if not row.separator] == [False, True, True, True, True]

    wait_for(lambda: len({text for number, text in program.item.row_changes
                          if number == rows[0].number}) >= 2, 5, "the open menu's first row to follow")
    program.item.close_menu()

    program.item.click("Pause Reminders")
    program.wait_for_status("Paused", 2)
    _wait_for_palette(desktop, program, "paused")
    assert program.item.open_menu()[2].text == "Resume Reminders"
    program.item.close_menu()
    program.item.click("Resume Reminders")
    program.wait_for_status("Next in", 2)
    program.item.click("Velmora Now")
    program.wait_for_status("Velmora", 2)
    program.item.click("Quit Velmora")
    assert program.wait() == 0


def test_settings_survive_a_restart(desktop: Desktop):
    desktop.settings.write(intervalMinutes=20, heldRemaining=440.0, soundVolume=0.4)
    program = desktop.run()
    program.wait_for_status("Next in 7m", 10)
    program.item.click("Pause Reminders")
    program.wait_for_status("Paused", 2)
    assert program.stop() == 0
    stored = program.settings.read()
    assert stored["paused"] is True and stored["intervalMinutes"] == 20
    assert stored["soundVolume"] == 0.4 and 300 < stored["heldRemaining"] <= 440

    again = desktop.run()
    again.wait_for_status("Paused", 10)
    again.item.click("Resume Reminders")
    again.wait_for_status("Next in 7m", 2)


@pytest.mark.parametrize("number", [signal.SIGTERM, signal.SIGINT, signal.SIGHUP])
def test_ending_signals_save_and_leave_with_status_0(number: signal.Signals):
    with Desktop(sound="none") as desktop:
        desktop.settings.write(intervalMinutes=15, heldRemaining=800.0)
        program = desktop.run()
        program.wait_for_status("Next in 13m", 10)
        started = time.monotonic()
        wait_for(lambda: time.monotonic() - started > 1.2, 2, "some of the countdown to pass")
        assert program.stop(number) == 0
        assert 700 < program.settings.read()["heldRemaining"] < 799
        assert program.errors == ""


def test_a_second_launch_hands_its_request_over_and_leaves():
    with Desktop() as desktop:
        program = desktop.run()
        program.wait_for_status("Next in 15m", 10)
        lock = desktop.home / "Library/Application Support/Velmora/instance.lock"
        assert lock.read_text().splitlines()[0] == str(program.pid)

        second = desktop.run()
        assert (second.wait(), second.errors) == (0, ALREADY_RUNNING)
        watch(lambda: program.status_line == "Next in 15m", 1.0, "a plain launch changes nothing")

        # Even a launch that finds no display reaches the one that runs.
        third = desktop.run("--preview", environment={"DISPLAY": ":987"})
        assert (third.wait(), third.errors) == (0, ALREADY_RUNNING)
        program.wait_for_status("Velmora", 2)
        assert program.running and program.errors == ""


@pytest.mark.parametrize("display", [None, "", ":987"], ids=["unset", "empty", "stale"])
def test_without_a_display_it_says_so_in_one_sentence(display: str | None):
    with Desktop(display=False, sound="none") as desktop:
        program = desktop.run(environment={} if display is None else {"DISPLAY": display})
        assert program.wait() == 1
        assert program.errors.count("\n") == 1 and program.errors.endswith(".\n")
        assert "display" in program.errors


def test_only_the_orb_takes_clicks_and_its_corners_let_them_through(desktop: Desktop):
    scale = desktop.scale
    letter = desktop.window("Beneath", Rectangle(800 * scale, 380 * scale, 440 * scale, 400 * scale))
    program = desktop.run()
    place = program.wait_for_orb().place
    inset = 4 * scale
    corners = [(place.x + inset, place.y + inset),
               (place.x + place.width - 1 - inset, place.y + inset),
               (place.x + inset, place.y + place.height - 1 - inset)]
    for count, corner in enumerate(corners, start=1):
        desktop.pointer.click(*corner)
        wait_for(lambda: len(letter.presses()) == count, 2, f"the press at {corner} to go through")
    desktop.pointer.click(*place.centre)
    desktop.pointer.click(*corners[0])
    wait_for(lambda: len(letter.presses()) == 4, 2, "the last press to go through")
    corner, last = letter.presses()[0], letter.presses()[-1]
    assert corner == last, "the press on the orb itself did not go through"


def test_the_orb_floats_in_its_corner_at_its_size_above_other_windows(desktop: Desktop):
    scale = desktop.scale
    letter = desktop.window("Beneath", Rectangle(700 * scale, 300 * scale, 560 * scale, 440 * scale))
    program = desktop.run()
    orb = program.wait_for_orb()
    # The default place: 28 points from the right edge, 36 above the lower one.
    assert orb.place == Rectangle((1280 - 128 - 28) * scale, (800 - 128 - 36) * scale,
                                  128 * scale, 128 * scale)
    _wait_for_palette(desktop, program, "active")
    beneath = letter.window()
    desktop.pointer.click(beneath.place.x + 20, beneath.place.y + 20)
    wait_for(lambda: letter.presses(), 2, "the window beneath to be clicked")
    watch(lambda: _palette(desktop, program) == "active", 0.5, "the orb is not covered by it")


def test_the_orb_breathes(desktop: Desktop):
    program = desktop.run()
    place = program.wait_for_orb().place
    _wait_for_palette(desktop, program, "active")
    first = desktop.x11.pixels(place)
    wait_for(lambda: (desktop.x11.pixels(place) != first).any(axis=2).mean() > 0.02, 3, "the orb to move")


def test_outside_the_active_hours_it_rests_until_they_begin(desktop: Desktop):
    begins = datetime.now(timezone.utc) + timedelta(hours=2)
    start = begins.hour * 60 + begins.minute
    desktop.settings.write(allDay=False, startMinutes=start, endMinutes=(start + 60) % 1440)
    program = desktop.run()
    program.wait_for_status(f"Resting until {begins:%H:%M}", 10)
    assert program.status_line == f"Resting until {begins:%H:%M}"
    _wait_for_palette(desktop, program, "resting")


def _countdown_until_the_reminder(program: Program) -> list[int]:
    """The seconds that the status line shows, in order and each once, until the reminder starts."""
    lines: list[str] = []

    def reminding() -> bool:
        line = program.status_line
        if line and (not lines or lines[-1] != line):
            lines.append(line)
        return line == "Velmora"

    wait_for(reminding, 30, "the reminder")
    return [int(line.removeprefix("Next in ").removesuffix("s")) for line in lines[:-1]]


def _click_on(desktop: Desktop, orb: Window) -> None:
    desktop.pointer.click(orb.place.centre[0], orb.place.y + int(orb.place.height * 0.4))


def _palette(desktop: Desktop, program: Program) -> str | None:
    orb = program.orb()
    return palette_worn(desktop.x11.pixels(orb.place)) if orb else None


def _wait_for_palette(desktop: Desktop, program: Program, palette: str) -> None:
    wait_for(lambda: _palette(desktop, program) == palette, 3, f"the {palette} palette")
