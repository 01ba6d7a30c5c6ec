"""What a process costs, from the kernel's own books."""

import os
from dataclasses import dataclass, field
from pathlib import Path


@dataclass(frozen=True)
class Cost:
    """Seconds of processor time and voluntary and forced switches of all threads; memory in KiB."""

    processor: float
    switches: int
    forced_switches: int
    resident: int
    proportional: int
    private_dirty: int
    threads: int
    # Nanoseconds that each living thread has run; finer than the whole process's ticks.
    _run: dict[str, int] = field(default_factory=dict, repr=False, compare=False)

    @staticmethod
    def of(pid: int) -> "Cost":
        """What the process has used up to now, and the memory it holds now."""
        fields = Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
        ticks = int(fields[11]) + int(fields[12])
        switches = forced = threads = 0
        run = {}
        for task in Path(f"/proc/{pid}/task").iterdir():
            try:
                status = (task / "status").read_text()
                run[task.name] = int((task / "schedstat").read_text().split()[0])
            except (FileNotFoundError, ProcessLookupError, ValueError, IndexError):
                continue
            threads += 1
            switches += _number(status, "voluntary_ctxt_switches:")
            forced += _number(status, "nonvoluntary_ctxt_switches:")
        memory = Path(f"/proc/{pid}/smaps_rollup").read_text()
        return Cost(ticks / os.sysconf("SC_CLK_TCK"), switches, forced, _number(memory, "Rss:"),
                    _number(memory, "Pss:"), _number(memory, "Private_Dirty:"), threads, run)

    def since(self, earlier: "Cost") -> "Cost":
        """What was used from then to now; the memory and the threads are those of now."""
        run = sum(time - earlier._run.get(thread, 0) for thread, time in self._run.items()) / 1e9
        return Cost(run or self.processor - earlier.processor, self.switches - earlier.switches,
                    self.forced_switches - earlier.forced_switches, self.resident, self.proportional,
                    self.private_dirty, self.threads)


def _number(text: str, label: str) -> int:
    return next(int(line.split()[1]) for line in text.splitlines() if line.startswith(label))
