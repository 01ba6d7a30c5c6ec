"""The orb under the window managers that desktops bring along: the same deeds, the same results."""

import shutil
from collections.abc import Iterator

import pytest

from harness import Desktop, Rectangle, wait_for
from harness.bystander import Bystander
from harness.screenshots import palette_worn
from orb_hand import OrbHand, cut, uncut

pytestmark = pytest.mark.long

COMMANDS = {"xfwm4": "xfwm4", "xfwm4-plain": "xfwm4", "openbox": "openbox", "kwin": "kwin_x11", "mutter": "mutter",
            "kwin-wayland": "kwin_wayland"}


def bring_up(manager: str) -> Desktop:
    if not shutil.which(COMMANDS[manager]):
        pytest.skip(f"{COMMANDS[manager]} is not installed")
    # The settings daemon would arrange the displays, which a Wayland session does itself.
    return Desktop(window_manager=manager, tray="none", sound="none", xsettings=manager != "kwin-wayland")


def start(desktop: Desktop, *, x: float = 600, y: float = 300) -> OrbHand:
    """An orb of 120 points with its bottom-left corner there, y up."""
    desktop.settings.write(widgetSize=120.0, widgetOriginX=float(x), widgetOriginY=float(y), hasSavedOrigin=True)
    return OrbHand(desktop, desktop.run())


@pytest.fixture(params=COMMANDS)
def desktop(request: pytest.FixtureRequest) -> Iterator[Desktop]:
    with bring_up(request.param) as brought_up:
        yield brought_up


@pytest.fixture
def wayland() -> Iterator[Desktop]:
    with bring_up("kwin-wayland") as brought_up:
        yield brought_up


def tell_manager(desktop: Desktop, about: Bystander, *wish: str) -> None:
    """Tells the window manager a wish, once it knows the window that it is about."""
    x11 = desktop.x11
    wait_for(lambda: about.window().id in list(x11.property(x11.root.id, "_NET_CLIENT_LIST")), 5, "a managed window")
    desktop.processes.run(["wmctrl", *wish])


def click_away(orb: OrbHand, dx: float = 0, dy: float = -20) -> None:
    """Ends a reminder by a click: whatever the hand did before has arrived by then."""
    orb.remind()
    orb.desktop.pointer.click(*orb.at(dx, dy))
    wait_for(lambda: not orb.reminding(), 3, f"the click at {dx}, {dy}")


def test_it_is_placed_moved_and_resized_exactly(desktop: Desktop):
    orb = start(desktop, x=-40)
    assert orb.place == Rectangle(-40, 380, 120, 120)
    orb.drag_by(300, -100)
    assert orb.place == Rectangle(260, 280, 120, 120)
    wait_for(orb.saved_where_it_stands, 3, "the saved place")
    # A Wayland session tells its X server of a held key only while an X program has the keyboard.
    letter = desktop.window("Letter", Rectangle(700, 100, 300, 300))
    tell_manager(desktop, letter, "-a", "Letter")
    wait_for(lambda: "focus" in letter.events(), 3, "the keyboard")
    desktop.pointer.hold_key("Alt_L")
    orb.pull(orb.at(0, -20), 20, 12, lambda: orb.side == 152, "the resize with Alt")
    desktop.pointer.release_key("Alt_L")
    orb.pull(orb.grip(), -10, -6, lambda: orb.side == 136, "the resize by the grip")
    wait_for(orb.saved_where_it_stands, 3, "the saved place")
    assert orb.place.centre == (320, 340)


def test_the_wheel_turns_by_eight_points_a_notch(desktop: Desktop):
    orb = start(desktop)
    desktop.pointer.move(*orb.at(0, -20))
    # The toolkit may need one turn to learn where the axis stands.
    desktop.pointer.wheel(1)
    click_away(orb)
    side = orb.side
    assert side in (120, 128)
    desktop.pointer.wheel(-2)
    wait_for(lambda: orb.side == side - 16, 3, "two notches less")


def test_a_corner_passes_a_click_and_the_rim_takes_it(desktop: Desktop):
    orb = start(desktop)
    place = orb.place
    letter = desktop.window("Letter", Rectangle(place.x - 100, place.y - 100, 320, 320))
    tell_manager(desktop, letter, "-a", "Letter")
    # A click that comes while the manager still hands the keyboard over may be its own.
    wait_for(lambda: "focus" in letter.events(), 3, "the keyboard")
    desktop.pointer.move(*orb.at(-50, -40))
    wait_for(lambda: "motion" in letter.events(), 3, "the pointer in the letter")
    orb.remind()
    desktop.pointer.click(*orb.at(-50, -40))
    wait_for(lambda: len(letter.presses()) == 1, 3, "the click on the corner")
    assert orb.reminding()
    click_away(orb, -59, 0)
    assert len(letter.presses()) == 1


