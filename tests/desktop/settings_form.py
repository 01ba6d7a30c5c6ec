"""The settings form as a user finds it on the screen."""

from gi.repository import GLib

from harness import Desktop, Program, Rectangle, wait_for
from harness.accessibility import Accessible
from harness.x11 import Window

WIDTH = 340
CHECKED, FOCUSED, ENABLED, SHOWING = 4, 12, 8, 25
_ON_SCREEN = 0


class SettingsForm:
    """The open settings of a program: its window, and its controls by name."""

    def __init__(self, desktop: Desktop, program: Program):
        self._desktop = desktop
        self._program = program
        wait_for(self.window, 5, "the settings on screen")
        self.at_rest()
        wait_for(self._has_the_keyboard, 5, "the keyboard for the settings")
        wait_for(lambda: self.dialog, 5, "the settings on the accessibility bus")

    @classmethod
    def open(cls, desktop: Desktop, program: Program) -> "SettingsForm":
        """Opens the settings from the status item's menu."""
        program.item.click("Settings…")
        return cls(desktop, program)

    def window(self) -> Window | None:
        """The window without its frame, or none while it is not on screen."""
        found = [window for window in self._program.windows()
                 if window.title == "Velmora" and not window.override_redirect]
        return found[-1] if found else None

    def frame(self) -> Rectangle:
        """The window with its frame, in device pixels."""
        return wait_for(self._framed, 5, "the settings in their frame")

    def _framed(self) -> Rectangle | None:
        window = self.window()
        extents = self._desktop.x11.property(window.id, "_NET_FRAME_EXTENTS") if window else None
        if extents is None or len(extents) != 4:
            return None
        left, right, top, bottom = extents
        place = window.place
        return Rectangle(place.x - left, place.y - top, place.width + left + right,
                         place.height + top + bottom)

    def at_rest(self) -> Rectangle:
        """The frame once it has stood still for a while.

        The window is fitted once more when the window manager has put its frame around it.
        """
        looks: list[Rectangle | None] = []

        def stands() -> bool:
            looks.append(self._framed())
            return looks[-1] is not None and len(looks) >= 10 and len(set(looks[-10:])) == 1

        wait_for(stands, 5, "the settings to stand still")
        return looks[-1]

    def gone(self) -> bool:
        """Whether the settings are closed."""
        return self.window() is None

    @property
    def dialog(self) -> Accessible:
        """The window as assistive tools see it."""
        return wait_for(lambda: self._program.accessible.find(role="dialog"), 5, "the dialog")

    def control(self, name: str, role: str | None = None) -> Accessible:
        """The control with that name; labels are no controls."""
        return wait_for(lambda: self._find(name, role), 5, f"a control named {name!r}")

    def _find(self, name: str, role: str | None) -> Accessible | None:
        for element in self.dialog.everything():
            try:
                if element.name == name and (element.role == role if role else element.role not in
                                             ("label", "panel", "filler")):
                    return element
            except GLib.Error:
                continue
        return None

    def texts(self) -> list[str]:
        """The words that are shown, from top to bottom."""
        return [element.name for element in self.dialog.everything()
                if element.role == "label" and SHOWING in element.states()]

    def place(self, name: str) -> Rectangle:
        """Where a control is on the screen, in device pixels."""
        x, y, width, height = _extents(self.control(name))
        left, top, *_ = _extents(self.dialog)
        scale = self._desktop.scale
        corner = self.window().place
        return Rectangle(corner.x + (x - left) * scale, corner.y + (y - top) * scale,
                         width * scale, height * scale)

    def click(self, name: str) -> None:
        """Clicks a control in its middle."""
        self._desktop.pointer.click(*self.place(name).centre)

    def checked(self, name: str) -> bool:
        """Whether a switch is on or a chip chosen."""
        return CHECKED in self.control(name).states()

    def focused(self) -> str | None:
        """The name of the control that has the focus."""
        for element in self.dialog.everything():
            if FOCUSED in element.states() and element.name:
                return element.name
        return None

    def tab_to(self, name: str) -> None:
        """Presses Tab until that control has the focus."""
        for _ in range(30):
            if self.focused() == name:
                return
            before = self._step()
            self._desktop.pointer.key("Tab")
            wait_for(lambda: self._step() != before, 2, f"Tab to leave {before}")
        raise AssertionError(f"Tab never reached {name!r}")

    def _step(self) -> tuple[str | None, tuple[int, int] | None]:
        """Where Tab has come to: a control, and in a picker its hour or its minute."""
        name = self.focused()
        return name, self.control(name).selection if name in ("From", "To") else None

    def _has_the_keyboard(self) -> bool:
        window, active = self.window(), self._desktop.x11.property(
            self._desktop.x11.root.id, "_NET_ACTIVE_WINDOW")
        return bool(window and active is not None and len(active) and active[0] == window.id
                    and self._desktop.x11.focus() == window.id)


def _extents(element: Accessible) -> tuple[int, int, int, int]:
    return element._call("org.a11y.atspi.Component", "GetExtents",  # noqa: SLF001
                         GLib.Variant("(u)", (_ON_SCREEN,)))[0]
