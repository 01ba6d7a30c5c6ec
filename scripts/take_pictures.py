"""Takes the documents' pictures of the real program. Arguments: the folder to write to.

Each picture is a cut from a private desktop on which the program runs over a window with a letter:
at twice the scale, but for the settings, which a display of that scale is too low for. Places are
device pixels from the desktop's top-left corner.
"""

import sys
import time
from pathlib import Path

from PIL import Image

from harness.desktop import Desktop
from harness.display_server import Head
from harness.program import Program
from harness.screenshots import palette_worn, save
from harness.waiting import wait_for
from harness.x11 import Rectangle, Window

_SCALE = 2
_LETTER = Rectangle(0, 56, 2560, 1480)
_TALL, _TALL_LETTER = Head(1600, 1200), Rectangle(0, 28, 1600, 1165)
# One breath of a reminder takes ten seconds.
_BREATH, _FRAMES_A_SECOND = 10.0, 12
_AROUND_THE_ORB = 26


def _cut(desktop: Desktop, place: Rectangle, picture: Path) -> None:
    """Saves what is seen at a place given in device pixels."""
    print(save(desktop.x11.pixels(place), picture))


def _around(place: Rectangle, left: int, top: int, right: int, bottom: int) -> Rectangle:
    """The place with so many points more on each side, in device pixels."""
    left, top, right, bottom = (margin * _SCALE for margin in (left, top, right, bottom))
    return Rectangle(place.x - left, place.y - top, place.width + left + right, place.height + top + bottom)


def _wears(desktop: Desktop, program: Program, palette: str) -> None:
    def worn() -> bool:
        orb = program.orb()
        return bool(orb) and palette_worn(desktop.x11.pixels(orb.place)) == palette

    wait_for(worn, 20, f"the {palette} palette")
    time.sleep(0.6)  # The palettes cross-fade for less than that.


def _orb(desktop: Desktop, program: Program, folder: Path) -> None:
    """The orb at rest, under the pointer, and in a reminder."""
    orb = program.wait_for_orb()
    _wears(desktop, program, "active")
    place = _around(orb.place, 190, 70, 70, 30)
    _cut(desktop, place, folder / "rest.png")
    desktop.pointer.move(*orb.place.centre)
    desktop.pointer.move(orb.place.centre[0] + 4, orb.place.centre[1])
    time.sleep(1.0)  # The controls fade in for less than that.
    _cut(desktop, place, folder / "controls.png")
    desktop.pointer.move(30, 1000)
    program.item.click("Velmora Now")
    _wears(desktop, program, "reminding")
    _cut(desktop, place, folder / "reminder.png")


def _breath(desktop: Desktop, program: Program, picture: Path) -> None:
    """A breath of a reminder that runs, as a short animation at the size it has on screen."""
    place = _around(program.orb().place, *[_AROUND_THE_ORB] * 4)
    frames, start = [], time.monotonic()
    while (elapsed := time.monotonic() - start) < _BREATH:
        seen = Image.fromarray(desktop.x11.pixels(place))
        frames.append((elapsed, seen.resize((seen.width // _SCALE, seen.height // _SCALE), Image.LANCZOS)))
        time.sleep(max(0.0, len(frames) / _FRAMES_A_SECOND - (time.monotonic() - start)))
    times = [int(elapsed * 1000) for elapsed, _ in frames] + [int(_BREATH * 1000)]
    frames[0][1].save(picture, save_all=True, append_images=[frame for _, frame in frames[1:]],
                      duration=[after - before for before, after in zip(times, times[1:])],
                      loop=0, quality=82, method=6)
    print(picture, len(frames), "frames", picture.stat().st_size, "bytes")


def _form(picture: Path) -> None:
    with Desktop(heads=[_TALL]) as desktop:
        desktop.window("A letter from the garden", _TALL_LETTER)
        program = Program(desktop, "--settings")
        wait_for(lambda: _settings(program), 10, "the settings")
        time.sleep(1.5)  # The window is fitted once more when it has its frame.
        place = _settings(program).place
        _cut(desktop, Rectangle(place.x - 14, place.y - 30, place.width + 28, place.height + 44), picture)
        program.stop()


def _settings(program: Program) -> Window | None:
    return next((window for window in program.windows()
                 if not window.override_redirect and window.title.startswith("Velmora")), None)


def _menu(desktop: Desktop, program: Program, picture: Path) -> None:
    width, _ = desktop.x11.size()
    before = {window.id for window in program.windows()}
    desktop.pointer.move(width - 330 * _SCALE, 34 * _SCALE)
    program.item.activate()
    menu = wait_for(lambda: next((window for window in program.windows()
                                  if window.id not in before and window.override_redirect), None), 10, "the menu")
    time.sleep(0.5)
    _cut(desktop, _around(menu.place, 20, 34, 20, 20), picture)
    desktop.pointer.key("Escape")


def _main() -> None:
    folder = Path(sys.argv[1])
    with Desktop(scale=_SCALE, heads=[Head(2560, 1600)]) as desktop:
        desktop.window("A letter from the garden", _LETTER)
        desktop.settings.write(intervalMinutes=15, allDay=True, heldRemaining=540.0,
                               hasSavedOrigin=True, widgetOriginX=340.0, widgetOriginY=545.0)
        program = Program(desktop)
        program.wait_for_orb()
        _menu(desktop, program, folder / "menu.png")
        _orb(desktop, program, folder)
        _breath(desktop, program, folder / "breath.webp")
        program.stop()
    _form(folder / "form.png")


if __name__ == "__main__":
    _main()