def test_a_full_screen_window_that_is_raised_later_lies_below(desktop: Desktop):
    orb = start(desktop)
    width, height = desktop.x11.size()
    full = desktop.window("Full", Rectangle(100, 100, 400, 300))
    tell_manager(desktop, full, "-r", "Full", "-b", "add,fullscreen")
    wait_for(lambda: full.window().place == Rectangle(0, 0, width, height), 3, "the full screen")
    other = desktop.window("Other", Rectangle(200, 200, 300, 300))
    tell_manager(desktop, other, "-a", "Other")
    wait_for(lambda: desktop.x11.order(other.window(), full.window()) > 0, 3, "the other window above")
    tell_manager(desktop, full, "-a", "Full")
    wait_for(lambda: desktop.x11.order(full.window(), other.window()) > 0, 3, "the full screen above")
    click_away(orb)
    assert not full.presses()


def test_it_takes_no_keyboard_when_it_is_shown_clicked_or_reminds(desktop: Desktop):
    letter = desktop.window("Letter", Rectangle(100, 100, 400, 300))
    tell_manager(desktop, letter, "-a", "Letter")
    typed = []

    def type_and_see(key: str) -> None:
        desktop.pointer.key(key)
        typed.append(f"key {key}")
        wait_for(lambda: [e for e in letter.events() if e.startswith("key")] == typed, 3, f"the key {key}")

    wait_for(lambda: "focus" in letter.events(), 3, "the keyboard")
    orb = start(desktop)
    type_and_see("a")
    orb.remind()
    type_and_see("b")
    click_away(orb)
    type_and_see("c")
    desktop.pointer.click(*orb.button("pause"))
    wait_for(lambda: orb.status == "Paused", 3, "the pause")
    type_and_see("d")
    assert "focus lost" not in letter.events()


def test_it_is_in_no_list_of_windows(desktop: Desktop):
    orb = start(desktop)
    desktop.window("Letter", Rectangle(100, 100, 400, 300))
    listed = wait_for(lambda: desktop.x11.property(desktop.x11.root.id, "_NET_CLIENT_LIST"), 3, "the list")
    assert orb.window.id not in list(listed)


def test_a_compositor_that_comes_and_goes_without_its_manager_sets_it_free_and_cuts_it():
    if not shutil.which("picom"):
        pytest.skip("picom is not installed")
    with bring_up("openbox") as desktop:
        orb = start(desktop)
        desktop.window("Letter", Rectangle(orb.place.x - 60, orb.place.y - 60, 300, 300))
        for _ in range(3):
            wait_for(lambda: cut(orb), 3, "the cut")
            picom = desktop.processes.start("picom", ["picom", "--backend", "xrender", "--config", "/dev/null"])
            wait_for(lambda: uncut(orb), 5, "the whole window")
            click_away(orb, -59, 0)
            desktop.processes.end(picom)
        wait_for(lambda: cut(orb), 3, "the cut")


def test_above_a_wayland_programs_full_screen_it_is_seen_and_takes_what_is_its_own(wayland: Desktop):
    full = wayland.native_full_screen_window("Full")
    wayland.pointer.click(100, 100)
    wait_for(lambda: "focus" in full.events() and full.presses(), 3, "the keyboard in the full screen")
    orb = start(wayland)
    wait_for(lambda: palette_worn(wayland.x11.pixels(orb.place)) == "active", 3, "the orb in view")
    orb.remind()
    wayland.pointer.key("a")
    wait_for(lambda: "key a" in full.events(), 3, "the key in the full screen")
    click_away(orb)
    presses = len(full.presses())
    orb.drag_by(-200, 100)
    wait_for(lambda: palette_worn(wayland.x11.pixels(orb.place)) == "active", 3, "the orb in its new place")
    wayland.pointer.key("b")
    wait_for(lambda: "key b" in full.events(), 3, "the key in the full screen")
    assert len(full.presses()) == presses and "focus lost" not in full.events()
    wayland.pointer.click(100, 100)
    wait_for(lambda: len(full.presses()) > presses, 3, "a click beside the orb")


def test_in_a_wayland_session_its_buttons_show_under_the_pointer_and_go(wayland: Desktop):
    orb = start(wayland)
    wayland.window("Letter", Rectangle(100, 100, 300, 300))
    wayland.pointer.move(200, 200)
    wait_for(lambda: palette_worn(wayland.x11.pixels(orb.place)) == "active", 3, "the orb in view")
    wait_for(lambda: not orb.buttons_shown(), 3, "no buttons while the pointer is elsewhere")
    orb.hover()
    wayland.pointer.move(200, 200)
    wait_for(lambda: not orb.buttons_shown(), 3, "no buttons again")
