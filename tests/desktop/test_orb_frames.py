"""The orb's frames: how many there are, and that there are none when nobody can see them."""

import time

import pytest
from gi.repository import GLib

from Xlib.ext import damage

from harness import Desktop, wait_for
from harness.x11 import open_display
from orb_hand import OrbHand

SAVER = "org.freedesktop.ScreenSaver"


class Frames:
    """Counts what a program draws into its window, from a connection of its own."""

    def __init__(self, desktop: Desktop, window: int):
        self._display = open_display(desktop.display_server.name)
        self._display.damage_query_version()
        resource = self._display.create_resource_object("window", window)
        self._damage = resource.damage_create(damage.DamageReportNonEmpty)
        self._display.sync()

    def __enter__(self) -> "Frames":
        return self

    def __exit__(self, *_exception) -> None:
        self._display.close()

    def within(self, seconds: float) -> int:
        """How many frames were drawn in that time; what came before is forgotten."""
        self._drain()
        count, start = 0, time.monotonic()
        while time.monotonic() < start + seconds:
            count += self._drain()
            time.sleep(0.002)
        # On a busy machine it takes longer.
        self.seconds = time.monotonic() - start
        return count

    def pace(self) -> float:
        """Frames a second, seen for three seconds; the one that was under way is not counted."""
        return (self.within(3) - 1) / self.seconds

    def stand_still(self) -> bool:
        """Whether no frame at all was drawn for longer than a busy machine keeps one waiting."""
        return self.within(2) == 0

    def _drain(self) -> int:
        count = 0
        while self._display.pending_events():
            self._display.next_event()
            count += 1
        if count:
            self._display.damage_subtract(self._damage)
            self._display.sync()
        return 1 if count else 0


@pytest.fixture(scope="module")
def desktop() -> Desktop:
    with Desktop(tray="none", sound="none") as brought_up:
        yield brought_up


@pytest.fixture
def orb(desktop: Desktop) -> OrbHand:
    orb = OrbHand(desktop, desktop.run())
    yield orb
    orb.program.stop()


def test_it_draws_at_most_thirty_frames_a_second(desktop: Desktop, orb: OrbHand):
    with Frames(desktop, orb.window.id) as frames:
        wait_for(lambda: 20 <= frames.pace() <= 30, 5, "thirty frames a second, or a few less")
        assert frames.pace() <= 30


def test_with_reduced_motion_it_draws_eight_frames_a_second(desktop: Desktop, orb: OrbHand):
    desktop.xsettings.enable_animations(False)
    try:
        with Frames(desktop, orb.window.id) as frames:
            wait_for(lambda: 6 <= frames.pace() <= 8, 5, "eight frames a second, or a few less")
            assert frames.pace() <= 8
    finally:
        desktop.xsettings.enable_animations(True)


def test_a_locked_session_sees_no_frames(desktop: Desktop, orb: OrbHand):
    with Frames(desktop, orb.window.id) as frames:
        desktop.session_bus.emit("/ScreenSaver", SAVER, "ActiveChanged", GLib.Variant("(b)", (True,)))
        wait_for(frames.stand_still, 3, "the last frame")
        before = orb.program.cost()
        assert frames.stand_still()
        # Frames would make it sixty and more.
        assert orb.program.cost().since(before).switches <= 30
        desktop.session_bus.emit("/ScreenSaver", SAVER, "ActiveChanged", GLib.Variant("(b)", (False,)))
        wait_for(lambda: frames.within(0.3) > 3, 1, "frames again")


def test_a_session_that_the_login_manager_calls_locked_sees_no_frames(desktop: Desktop):
    desktop.logind.open_session()
    orb = OrbHand(desktop, desktop.run())
    with Frames(desktop, orb.window.id) as frames:
        for _ in range(2):
            wait_for(lambda: frames.within(0.3) > 3, 4, "frames")
            desktop.logind.lock(True)
            wait_for(frames.stand_still, 3, "the last frame")
            desktop.logind.lock(False)
        wait_for(lambda: frames.within(0.3) > 3, 4, "frames again")
        # One that starts in a locked session asks, and the orb stands still from the start.
        orb.program.stop()
    desktop.logind.lock(True)
    orb = OrbHand(desktop, desktop.run())
    with Frames(desktop, orb.window.id) as frames:
        wait_for(frames.stand_still, 3, "the last frame")
        desktop.logind.lock(False)
        wait_for(lambda: frames.within(0.3) > 3, 4, "frames once it is unlocked")
    orb.program.stop()


def test_a_blanked_display_shows_no_frames(desktop: Desktop, orb: OrbHand):
    with Frames(desktop, orb.window.id) as frames:
        desktop.processes.run(["xset", "s", "activate"])
        wait_for(frames.stand_still, 5, "the last frame")
        desktop.processes.run(["xset", "s", "reset"])
        wait_for(lambda: frames.within(0.3) > 3, 4, "frames again")
