"""A hand on the mouse and the keyboard."""

import itertools
from collections.abc import Callable

from Xlib import XK, X
from Xlib.ext import xtest

from .waiting import wait_for
from .x11 import X11

LEFT, MIDDLE, RIGHT, WHEEL_UP, WHEEL_DOWN = 1, 2, 3, 4, 5


class Pointer:
    """Moves the mouse and types through the server's XTEST extension, in device pixels."""

    def __init__(self, x11: X11):
        self._display = x11.display

    def move(self, x: int, y: int) -> None:
        """Puts the pointer there at once."""
        xtest.fake_input(self._display, X.MotionNotify, x=int(x), y=int(y))
        self._display.sync()

    def press(self, button: int = LEFT) -> None:
        """Presses a button and holds it."""
        xtest.fake_input(self._display, X.ButtonPress, button)
        self._display.sync()

    def release(self, button: int = LEFT) -> None:
        """Lets a button go."""
        xtest.fake_input(self._display, X.ButtonRelease, button)
        self._display.sync()

    def click(self, x: int, y: int, button: int = LEFT) -> None:
        """Presses and releases a button there."""
        self.move(x, y)
        self.press(button)
        self.release(button)

    def drag(self, start: tuple[int, int], end: tuple[int, int], steps: int = 12) -> None:
        """Presses at the start, moves in even steps and releases at the end."""
        self.move(*start)
        self.press()
        for step in range(1, steps + 1):
            self.move(start[0] + (end[0] - start[0]) * step // steps,
                      start[1] + (end[1] - start[1]) * step // steps)
        self.release()

    def drag_until(self, start: tuple[int, int], end: tuple[int, int], followed: Callable[[], object],
                   what: str) -> None:
        """Drags until what is dragged has followed, and only then releases.

        For what another program moves, such as a window by its frame: a window manager tells a drag
        from a click by what it sees on the way, and one that is busy sees no more than the release.
        """
        self.move(*start)
        self.press()
        wiggle = itertools.cycle((0, 1))

        def pull() -> object:
            self.move(end[0] + next(wiggle), end[1])
            return followed()

        for step in range(1, 5):
            self.move(start[0] + (end[0] - start[0]) * step // 100, start[1] + (end[1] - start[1]) * step // 100)
        try:
            wait_for(pull, 5, what)
            self.move(*end)
        finally:
            self.release()

    def wheel(self, notches: int) -> None:
        """Turns the wheel where the pointer is: up when positive, down when negative."""
        for _ in range(abs(notches)):
            self.press(WHEEL_UP if notches > 0 else WHEEL_DOWN)
            self.release(WHEEL_UP if notches > 0 else WHEEL_DOWN)

    def hold_key(self, name: str) -> None:
        """Presses a key by its X name, such as "Alt_L", and holds it."""
        xtest.fake_input(self._display, X.KeyPress, self._code(name))
        self._display.sync()

    def release_key(self, name: str) -> None:
        """Lets a key go."""
        xtest.fake_input(self._display, X.KeyRelease, self._code(name))
        self._display.sync()

    def key(self, *names: str) -> None:
        """Presses keys together, such as "Control_L", "q", and releases them."""
        for name in names:
            self.hold_key(name)
        for name in reversed(names):
            self.release_key(name)

    def _code(self, name: str) -> int:
        code = self._display.keysym_to_keycode(XK.string_to_keysym(name))
        if not code:
            raise ValueError(f"no key named {name}")
        return code
