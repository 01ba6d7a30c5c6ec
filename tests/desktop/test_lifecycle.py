"""From launch to end: saving, sleeping, waking, and every way in which a run ends."""

import signal
import subprocess
from pathlib import Path

import pytest

from harness import Desktop, Head, in_time, wait_for, watch
from harness.processes import ProcessId
from harness.status_item import find
from saves import run_past_a_save, saved_again

# Seconds that the login manager waits for programs before the machine sleeps.
PROMPT = 5.0
INHIBITORS = ("org.freedesktop.login1", "/org/freedesktop/login1",
              "org.freedesktop.login1.Manager", "ListInhibitors")


@pytest.fixture
def plain() -> Desktop:
    with Desktop() as desktop:
        yield desktop


@pytest.mark.parametrize("number", [signal.SIGTERM, signal.SIGINT, signal.SIGHUP])
def test_the_ending_signals_save_and_leave_with_status_0(plain, number):
    program = plain.run()
    program.wait_for_orb()
    program.item.click("Pause Reminders")
    program.wait_for_status("Paused", 3)
    assert program.stop(number) == 0
    saved = plain.settings.read()
    assert saved["paused"] is True and 800 < saved["heldRemaining"] <= 900
    assert program.errors == ""


def test_an_ending_signal_ends_the_program_with_its_settings_open(plain):
    program = plain.run("--settings")
    wait_for(lambda: len(program.windows()) == 2, 5, "the settings panel")
    assert program.stop() == 0
    assert "heldRemaining" in plain.settings.read()


def holds_the_lock(desktop, program) -> bool:
    lock = desktop.home / "Library/Application Support/Velmora/instance.lock"
    return lock.exists() and lock.read_text().startswith(f"{program.pid}\n")


def has_loaded(program, library: str) -> bool:
    return library in Path(f"/proc/{program.pid}/maps").read_text()


# What can be seen of a start from outside, in its order.
STEPS_OF_A_START = {
    "the lock": holds_the_lock,
    "the toolkit's way to the display": lambda desktop, program: has_loaded(program, "libqxcb"),
    "the name on the session bus": lambda desktop, program: program.pid in [
        desktop.session_bus.pid_of(name) for name in desktop.session_bus.names()],
    "the first window": lambda desktop, program: program.windows(),
    "the status item": lambda desktop, program: find(desktop.session_bus, program.pid),
}


def test_a_signal_right_at_the_start_is_no_accident(plain):
    for name, reached in STEPS_OF_A_START.items():
        program = plain.run()
        wait_for(lambda reached=reached, program=program: reached(plain, program), 10, name, every=0.001)
        assert program.stop() == 0, name
        assert program.errors == ""


def test_quit_in_the_menu_saves(plain):
    program = plain.run()
    program.wait_for_orb()
    program.item.click("Quit Velmora")
    assert program.wait() == 0
    assert "heldRemaining" in plain.settings.read()


def test_a_display_server_that_goes_away_costs_nothing(plain):
    program, held = run_past_a_save(plain)
    plain.display_server.process.kill()
    assert program.wait() == 0
    assert saved_again(plain, held)
    assert program.errors == ""


def test_a_killed_program_loses_at_most_a_minute(plain):
    plain.settings.write(intervalMinutes=15, heldRemaining=300.4)
    program = plain.run()
    program.wait_for_status("Next in 5m", 5)
    # The minute changes a moment after the start, and is on the disk within a second.
    wait_for(lambda: plain.settings.read().get("widgetSize") is not None
             and plain.settings.read()["heldRemaining"] < 300.4, 5, "the countdown on the disk")
    program.kill()
    assert 240 < plain.settings.read()["heldRemaining"] <= 300.4


def test_the_program_goes_on_where_it_was_ended(plain):
    plain.settings.write(intervalMinutes=15, heldRemaining=125.0)
    program = plain.run()
    program.wait_for_status("Next in 2m", 5)
    assert program.stop() == 0
    held = plain.settings.read()["heldRemaining"]
    assert 90 < held <= 125
    program = plain.run()
    program.wait_for_status("Next in 2m", 5)
    program.kill()


def held_back(desktop) -> list[tuple]:
    """What keeps the machine from sleeping at once, as far as it is the program."""
    return [entry[:4:3] for entry in desktop.system_bus.call(*INHIBITORS)[0] if entry[1] == "Velmora"]


def test_the_machine_waits_for_the_save_and_no_longer(plain):
    program = plain.run()
    program.wait_for_orb()
    wait_for(lambda: held_back(plain) == [("sleep", "delay")], 3, "the machine held back")
    plain.logind.going_to_sleep()
    in_time(lambda: not held_back(plain), PROMPT, "the machine free to sleep")
    assert "heldRemaining" in plain.settings.read()
    plain.logind.woke_up()
    in_time(lambda: held_back(plain) == [("sleep", "delay")], PROMPT, "the machine held back again")
    assert program.stop() == 0
    wait_for(lambda: not held_back(plain), 1, "the machine free after the end")


