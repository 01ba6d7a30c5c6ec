"""The world around the program going away while it runs, and coming back."""

import resource
from collections.abc import Iterator
from pathlib import Path

import pytest
from gi.repository import GLib

from harness import Desktop, wait_for
from harness.bus import Bus
from harness.screenshots import palette_worn

GIVES_WAY = "Velmora: already running — bringing it forward.\n"


@pytest.fixture
def plain() -> Iterator[Desktop]:
    with Desktop() as desktop:
        yield desktop


# Of a bus that goes in the middle of a call its own library has something to say, so that nothing but
# the program's own lines can be looked for on its standard error.


def wears(desktop: Desktop, program, palette: str) -> bool:
    orb = program.orb()
    return bool(orb) and palette_worn(desktop.x11.pixels(orb.place)) == palette


def test_a_display_server_that_is_killed_leaves_saved_settings_and_no_core(plain):
    before = resource.getrlimit(resource.RLIMIT_CORE)
    resource.setrlimit(resource.RLIMIT_CORE, (before[1], before[1]))
    try:
        program = plain.run("--preview")
    finally:
        resource.setrlimit(resource.RLIMIT_CORE, before)
    program.wait_for_status("Velmora", 5)
    plain.display_server.process.kill()
    # The status of a process that dumps its core is the signal's.
    assert program.wait(20) == 0 and program.errors == ""
    assert 880 < plain.settings.read()["heldRemaining"] <= 900
    assert not list(plain.folder.glob("core*"))


def test_a_session_bus_that_goes_and_returns_costs_neither_time_nor_settings(plain):
    plain.settings.write(intervalMinutes=2, heldRemaining=4.0)
    program = plain.run()
    program.wait_for_orb()
    program.item
    plain.session_bus.close()
    plain.processes.end(plain.session_bus.process)
    wait_for(lambda: wears(plain, program, "reminding"), 10, "the reminder without a bus")
    second = plain.run()
    assert second.wait(20) == 0 and second.errors == GIVES_WAY
    bus = Bus(plain.processes, "session")
    bus.wait()
    second = plain.run("--settings")
    assert second.wait(20) == 0 and second.errors == GIVES_WAY
    plain.pointer.click(*program.orb().place.centre)
    wait_for(lambda: wears(plain, program, "active"), 10, "the reminder ended by a click")
    bus.emit("/com/local/velmora", "com.local.velmora", "focus", GLib.Variant("(a{sv})", ({},)))
    assert program.stop() == 0 and "Velmora" not in program.errors
    assert 30 < plain.settings.read()["heldRemaining"] <= 120
    bus.close()


def test_everything_around_it_goes_at_once_and_it_reminds_and_saves(plain):
    plain.settings.write(intervalMinutes=2, heldRemaining=4.0)
    program = plain.run()
    program.wait_for_orb()
    program.item
    descriptors = len(list(Path(f"/proc/{program.pid}/fd").iterdir()))
    for connection in (plain.session_bus, plain.system_bus):
        connection.close()
    for process in (plain.logind.process, plain.system_bus.process, plain.session_bus.process):
        plain.processes.end(process)
    plain.sound.stop()
    wait_for(lambda: wears(plain, program, "reminding"), 10, "the reminder without anybody else")
    wait_for(lambda: len(list(Path(f"/proc/{program.pid}/fd").iterdir())) <= descriptors, 20,
             "no more descriptors than before")
    assert program.stop() == 0 and "Velmora" not in program.errors
    assert 30 < plain.settings.read()["heldRemaining"] <= 120
