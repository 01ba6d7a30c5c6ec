"""What the program costs while nothing happens, in counts: a busy machine changes times, not counts.

The bounds are wide; scripts/cost.sh measures.
"""

import mmap
import time
from pathlib import Path

import pytest
from gi.repository import GLib

from harness import Desktop, Program, program_path, wait_for
from harness.traffic import Traffic

_SECONDS = 12
_SHM_PUT_IMAGE = 3


class OwnCalls:
    """How often the program's own code has asked for memory."""

    def __init__(self, desktop: Desktop):
        library = program_path().parent / "tests/desktop/counted/libvelmora_counted_calls.so"
        if not library.exists():
            pytest.skip("this build does not count")
        path = desktop.folder / "counted-calls"
        path.write_bytes(bytes(8))
        self.environment = {"LD_PRELOAD": str(library), "VELMORA_COUNTED_CALLS": str(path)}
        with path.open("r+b") as file:
            self._memory = mmap.mmap(file.fileno(), 8)

    @property
    def count(self) -> int:
        return int.from_bytes(self._memory[:8], "little")


class Saves:
    """How often the settings were written anew while somebody looked."""

    def __init__(self, path: Path):
        self._path, self.count, self._last = path, 0, None
        self.look()
        self.count = 0

    def look(self) -> None:
        try:
            found = self._path.stat()
        except FileNotFoundError:
            return
        if (found.st_ino, found.st_mtime_ns) != self._last:
            self._last = found.st_ino, found.st_mtime_ns
            self.count += 1


@pytest.fixture
def desktop() -> Desktop:
    with Desktop() as brought_up:
        # Far from the last minute of a countdown, whose seconds are told to the panel.
        brought_up.settings.write(intervalMinutes=60, heldRemaining=3000.0)
        yield brought_up


def _frames(desktop: Desktop, traffic: Traffic) -> int:
    major = desktop.x11.display.query_extension("MIT-SHM").major_opcode
    return traffic.requests[major, _SHM_PUT_IMAGE]


def test_a_breath_costs_one_request_a_frame_no_answer_no_memory_and_no_save(desktop):
    calls = OwnCalls(desktop)
    program = Program(desktop, environment=calls.environment)
    orb = program.wait_for_orb()
    program.wait_for_status("Next in", 15)
    with Traffic(desktop.display_server.name, orb.id) as traffic:
        wait_for(lambda: _frames(desktop, traffic) >= 60, 30, "the first seconds to pass")
        saves = Saves(program.settings.path)
        requests, replies, frames = traffic.requests, traffic.replies, _frames(desktop, traffic)
        assert calls.count > 0, "what was asked for at the start has been counted"
        memory, cost, start = calls.count, program.cost(), time.monotonic()
        while (elapsed := time.monotonic() - start) < _SECONDS:
            saves.look()
            time.sleep(0.05)
        used, frames = program.cost().since(cost), _frames(desktop, traffic) - frames
        memory, replies, requests = calls.count - memory, traffic.replies - replies, traffic.requests - requests
    print(f"{frames} frames in {elapsed:.1f} s: {used.switches} switches, {requests} requests, {replies} replies, "
          f"{memory} calls for memory, {saves.count} saves, {used.threads} threads")
    assert 2 * elapsed <= frames <= 30 * elapsed + 2
    assert sum(requests.values()) <= frames + 4
    assert replies == 0
    assert memory <= elapsed
    assert used.switches <= 60 * elapsed
    assert saves.count <= 1
    assert used.threads <= 8
    program.stop()


def _lock(desktop: Desktop, _orb: int) -> None:
    desktop.session_bus.emit("/ScreenSaver", "org.freedesktop.ScreenSaver", "ActiveChanged",
                             GLib.Variant("(b)", (True,)))


def _hide(desktop: Desktop, orb: int) -> None:
    desktop.x11.display.create_resource_object("window", orb).unmap()
    desktop.x11.display.sync()


@pytest.mark.parametrize("unseen", [_lock, _hide], ids=["locked", "hidden"])
def test_an_orb_that_nobody_can_see_costs_next_to_nothing(desktop, unseen):
    program = Program(desktop)
    orb = program.wait_for_orb()
    program.wait_for_status("Next in", 15)
    with Traffic(desktop.display_server.name, orb.id) as traffic:
        wait_for(lambda: _frames(desktop, traffic) >= 30, 30, "frames")
        unseen(desktop, orb.id)
        wait_for(_still(lambda: _frames(desktop, traffic)), 30, "the last frame", every=0.5)
        frames, cost = _frames(desktop, traffic), program.cost()
        time.sleep(_SECONDS / 2)
        used = program.cost().since(cost)
        assert _frames(desktop, traffic) == frames
    print(f"{used.switches} switches in {_SECONDS / 2:g} s")
    assert used.switches <= 8 * _SECONDS / 2
    program.stop()


def _still(count):
    """A condition that holds once the count is the same at two looks in a row."""
    seen = []

    def same() -> bool:
        seen.append(count())
        return len(seen) > 1 and seen[-1] == seen[-2]

    return same
