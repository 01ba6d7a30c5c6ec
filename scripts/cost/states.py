"""What the program can be doing while it is measured."""

import time
from collections.abc import Callable, Iterator
from contextlib import contextmanager
from pathlib import Path

from gi.repository import GLib

from harness.desktop import Desktop
from harness.program import Program
from harness.waiting import wait_for

# Fades and the one-second tick are over by then.
_SETTLED = 1.5


class Subject:
    """The program on a desktop, at one size, in one state after the other."""

    def __init__(self, desktop: Desktop, path: Path, size: int):
        self._desktop = desktop
        # Far from the last minute of a countdown.
        desktop.settings.write(intervalMinutes=60, heldRemaining=3300.0, widgetSize=float(size))
        self.program = Program(desktop, path=path)
        self._orb = self.program.wait_for_orb()
        self.program.wait_for_status("Next in", 20)
        time.sleep(_SETTLED)

    def stop(self) -> None:
        """Ends the program."""
        self.program.stop()

    def states(self) -> Iterator[tuple[str, Callable]]:
        """Each state's name, and what brings it about for the length of a `with`."""
        yield "at rest", self._rest
        yield "pointer over it", self._hover
        yield "in a reminder", self._reminder
        yield "paused", self._paused
        yield "reduced motion", self._reduced
        yield "hidden", self._hidden
        yield "session locked", self._locked
        yield "display blanked", self._blanked

    @contextmanager
    def _rest(self):
        yield

    @contextmanager
    def _hover(self):
        x, y = self._orb.place.centre
        self._desktop.pointer.move(x, y - 20)
        time.sleep(_SETTLED)
        yield
        self._desktop.pointer.move(20, 400)
        time.sleep(_SETTLED)

    @contextmanager
    def _reminder(self):
        self._choose("Velmora Now")
        self.program.wait_for_status("Velmora", 10)
        time.sleep(_SETTLED)
        yield
        # Pausing drops the reminder, which would go on for a while.
        self._choose("Pause Reminders")
        self.program.wait_for_status("Paused", 10)
        self._resume()

    @contextmanager
    def _paused(self):
        self._choose("Pause Reminders")
        self.program.wait_for_status("Paused", 10)
        time.sleep(_SETTLED)
        yield
        self._resume()

    def _choose(self, text: str) -> None:
        # The rows' words are those of the moment at which the menu opened.
        self.program.item.open_menu()
        self.program.item.click(text)
        self.program.item.close_menu()

    def _resume(self) -> None:
        self._choose("Resume Reminders")
        self.program.wait_for_status("Next in", 10)
        time.sleep(_SETTLED)

    @contextmanager
    def _reduced(self):
        self._desktop.xsettings.enable_animations(False)
        time.sleep(2 * _SETTLED)
        yield
        self._desktop.xsettings.enable_animations(True)
        time.sleep(2 * _SETTLED)

    @contextmanager
    def _hidden(self):
        window = self._desktop.x11.display.create_resource_object("window", self._orb.id)
        window.unmap()
        wait_for(lambda: self.program.orb() is None, 10, "the orb to be hidden")
        time.sleep(_SETTLED)
        yield
        window.map()
        self.program.wait_for_orb()
        time.sleep(_SETTLED)

    @contextmanager
    def _locked(self):
        self._saver(True)
        time.sleep(_SETTLED)
        yield
        self._saver(False)
        time.sleep(_SETTLED)

    def _saver(self, active: bool) -> None:
        self._desktop.session_bus.emit("/ScreenSaver", "org.freedesktop.ScreenSaver", "ActiveChanged",
                                       GLib.Variant("(b)", (active,)))

    @contextmanager
    def _blanked(self):
        self._desktop.processes.run(["xset", "s", "activate"])
        time.sleep(2 * _SETTLED)
        yield
        self._desktop.processes.run(["xset", "s", "reset"])
        time.sleep(2 * _SETTLED)
