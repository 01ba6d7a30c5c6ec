"""Starting the program: one instance, the focus request, the lock file."""

import os
import shlex
import subprocess
import time

import pytest
from gi.repository import GLib

from harness import Desktop, program_path, wait_for, watch
from harness.waiting import PATIENCE

GIVES_WAY = "Velmora: already running — bringing it forward.\n"
LOCK = "Library/Application Support/Velmora/instance.lock"


@pytest.fixture
def plain() -> Desktop:
    with Desktop() as desktop:
        yield desktop


def requests_on(bus) -> list[dict]:
    """Every focus request that passes over the bus from now on."""
    heard: list[dict] = []
    bus.listen("com.local.velmora", "focus", lambda path, arguments: heard.append(arguments[0]),
               path="/com/local/velmora")
    return heard


def windows_above(desktop, program) -> list:
    windows = desktop.x11.windows()
    orb = next(i for i, window in enumerate(windows) if window.id == program.orb().id)
    return [window.title for window in windows[orb + 1:] if window.place.width > 50]


def test_a_launch_is_quiet_and_holds_the_lock(plain):
    program = plain.run()
    program.wait_for_orb()
    lock = plain.home / LOCK
    assert lock.read_text() == f"{program.pid}\n"
    assert lock.stat().st_mode & 0o777 == 0o644
    assert program.errors == ""


def test_a_second_launch_says_so_asks_three_times_and_exits_with_0(plain):
    first = plain.run()
    first.wait_for_orb()
    heard = requests_on(plain.session_bus)
    start = time.monotonic()
    second = plain.run()
    assert second.wait() == 0
    assert time.monotonic() - start >= 0.36
    assert second.errors == GIVES_WAY
    wait_for(lambda: len(heard) >= 3, 2, "the requests")
    watch(lambda: len(heard) == 3, 0.3, "three requests")
    assert heard == [{"settings": False, "preview": False}] * 3
    assert first.running and first.errors == ""


def test_a_second_launch_brings_the_orb_forward_and_changes_nothing_else(plain):
    first = plain.run()
    orb = first.wait_for_orb()
    first.item
    before = first.status_line
    # Another window of the orb's own kind may cover it.
    cover = plain.processes.start("cover", [
        "/usr/bin/python3", "-c",
        "import gi; gi.require_version('Gtk', '3.0')\n"
        "from gi.repository import Gtk\n"
        "window = Gtk.Window(type=Gtk.WindowType.POPUP)\n"
        f"window.move({orb.place.x}, {orb.place.y}); window.set_default_size(200, 200)\n"
        "window.show_all(); Gtk.main()\n"])
    wait_for(lambda: windows_above(plain, first), 5, "the orb to be covered")
    assert plain.run().wait() == 0
    wait_for(lambda: not windows_above(plain, first), 2, "the orb above the cover")
    assert first.status_line[:4] == before[:4] and len(first.windows()) == 1
    plain.processes.end(cover)


def test_a_second_launch_shows_the_settings_of_the_first_and_leaves_them_shown(plain):
    first = plain.run()
    first.wait_for_orb()
    assert plain.run("--settings").wait() == 0
    wait_for(lambda: len(first.windows()) == 2, 3, "the settings panel")
    assert plain.run("--settings").wait() == 0
    watch(lambda: len(first.windows()) == 2, 0.5, "the settings panel shown")


def test_a_second_launch_starts_a_reminder_in_the_first(plain):
    first = plain.run()
    first.wait_for_orb()
    with plain.sound.listen() as ear:
        assert plain.run("--preview").wait() == 0
        first.wait_for_status("Velmora", 3)
        # Each of the three requests starts the reminder, and so the chime, from the beginning.
        wait_for(lambda: ear.sounds(), 3, "the chime")


def test_both_flags_are_passed_on_and_what_only_resembles_them_is_not(plain):
    plain.run().wait_for_orb()
    heard = requests_on(plain.session_bus)
    for arguments in (["--preview", "--settings"], ["--settings=1", "--previews", "-settings"]):
        assert plain.run(*arguments).wait() == 0
    wait_for(lambda: len(heard) >= 6, 2, "the requests")
    assert heard == [{"settings": True, "preview": True}] * 3 + \
        [{"settings": False, "preview": False}] * 3


def test_the_first_launch_honours_both_flags_settings_first(plain):
    start = time.monotonic()
    program = plain.run("--preview", "--settings")
    program.wait_for_status("Velmora", 5)
    assert time.monotonic() - start >= 0.35
    # Asked of the program itself, for a window manager may be slow to show a window.
    assert program.accessible.find(role="dialog"), "the settings, before the reminder"
    wait_for(lambda: len(program.windows()) == 2, 5, "the settings panel")


