"""Waiting for a condition with a bound, never for an amount of time."""

import time
from collections.abc import Callable
from typing import TypeVar

from gi.repository import GLib

T = TypeVar("T")

# Seconds that a part of a desktop may take to come up on a machine busy with other things. That an
# idle one takes under three in all is a test of its own.
COMING_UP = 30.0


class NotInTime(AssertionError):
    """What was waited for did not happen within its bound."""


def wait_for(condition: Callable[[], T], bound: float, what: str, every: float = 0.02) -> T:
    """Answers the condition's first true value, or raises `NotInTime` after `bound` seconds.

    `what` completes the sentence "waited for …". Messages that reached this process over D-Bus
    are handed to their listeners between two looks at the condition.
    """
    deadline = time.monotonic() + bound
    while True:
        deliver_messages()
        late = time.monotonic() >= deadline
        value = condition()
        if value:
            return value
        if late:
            raise NotInTime(f"waited {bound:g} s for {what}; last seen: {value!r}")
        time.sleep(every)


def watch(condition: Callable[[], bool], seconds: float, what: str, every: float = 0.05) -> None:
    """Looks again and again for so many seconds and raises when the condition is once untrue.

    For facts that only the absence of an event can show: "no second chime", "does not move".
    """
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        deliver_messages()
        if not condition():
            raise AssertionError(f"no longer true: {what}")
        time.sleep(every)


def deliver_messages() -> None:
    """Hands every message that waits on this process's D-Bus connections to its listener."""
    context = GLib.MainContext.default()
    while context.iteration(False):
        pass
