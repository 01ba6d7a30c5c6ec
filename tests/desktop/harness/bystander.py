"""An ordinary window that lies beneath the orb, and tells what reaches it."""

import subprocess
from pathlib import Path

from .processes import Processes
from .waiting import COMING_UP, wait_for
from .x11 import X11, Rectangle, Window

_WINDOW = Path(__file__).with_name("letter_window.py")


class Bystander:
    """An ordinary window of another program."""

    def __init__(self, processes: Processes, x11: X11, title: str, place: Rectangle | None,
                 environment: dict[str, str] | None = None):
        """Opens the window at that place, or over the whole screen."""
        self._processes = processes
        self._x11 = x11
        self.title = title
        self._log = processes.log(f"window-{title}")
        where = [str(n) for n in (place.x, place.y, place.width, place.height)] if place else []
        self._native = bool(environment)
        self.process: subprocess.Popen = processes.start(
            f"window-{title}", ["/usr/bin/python3", "-u", str(_WINDOW), title, *where], environment)

    def wait(self) -> Window | None:
        """Returns when the window is seen; only one of the X server's can be looked up."""
        wait_for(lambda: "drawn" in self.events(), COMING_UP, f"the window {self.title!r}")
        if self._native:
            return None
        return wait_for(self.window, COMING_UP, f"the window {self.title!r}")

    def window(self) -> Window | None:
        """The window as it is now."""
        return next((window for window in self._x11.windows()
                     if window.pid == self.process.pid and window.title == self.title), None)

    def events(self) -> list[str]:
        """What has reached the window: "press 1 40 52" (button, x, y),
        "key a", "scroll", "motion", "focus", "drawn"."""
        return self._log.read_text().splitlines()

    def presses(self) -> list[tuple[int, int, int]]:
        """The presses that have reached it: button, x and y in the window."""
        return [tuple(int(word) for word in line.split()[1:])
                for line in self.events() if line.startswith("press ")]

    def close(self) -> None:
        """Ends the program of the window."""
        self._processes.end(self.process)
