"""A long ordinary run: what the program holds at its end is what it held near its beginning."""

import os
import time

import pytest

from harness import Desktop, wait_for
from held import Held

# How long the run lasts, in minutes.
MINUTES = float(os.environ.get("VELMORA_SOAK_MINUTES", "60"))
REMINDER, INTERVAL = 30, 120
# The share of the resident memory by which it may differ, and by which it may lean over the run.
TOLERANCE = 0.02


@pytest.mark.long
@pytest.mark.soak
def test_a_run_with_a_reminder_every_two_minutes_holds_no_more_at_its_end():
    with Desktop() as desktop:
        desktop.settings.write(intervalMinutes=2, heldRemaining=5.0, soundVolume=0.3)
        program = desktop.run()
        program.wait_for_orb()
        end = time.monotonic() + MINUTES * 60
        moments: list[tuple[float, Held]] = []
        while time.monotonic() < end or len(moments) < 4:
            let_a_reminder_pass(program)
            held = Held.by(program.pid, desktop.x11)
            moments.append((time.monotonic(), held))
            print(f"after reminder {len(moments)}: {held}", flush=True)
        first, last = moments[1][1], moments[-1][1]
        leaning = slope(moments[1:]) * (moments[-1][0] - moments[1][0])
        print(f"{len(moments)} reminders; the memory leans by {leaning:.0f} KiB over the run")
        assert (last.descriptors, last.threads) == (first.descriptors, first.threads)
        assert (last.resources, last.pixmap_bytes) == (first.resources, first.pixmap_bytes)
        assert abs(last.resident - first.resident) <= TOLERANCE * first.resident
        assert abs(leaning) <= TOLERANCE * first.resident
        assert program.errors == ""
        assert program.stop() == 0


def let_a_reminder_pass(program) -> None:
    """Returns some seconds after the end of the next reminder, when its chime is long over."""
    program.wait_for_status("Velmora", INTERVAL + 30)
    program.wait_for_status("Next in 2m", REMINDER + 30)
    # At 90 seconds the label changes: the same moment of every countdown.
    wait_for(lambda: program.status_line == "Next in 1m", 60, "the middle of the countdown", every=0.2)


def slope(moments: list[tuple[float, Held]]) -> float:
    """The resident memory's rise, in KiB a second, of the straight line that fits best."""
    times = [time for time, _ in moments]
    memory = [held.resident for _, held in moments]
    mean_time, mean_memory = sum(times) / len(times), sum(memory) / len(memory)
    rise = sum((t - mean_time) * (m - mean_memory) for t, m in zip(times, memory))
    return rise / sum((t - mean_time) ** 2 for t in times)
