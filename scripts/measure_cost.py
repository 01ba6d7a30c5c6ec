"""Measures what the program costs on a private desktop: `scripts/measure_cost.py [PROGRAM]`.

At rest for sixty seconds and in a reminder for twenty, with the orb at its first size in full view:
the share of one processor core, how often a second the process gives the processor away, and the
memory that it holds. Neither the display server nor the window manager is counted.
"""

import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests/desktop"))

from harness.desktop import Desktop  # noqa: E402
from harness.program import Program, program_path  # noqa: E402
from harness.waiting import wait_for  # noqa: E402


def _measure(program: Program, what: str, seconds: float) -> None:
    before, start = program.cost(), time.monotonic()
    time.sleep(seconds)
    used, elapsed = program.cost().since(before), time.monotonic() - start
    print(f"{what}: {100 * used.processor / elapsed:.1f} % of a core, {used.switches / elapsed:.0f} switches "
          f"a second, {used.resident / 1024:.0f} MiB resident, {used.proportional / 1024:.0f} MiB its share")


def _main() -> None:
    path = Path(sys.argv[1]).resolve() if len(sys.argv) > 1 else program_path()
    with Desktop() as desktop:
        program = Program(desktop, path=path)
        program.wait_for_orb()
        wait_for(lambda: program.status_line, 10, "the status line")
        time.sleep(5)
        _measure(program, "at rest", 60)
        program.item.click("Velmora Now")
        program.wait_for_status("Velmora", 5)
        _measure(program, "in a reminder", 20)
        program.stop()


if __name__ == "__main__":
    _main()
