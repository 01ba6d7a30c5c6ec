"""A hand on the orb: where it is, where its parts are, and what it says."""

import itertools
import math
from collections.abc import Callable

from harness import Desktop, Rectangle, wait_for
from harness.program import Program
from harness.x11 import Window

LABEL = "Breathing reminder"


class OrbHand:
    """Points at a running program's orb. Distances are points from its centre, y growing downwards."""

    def __init__(self, desktop: Desktop, program: Program):
        self.desktop = desktop
        self.program = program
        self.scale = desktop.scale
        program.wait_for_orb()

    @property
    def window(self) -> Window:
        return self.program.wait_for_orb()

    @property
    def place(self) -> Rectangle:
        return self.window.place

    @property
    def side(self) -> float:
        """The window's side in points."""
        return self.place.width / self.scale

    @property
    def element(self):
        """The orb as assistive tools see it."""
        return wait_for(lambda: self.program.accessible.find(name=LABEL), 5, "the orb's element")

    @property
    def status(self) -> str:
        return self.element.text

    def at(self, dx: float = 0, dy: float = 0) -> tuple[int, int]:
        """The device pixel that far from the centre."""
        place = self.place
        return (round(place.x + place.width / 2 + dx * self.scale),
                round(place.y + place.height / 2 + dy * self.scale))

    def grip(self) -> tuple[int, int]:
        """A device pixel in the middle of the grip's corner."""
        return self.at(self.side / 2 - 12, self.side / 2 - 12)

    def button(self, name: str) -> tuple[int, int]:
        """The middle of one of the two buttons: "pause" or "settings"."""
        side = self.side
        frame, gap = max(side * 0.18, 22), side * 0.06
        across = (frame + gap) / 2
        down = side / 2 - side * 0.22 - frame / 2
        return self.at(-across if name == "pause" else across, down)

    def buttons_shown(self) -> bool:
        """Whether the symbols' white is on screen where the right button is."""
        x, y = self.button("settings")
        return int(self.desktop.x11.pixels(Rectangle(x - 4, y - 4, 8, 8)).max()) > 235

    def hover(self) -> None:
        """Brings the pointer over the orb and waits until the orb knows."""
        self.desktop.pointer.move(*self.at(0, -20))
        wait_for(self.buttons_shown, 3, "the buttons")

    def drag_by(self, across: int, down: int) -> None:
        """Drags the orb by so many points and lets go once it stands exactly there."""
        place = self.place
        goal = Rectangle(place.x + across * self.scale, place.y + down * self.scale, place.width, place.height)
        self.pull(self.at(10, -20), across, down, lambda: self.place == goal, f"the orb at {goal}")

    def pull(self, start: tuple[int, int], across: int, down: int, arrived: Callable[[], bool],
             what: str) -> None:
        """Drags from a device pixel by so many points and lets go once `arrived` is true.

        A compositor that keeps an X server hears of a window's coming, move or growth a little later
        than the window's program, and counts the pointer from there. So the button goes down once
        both see the pointer in the same place, and the pointer lingers at the end.
        """
        pointer, end = self.desktop.pointer, (start[0] + across * self.scale, start[1] + down * self.scale)
        beside = itertools.cycle((0, 1))

        def there() -> bool:
            if self.desktop.x11.pointer() == start:
                return True
            pointer.move(start[0] + next(beside), start[1])
            return False

        pointer.move(*start)
        wait_for(there, 3, f"the pointer at {start}", every=0.1)
        pointer.press()
        for step in range(1, 12):
            pointer.move(start[0] + (end[0] - start[0]) * step // 12, start[1] + (end[1] - start[1]) * step // 12)
        pointer.move(*end)

        def linger() -> bool:
            if arrived():
                return True
            pointer.move(end[0] + next(beside), end[1])
            return False

        try:
            wait_for(linger, 3, what, every=0.2)
        finally:
            pointer.release()

    def taken_away(self) -> None:
        """Somebody else takes the orb's window off the screen."""
        x11, window = self.desktop.x11, self.window.id
        x11.display.create_resource_object("window", window).unmap()
        x11.display.sync()
        wait_for(lambda: not self.program.orb(), 3, "the orb off the screen")

    def called_back(self) -> None:
        """The user starts the program once more, and has the orb in view again."""
        assert self.desktop.run().wait() == 0
        wait_for(self.program.orb, 3, "the orb back on the screen")

    def remind(self) -> None:
        """Starts a reminder the way an assistive tool does."""
        self.element.act("Velmora now")
        wait_for(self.reminding, 3, "a reminder")

    def reminding(self) -> bool:
        return self.status == "Velmora"

    def saved(self) -> dict:
        return self.program.settings.read()

    def saved_place(self) -> tuple[float, float]:
        """The saved origin, as the window's top-left device pixel on a desktop of one display."""
        stored, height = self.saved(), self.desktop.x11.size()[1]
        return (stored["widgetOriginX"] * self.scale,
                height - (stored["widgetOriginY"] + stored["widgetSize"]) * self.scale)

    def saved_where_it_stands(self) -> bool:
        """Whether the stored place is the window's, to the pixel that whole points allow."""
        if "widgetOriginX" not in self.saved():
            return False
        x, y = self.saved_place()
        return math.hypot(x - self.place.x, y - self.place.y) <= 1.5 * self.scale


def owned(x: float, y: float, side: float) -> bool:
    """Whether a point, from the top-left corner and y down, belongs to the disc or the grip."""
    if not (0 <= x < side and 0 <= y < side):
        return False
    grip = max(side * 0.28, 44)
    left, top = side - grip - 1, side - grip - 1
    if left <= x < left + grip and top <= y < top + grip:
        claim = max(grip / 2, 18)
        if x >= left + grip - claim or y >= top + grip - claim:
            return True
    return math.hypot(x - side / 2, y - side / 2) <= side * 0.52


def cut(orb: OrbHand) -> bool:
    """Whether the window is cut to the outline that also takes the pointer."""
    bound = orb.desktop.x11.bounding_region(orb.window.id)
    return len(bound) > 1 and bound == orb.desktop.x11.input_region(orb.window.id)


def uncut(orb: OrbHand) -> bool:
    """Whether all of the window's square is on the screen."""
    place = orb.place
    return orb.desktop.x11.bounding_region(orb.window.id) == [Rectangle(0, 0, place.width, place.height)]