def test_going_to_sleep_saves_at_once_and_waking_goes_on(plain):
    program, held = run_past_a_save(plain)
    plain.logind.going_to_sleep()
    in_time(lambda: saved_again(plain, held), PROMPT, "the save")
    plain.logind.woke_up()
    watch(lambda: program.running and program.status_line.startswith("Next in 10m"), 1,
          "the countdown going on")


def test_waking_brings_the_orb_forward(plain):
    program = plain.run()
    orb = program.wait_for_orb()
    cover = plain.processes.start("cover", [
        "/usr/bin/python3", "-c",
        "import gi; gi.require_version('Gtk', '3.0')\n"
        "from gi.repository import Gtk\n"
        "window = Gtk.Window(type=Gtk.WindowType.POPUP)\n"
        f"window.move({orb.place.x}, {orb.place.y}); window.set_default_size(200, 200)\n"
        "window.show_all(); Gtk.main()\n"])

    def covered() -> bool:
        stack = [window.id for window in plain.x11.windows() if window.place.width > 50]
        return stack[-1] != orb.id

    wait_for(covered, 5, "the orb to be covered")
    plain.logind.woke_up()
    wait_for(lambda: not covered(), 2, "the orb in front")
    plain.processes.end(cover)


def test_a_login_manager_that_restarts_is_no_harm(plain):
    program = plain.run()
    program.wait_for_orb()
    plain.processes.end(plain.logind.process)
    watch(lambda: program.running, 0.5, "the program running")
    assert program.stop() == 0


def test_without_a_login_manager_the_program_runs_and_saves():
    with Desktop(logind=False) as desktop:
        program = desktop.run()
        program.wait_for_orb()
        assert program.stop() == 0
        assert program.errors == ""
        assert "heldRemaining" in desktop.settings.read()


def test_a_login_starts_it_and_a_logout_saves_and_ends_it(plain):
    plain.settings.write(openAtLogin=True, heldRemaining=500.0)
    program = plain.run()
    program.wait_for_orb()
    assert program.stop() == 0
    before = plain.settings.read()["heldRemaining"]

    session = plain.processes.start("session", ["xfce4-session"],
                                    environment={"XDG_CONFIG_DIRS": str(plain.folder)})
    orb = wait_for(lambda: next((w for w in plain.x11.windows() if w.title == "Velmora"), None), 15,
                   "the orb of the program that the session started")
    process = ProcessId.of(orb.pid)
    assert b"SESSION_MANAGER=" in Path(f"/proc/{orb.pid}/environ").read_bytes()
    plain.processes.run(["xfce4-session-logout", "--logout", "--fast"])
    wait_for(lambda: not process.alive(), 10, "the program to end with the session")
    wait_for(lambda: session.poll() is not None, 10, "the session to end")
    # A session leaves its socket behind.
    Path(f"/tmp/.ICE-unix/{session.pid}").unlink(missing_ok=True)
    assert plain.settings.read()["heldRemaining"] < before


def test_no_display_at_all_is_said_in_one_sentence():
    with Desktop(display=False) as desktop:
        program = desktop.run()
        assert program.wait() == 1
        assert program.errors == "Velmora: no display can be reached.\n"


def test_unplugging_the_display_that_held_the_orb_brings_it_onto_the_other(plain):
    plain.display_server.plug(1, Head(1024, 768, x=1280))
    program = plain.run()
    program.wait_for_orb()
    program.stop()
    saved = plain.settings.read()
    size = saved["widgetSize"]
    plain.settings.write(**{**saved, "hasSavedOrigin": True, "widgetOriginX": 1700.0,
                            "widgetOriginY": 300.0})
    program = plain.run()
    orb = program.wait_for_orb()
    assert orb.place.x == 1700
    plain.display_server.unplug(1)
    wait_for(lambda: program.orb() and program.orb().place.x + size <= 1280 + size * 0.55, 5,
             "the orb on the display that is left")
    place = program.orb().place
    wait_for(lambda: plain.settings.read()["widgetOriginX"] == place.x, 3, "the new place saved")
    assert program.stop() == 0


def test_closing_the_settings_does_not_quit(plain):
    program = plain.run("--settings")
    panel = wait_for(lambda: next((w for w in program.windows() if not w.override_redirect), None),
                     5, "the settings panel")
    subprocess.run(["wmctrl", "-i", "-c", hex(panel.id)], env=plain.environment, check=True)
    wait_for(lambda: len(program.windows()) == 1, 3, "the settings closed")
    watch(lambda: program.running, 0.5, "the program running")
