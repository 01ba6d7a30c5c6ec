"""A hand on the orb: where it is, where its parts are, and what it says."""

import math

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
