"""The page that says what was measured."""

import os
import platform
import subprocess
import time
from pathlib import Path

from windows import SECONDS, WINDOWS, Used

_BEGIN, _END = "<!-- measured: begin -->", "<!-- measured: end -->"


class Page:
    """Collects tables and prints each as it comes, for a document."""

    def __init__(self):
        self._parts: list[str] = []
        self._load = os.getloadavg()[0]

    def add(self, *lines: str) -> None:
        """Adds a paragraph or a table."""
        text = "\n".join(lines)
        print(text, end="\n\n", flush=True)
        self._parts.append(text)

    def write(self, path: Path) -> None:
        """Puts everything between the document's marks."""
        between_marks(path, self._circumstances(), *self._parts)

    def load(self) -> str:
        """How busy the machine was, which makes all times longer."""
        return (f"The load of the machine, of {os.cpu_count()} processors, was {self._load:.1f} before and "
                f"{os.getloadavg()[0]:.1f} after.")

    def _circumstances(self) -> str:
        return (f"Measured on {time.strftime('%Y-%m-%d at %H:%M UTC', time.gmtime())} at {_commit()}: "
                f"{os.cpu_count()} virtual processors ({_processor()}), Linux {platform.release()}. "
                f"{self.load()} Medians of {WINDOWS} windows of {SECONDS:g} s.")


def _commit() -> str:
    """The commit that is measured, and whether anything but the pages themselves was changed since."""
    commit = subprocess.run(["git", "describe", "--always"], capture_output=True, text=True, check=False)
    if commit.returncode != 0:
        return "no repository"
    same = subprocess.run(["git", "diff", "--quiet", "HEAD", "--", ":/", ":(exclude,top)README.md",
                           ":(exclude,top)docs"], check=False).returncode == 0
    return commit.stdout.strip() + ("" if same else "-dirty")


def between_marks(path: Path, *parts: str) -> None:
    """Replaces what stands between a document's marks; the rest is written by hand and stays."""
    before, found, rest = path.read_text().partition(_BEGIN)
    _, ended, after = rest.partition(_END)
    if not found or not ended:
        raise SystemExit(f"{path} has no marks to write between")
    path.write_text("\n\n".join([before + _BEGIN, *parts, _END + after]))


def row(*cells: str) -> str:
    """A row of a table."""
    return "| " + " | ".join(cells) + " |"


def heading(*cells: str) -> list[str]:
    """A table's first two lines; all columns but the first are of numbers."""
    return [row(*cells), "|---|" + "---:|" * (len(cells) - 1)]


def used_cells(used: Used) -> list[str]:
    """What a process used and caused, as cells."""
    return [f"{used.processor:.1f}", f"{used.switches:.1f}", f"{used.server:.1f}", f"{used.manager:.1f}"]


def _processor() -> str:
    for line in Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            return line.partition(":")[2].strip()
    return platform.machine()