def test_a_second_launch_needs_no_display_and_no_bus():
    with Desktop() as desktop:
        first = desktop.run()
        first.wait_for_orb()
        heard = requests_on(desktop.session_bus)
        blind = desktop.run(environment={"DISPLAY": "", "WAYLAND_DISPLAY": ""})
        assert blind.wait() == 0 and blind.errors == GIVES_WAY
        wait_for(lambda: len(heard) == 3, 2, "the requests of a launch without a display")
        start = time.monotonic()
        deaf = desktop.run(environment={
            "DBUS_SESSION_BUS_ADDRESS": f"unix:path={desktop.folder}/no-bus"})
        assert deaf.wait() == 0 and deaf.errors == GIVES_WAY
        # The library would wait 25 seconds for an answer.
        assert time.monotonic() - start < 10
        assert first.running


def test_without_a_session_bus_the_lock_still_decides():
    with Desktop(session_bus=False, tray="none") as desktop:
        first = desktop.run()
        first.wait_for_orb()
        second = desktop.run("--settings")
        assert second.wait() == 0 and second.errors == GIVES_WAY
        assert first.running
        assert first.stop() == 0
        assert first.errors == ""


def test_fifty_launches_at_once_leave_exactly_one_running():
    with Desktop() as desktop:
        programs = [desktop.run() for _ in range(50)]
        wait_for(lambda: sum(program.running for program in programs) == 1, 60, "one to be left")
        survivor = next(program for program in programs if program.running)
        survivor.wait_for_orb()
        for program in programs:
            if program is not survivor:
                assert program.process.returncode == 0 and program.errors == GIVES_WAY
        assert survivor.errors == ""
        watch(lambda: survivor.running, 0.5, "the survivor running")
        orbs = [window for window in desktop.x11.windows() if window.title == "Velmora"]
        assert len(orbs) == 1


def test_a_stale_lock_file_does_not_stand_in_the_way(plain):
    lock = plain.home / LOCK
    lock.parent.mkdir(parents=True)
    lock.write_text("12345678901234\n")
    program = plain.run()
    program.wait_for_orb()
    content = lock.read_text()
    assert content.splitlines()[0] == str(program.pid)
    assert content == f"{program.pid}\n" + "12345678901234\n"[len(f"{program.pid}\n"):]


def test_a_killed_program_frees_the_lock(plain):
    first = plain.run()
    first.wait_for_orb()
    first.kill()
    second = plain.run()
    second.wait_for_orb()
    assert second.running


def test_a_lock_that_cannot_be_taken_makes_the_program_give_way(plain):
    (plain.home / "Library").write_text("a file in the way")
    program = plain.run()
    assert program.wait() == 0 and program.errors == GIVES_WAY


def test_nothing_that_anyone_sends_disturbs_the_program(plain):
    program = plain.run()
    program.wait_for_orb()
    program.item
    bus = plain.session_bus
    path, name = "/com/local/velmora", "com.local.velmora"
    for arguments in (
            None,
            GLib.Variant("(s)", ("x" * 5_000_000,)),
            GLib.Variant("(a{sv})", ({f"key {i}": GLib.Variant("s", "x" * 40)
                                      for i in range(50_000)},)),
            GLib.Variant("(a{ss})", ({"settings": "true"},)),
            GLib.Variant("(a{sv})", ({"settings": GLib.Variant("i", 1)},)),
            GLib.Variant("(bb)", (True, True)),
            GLib.Variant("(v)", (GLib.Variant("a{sv}", {"settings": GLib.Variant("b", True)}),))):
        bus.emit(path, name, "focus", arguments)
    watch(lambda: program.running and len(program.windows()) == 1, 1, "the program undisturbed")
    bus.emit(path, name, "focus", GLib.Variant("(a{sv})", ({"settings": GLib.Variant("b", True)},)))
    wait_for(lambda: len(program.windows()) == 2, 3, "the settings after a proper request")


def test_help_and_version_answer_and_touch_nothing(plain):
    for argument, expected in (("--help", "--settings"), ("--version", "Velmora 0.")):
        done = subprocess.run([program_path(), argument], env=plain.environment,
                              capture_output=True, text=True, timeout=PATIENCE)
        assert done.returncode == 0 and expected in done.stdout and done.stderr == ""
    assert not (plain.home / LOCK).exists()


def test_unknown_arguments_are_ignored(plain):
    program = plain.run("--unknown", "file", "-x")
    program.wait_for_orb()
    watch(lambda: len(program.windows()) == 1, 0.6, "nothing but the orb")
    assert program.errors == ""


def test_closed_standard_streams_do_no_harm(plain):
    lock = plain.home / LOCK
    closed = plain.folder / "closed"
    closed.write_text(f"#!/bin/sh\nexec {shlex.quote(str(program_path()))} <&- >&- 2>&-\n")
    closed.chmod(0o755)
    first = plain.run(path=closed)
    first.wait_for_orb()
    # What is said goes nowhere, instead of into a file that was given one of the free numbers.
    assert [os.readlink(f"/proc/{first.pid}/fd/{number}") for number in range(3)] == ["/dev/null"] * 3
    assert plain.run(path=closed).wait() == 0
    assert lock.read_text() == f"{first.pid}\n"
    assert first.stop() == 0
