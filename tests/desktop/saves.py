"""Telling one save of the countdown from another."""

import time

from harness import Desktop, Program, wait_for


def run_past_a_save(desktop: Desktop) -> tuple[Program, float]:
    """Starts the program and answers it with the countdown that it saved two seconds ago.

    By itself it does not save again for most of a minute, so that a later countdown on the disk is
    the doing of what the test does next.
    """
    # Where a minute begins, the countdown is saved: this one has fifty seconds to go till then.
    desktop.settings.write(intervalMinutes=15, heldRemaining=590.0)
    program = desktop.run()
    for row, paused in (("Pause Reminders", True), ("Resume Reminders", False)):
        program.item.choose(row)
        wait_for(lambda paused=paused: desktop.settings.read().get("paused") is paused, 3, f"{row} on the disk")
    held, resumed = desktop.settings.read()["heldRemaining"], time.monotonic()
    wait_for(lambda: time.monotonic() > resumed + 2, 3, "two seconds to pass")
    assert desktop.settings.read()["heldRemaining"] == held
    return program, held


def saved_again(desktop: Desktop, held: float) -> bool:
    """Whether those two seconds have reached the disk."""
    return desktop.settings.read()["heldRemaining"] < held - 1.5
