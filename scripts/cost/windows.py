"""Windows of time, and what processes used in them."""

import statistics
import time
from dataclasses import dataclass
from pathlib import Path

from harness.cost import Cost

WINDOWS, SECONDS = 3, 2.0


@dataclass(frozen=True)
class Used:
    """Medians over several windows, each for a second: milliseconds and voluntary switches. Memory in MiB."""

    processor: float
    switches: float
    server: float
    manager: float
    resident: float
    private_dirty: float
    threads: int


class Meter:
    """Measures processes on one desktop, beside its display server and its window manager."""

    def __init__(self, server: int, manager: int):
        self._beside = [server, manager]
        self._alone = (0.0, 0.0)
        # What these two use by themselves is not the program's.
        idle = self.measure([])
        self._alone = (idle.server, idle.manager)

    def measure(self, pids: list[int], windows: int = WINDOWS, seconds: float = SECONDS) -> Used:
        """Looks at the processes for so many windows of so many seconds each."""
        rates = []
        for _ in range(windows):
            before, start = self._costs(pids), time.monotonic()
            time.sleep(seconds)
            after, elapsed = self._costs(pids), time.monotonic() - start
            used = {pid: cost.since(before[pid]) for pid, cost in after.items() if pid in before}
            rates.append([sum(used[pid].processor for pid in pids if pid in used) * 1000 / elapsed,
                          sum(used[pid].switches for pid in pids if pid in used) / elapsed,
                          *(used[pid].processor * 1000 / elapsed for pid in self._beside)])
        now = [after[pid] for pid in pids if pid in after]
        processor, switches, server, manager = (statistics.median(column) for column in zip(*rates))
        return Used(processor, switches, max(0.0, server - self._alone[0]), max(0.0, manager - self._alone[1]),
                    sum(cost.resident for cost in now) / 1024, sum(cost.private_dirty for cost in now) / 1024,
                    sum(cost.threads for cost in now))

    def _costs(self, pids: list[int]) -> dict[int, Cost]:
        found = {}
        for pid in [*pids, *self._beside]:
            try:
                found[pid] = Cost.of(pid)
            except (FileNotFoundError, ProcessLookupError):
                continue
        return found


def family(pid: int) -> list[int]:
    """A process and all that it started, as far as they live."""
    children: dict[int, list[int]] = {}
    for entry in Path("/proc").iterdir():
        if entry.name.isdigit():
            try:
                parent = int((entry / "stat").read_text().rpartition(")")[2].split()[1])
            except (FileNotFoundError, ProcessLookupError):
                continue
            children.setdefault(parent, []).append(int(entry.name))
    found = [pid]
    for member in found:
        found += children.get(member, [])
    return found
