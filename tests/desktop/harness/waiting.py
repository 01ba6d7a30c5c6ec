"""Waiting for a condition with a bound, never for an amount of time."""

import socket
import time
from collections.abc import Callable
from pathlib import Path
from typing import TypeVar

from gi.repository import GLib

T = TypeVar("T")

# Seconds that a part of a desktop may take to come up on a machine busy with other things. That an
# idle one takes under three in all is a test of its own.
COMING_UP = 30.0

# Seconds that anything else may take there. A test that asks whether something comes is not to fail
# because it came late; where the time itself is promised, `in_time` holds it to its bound.
PATIENCE = 30.0


class NotInTime(AssertionError):
    """What was waited for did not happen within its bound."""


def wait_for(condition: Callable[[], T], bound: float, what: str, every: float = 0.02) -> T:
    """Answers the condition's first true value, or raises `NotInTime` when it does not come.

    `bound` tells how many seconds it takes at most where nothing else runs; it is given up only after
    `PATIENCE`, if that is longer. `what` completes the sentence "waited for …". Messages that reached
    this process over D-Bus are handed to their listeners between two looks at the condition.
    """
    return in_time(condition, max(bound, PATIENCE), what, every)


def in_time(condition: Callable[[], T], bound: float, what: str, every: float = 0.02) -> T:
    """As `wait_for`, where coming within `bound` seconds is what is promised."""
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


def listens(path: Path) -> bool:
    """Whether somebody takes connections at that socket; its file is there a moment earlier."""
    with socket.socket(socket.AF_UNIX, socket.SOCK_STREAM) as caller:
        try:
            caller.connect(str(path))
        except OSError:
            return False
    return True
