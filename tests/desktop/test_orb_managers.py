"""The orb under the window managers that desktops bring along: the same deeds, the same results."""

import shutil

import pytest

from harness import Desktop, Rectangle, wait_for
from orb_hand import OrbHand

COMMANDS = {"openbox": "openbox", "xfwm4-plain": "xfwm4", "kwin": "kwin_x11", "mutter": "mutter"}


@pytest.fixture(params=COMMANDS)
def orb(request: pytest.FixtureRequest) -> OrbHand:
    if not shutil.which(COMMANDS[request.param]):
        pytest.skip(f"{COMMANDS[request.param]} is not installed")
    with Desktop(window_manager=request.param, tray="none", sound="none") as desktop:
        desktop.settings.write(widgetSize=120.0, widgetOriginX=-40.0, widgetOriginY=300.0, hasSavedOrigin=True)
        yield OrbHand(desktop, desktop.run())


@pytest.mark.long
def test_it_is_placed_moved_resized_and_clicked_under_every_manager(orb: OrbHand):
    pointer = orb.desktop.pointer
    assert orb.place == Rectangle(-40, 380, 120, 120)

    start = orb.at(10, -20)
    pointer.drag(start, (start[0] + 300, start[1] - 100))
    wait_for(lambda: orb.place == Rectangle(260, 280, 120, 120), 3, "the move")
    wait_for(orb.saved_where_it_stands, 3, "the saved place")

    start = orb.at(0, -20)
    pointer.hold_key("Alt_L")
    pointer.drag(start, (start[0] + 20, start[1] + 12))
    pointer.release_key("Alt_L")
    wait_for(lambda: orb.side == 152, 3, "the resize with Alt")
    pointer.move(*orb.at())
    pointer.wheel(-4)
    wait_for(lambda: orb.side == 120, 3, "four notches back")

    place = orb.place
    letter = orb.desktop.window("Letter", Rectangle(place.x - 60, place.y - 60, 300, 300))
    orb.remind()
    pointer.click(*orb.at(-50, -40))
    wait_for(lambda: len(letter.presses()) == 1, 3, "the click on the corner")
    assert orb.reminding()
    pointer.click(*orb.at(-59, 0))
    wait_for(lambda: not orb.reminding(), 3, "the click on the rim")
    assert len(letter.presses()) == 1
