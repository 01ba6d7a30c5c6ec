"""What a process costs, from the kernel's own books."""

import os
from dataclasses import dataclass
from pathlib import Path


@dataclass(frozen=True)
class Cost:
    """Seconds of processor time, voluntary and forced switches of all threads, and memory in KiB."""

    processor: float
    switches: int
    forced_switches: int
    resident: int
    proportional: int

    @staticmethod
    def of(pid: int) -> "Cost":
        """What the process has used up to now, and the memory it holds now."""
        fields = Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
        ticks = int(fields[11]) + int(fields[12])
        switches = forced = 0
        for task in Path(f"/proc/{pid}/task").iterdir():
            try:
                status = (task / "status").read_text()
            except FileNotFoundError:
                continue
            switches += _number(status, "voluntary_ctxt_switches:")
            forced += _number(status, "nonvoluntary_ctxt_switches:")
        memory = Path(f"/proc/{pid}/smaps_rollup").read_text()
        return Cost(ticks / os.sysconf("SC_CLK_TCK"), switches, forced,
                    _number(memory, "Rss:"), _number(memory, "Pss:"))

    def since(self, earlier: "Cost") -> "Cost":
        """What was used from then to now; the memory is that of now."""
        return Cost(self.processor - earlier.processor, self.switches - earlier.switches,
                    self.forced_switches - earlier.forced_switches, self.resident, self.proportional)


def _number(text: str, label: str) -> int:
    return next(int(line.split()[1]) for line in text.splitlines() if line.startswith(label))
