"""A wall clock that a test sets, for the program that is built to read it."""

import mmap
import os
import struct
from datetime import datetime, timedelta
from pathlib import Path
from typing import TYPE_CHECKING

from .program import Program, program_path

if TYPE_CHECKING:
    from .desktop import Desktop

_PROGRAM = "velmora_on_test_clock"


class Clock:
    """Stands still at an instant until it is set to another; the program's timers go on as ever."""

    def __init__(self, desktop: "Desktop", now: datetime):
        """Makes a clock that stands at `now`, which names its zone."""
        self._desktop = desktop
        self._path = desktop.folder / f"clock-{desktop.count('clock')}"
        self._path.write_bytes(bytes(8))
        with open(self._path, "r+b") as file:
            self._memory = mmap.mmap(file.fileno(), 8)
        self.set(now)

    @property
    def now(self) -> datetime:
        """The instant that the clock shows."""
        return self._now

    def set(self, now: datetime) -> None:
        """Sets the clock, which the program notices at its next tick."""
        if now.tzinfo is None:
            raise ValueError("an instant needs its zone")
        self._now = now
        self._memory[:] = struct.pack("=d", now.timestamp())

    def forward(self, **amount: float) -> None:
        """Lets so much time pass, named as for a `timedelta`; less than none sets the clock back."""
        # By the instant: sums in a zone of its own would be those of the clock on the wall.
        zone = self._now.tzinfo
        self.set(datetime.fromtimestamp(self._now.timestamp() + timedelta(**amount).total_seconds(), zone))

    def run(self, *arguments: str) -> Program:
        """Starts the program on this clock."""
        return Program(self._desktop, *arguments, path=_program(),
                       environment={"VELMORA_TEST_CLOCK": os.fspath(self._path)})


def _program() -> Path:
    chosen = program_path()
    found = chosen.with_name(_PROGRAM) if chosen else None
    if not found or not found.is_file():
        raise FileNotFoundError(f"{_PROGRAM} has not been built; it comes with the tests, beside {chosen}")
    return found
