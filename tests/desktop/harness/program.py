"""The program under test, run as its user runs it."""

import os
import signal
import subprocess
from pathlib import Path
from typing import TYPE_CHECKING

from .accessibility import Accessible
from .cost import Cost
from .settings import Settings
from .status_item import StatusItem
from .waiting import PATIENCE, wait_for
from .x11 import Window

if TYPE_CHECKING:
    from .desktop import Desktop

_SOURCE = Path(__file__).resolve().parents[3]
_PLACES = ("build/dev/velmora", "build/asan/velmora", "build/release/velmora")
# Passed on from whoever runs the tests, so that a sanitized program can be put to the test too.
_PASSED_ON = ("ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")


def program_path() -> Path | None:
    """The program to test: `VELMORA_PROGRAM`, or else the newest that has been built; or none."""
    if chosen := os.environ.get("VELMORA_PROGRAM"):
        return Path(chosen).resolve()
    built = [path for path in (_SOURCE / place for place in _PLACES) if path.is_file()]
    return max(built, key=lambda path: path.stat().st_mtime, default=None)


class Program:
    """One run of the program on a desktop, with that desktop's home folder."""

    def __init__(self, desktop: "Desktop", *arguments: str,
                 environment: dict[str, str] | None = None, path: Path | None = None):
        """Starts the program. What it writes to standard error is kept and can be read."""
        self._desktop = desktop
        found = path or program_path()
        if not found:
            raise FileNotFoundError("velmora has not been built; see tests/desktop/README.md")
        passed_on = {name: os.environ[name] for name in _PASSED_ON if name in os.environ}
        number = desktop.count("velmora")
        self._errors = desktop.processes.log(f"velmora-{number}.stderr")
        with open(self._errors, "wb") as errors:
            self.process: subprocess.Popen = desktop.processes.start(
                f"velmora-{number}", [str(found.resolve()), *arguments],
                environment={**desktop.for_programs, **passed_on, **(environment or {})}, stderr=errors)
        self._item: StatusItem | None = None

    @property
    def pid(self) -> int:
        return self.process.pid

    @property
    def settings(self) -> Settings:
        return self._desktop.settings

    @property
    def errors(self) -> str:
        """Everything written to standard error up to now."""
        return self._errors.read_text(errors="replace")

    @property
    def running(self) -> bool:
        return self.process.poll() is None

    @property
    def item(self) -> StatusItem:
        """The program's status item; waits for it at first use."""
        if self._item is None:
            self._item = StatusItem(self._desktop.session_bus, self.pid)
        return self._item

    @property
    def accessible(self) -> Accessible:
        """The program as assistive tools see it; waits until it has registered."""
        return self._desktop.accessibility.application(self.pid)

    @property
    def status_line(self) -> str:
        return self.item.status_line

    def wait_for_status(self, start: str, bound: float) -> str:
        """Waits until the status line starts with that text and answers the whole line."""
        return wait_for(lambda: self.status_line if self.status_line.startswith(start) else None,
                        bound, f"a status line that starts with {start!r}")

    def windows(self) -> list[Window]:
        """The program's windows that are on screen, bottom to top."""
        return [window for window in self._desktop.x11.windows() if window.pid == self.pid]

    def orb(self) -> Window | None:
        """The orb's window, or none while it is not on screen."""
        squares = [window for window in self.windows()
                   if window.override_redirect and abs(window.place.width - window.place.height) <= 1
                   and window.place.width >= 48]
        return squares[-1] if squares else None

    def wait_for_orb(self, bound: float = 10.0) -> Window:
        """Waits until the orb is on screen."""
        return wait_for(self.orb, bound, "the orb on screen")

    def cost(self) -> Cost:
        """What the process has cost up to now."""
        return Cost.of(self.pid)

    def send(self, number: int) -> None:
        """Sends a signal."""
        self.process.send_signal(number)

    def wait(self, bound: float = PATIENCE) -> int:
        """Waits until the program has ended by itself and answers its exit status."""
        return self.process.wait(bound)

    def stop(self, number: int = signal.SIGTERM, bound: float = PATIENCE) -> int:
        """Sends a signal, waits for the end and answers the exit status."""
        self.send(number)
        return self.wait(bound)

    def kill(self) -> None:
        """Ends the program without a chance to save."""
        self.process.kill()
        self.process.wait()
