"""The orb's window among the others: where it is, what it lets through, and who has the keyboard."""

import numpy
import pytest

from harness import Desktop, Head, Rectangle, wait_for
from orb_hand import OrbHand, cut, owned, uncut
from settings_form import SettingsForm


@pytest.fixture
def orb(desktop: Desktop) -> OrbHand:
    return start(desktop)


def start(desktop: Desktop, *, size: float = 120, x: float = 600, y: float = 300, **environment) -> OrbHand:
    """The orb of that size with its bottom-left corner there, in points, y up."""
    desktop.settings.write(widgetSize=size, widgetOriginX=x, widgetOriginY=y, hasSavedOrigin=True)
    return OrbHand(desktop, desktop.run(environment=environment or None))


def around(place: Rectangle, margin: int) -> Rectangle:
    return Rectangle(place.x - margin, place.y - margin, place.width + 2 * margin, place.height + 2 * margin)


def test_it_stands_exactly_where_it_was_saved_also_partly_off_screen(desktop: Desktop):
    orb = start(desktop, size=120, x=-50, y=700)
    assert orb.place == Rectangle(-50 * orb.scale, (800 - 700 - 120) * orb.scale,
                                  120 * orb.scale, 120 * orb.scale)


def test_it_is_in_no_list_of_windows_and_takes_no_keyboard_on_being_shown(desktop: Desktop):
    letter = desktop.window("Letter", Rectangle(100, 100, 300, 200))
    focus = desktop.x11.focus()
    orb = start(desktop)
    listed = desktop.x11.property(desktop.x11.root.id, "_NET_CLIENT_LIST")
    assert orb.window.override_redirect and orb.window.id not in list(listed)
    assert desktop.x11.focus() == focus
    assert "focus lost" not in letter.events()


def test_a_click_near_the_rim_ends_a_reminder_and_one_on_a_corner_reaches_the_window_beneath(orb: OrbHand):
    place = orb.place
    letter = orb.desktop.window("Letter", around(place, 60))
    for dx, dy in ((-50, -40), (-58, -58), (58, -58), (-58, 58)):
        before = len(letter.presses())
        orb.remind()
        orb.desktop.pointer.click(*orb.at(dx, dy))
        wait_for(lambda before=before: len(letter.presses()) > before, 3, f"the click at {dx}, {dy}")
        assert orb.reminding()
    orb.desktop.pointer.click(*orb.at(-59, 0))
    wait_for(lambda: not orb.reminding(), 3, "the reminder's end")
    assert len(letter.presses()) == 4


def test_keys_typed_elsewhere_arrive_there_while_reminders_start_are_clicked_and_end(orb: OrbHand):
    desktop = orb.desktop
    letter = desktop.window("Letter", Rectangle(100, 100, 500 * orb.scale, 300 * orb.scale))
    desktop.pointer.click(300, 250)
    wait_for(lambda: "focus" in letter.events(), 3, "the keyboard")
    typed = []

    def type_and_see(key: str) -> None:
        desktop.pointer.key(key)
        typed.append(f"key {key}")
        wait_for(lambda: [e for e in letter.events() if e.startswith("key")] == typed, 3, f"the key {key}")

    type_and_see("a")
    orb.remind()
    type_and_see("b")
    desktop.pointer.click(*orb.at(0, -20))
    type_and_see("c")
    wait_for(lambda: not orb.reminding(), 3, "the reminder's end")
    type_and_see("d")
    desktop.pointer.click(*orb.button("pause"))
    type_and_see("e")
    assert "focus lost" not in letter.events()


@pytest.mark.parametrize("factor", ["1", "1.25", "1.5", "2"])
def test_the_pointer_is_taken_by_the_disc_and_the_grip_alone_at_every_scale_and_size(factor: str):
    with Desktop(sound="none", tray="none") as desktop:
        orb = start(desktop, size=120, QT_SCALE_FACTOR=factor)
        for notches in (0, 5, -8):
            desktop.pointer.move(*orb.at())
            side = orb.place.width
            desktop.pointer.wheel(notches)
            if notches:
                wait_for(lambda side=side: abs(orb.place.width - side) > 30, 3, "the new size")
            wait_for(lambda: taken_as_it_should_be(orb, float(factor)), 3,
                     f"the outline of a side of {orb.place.width} at scale {factor}")
            orb.taken_away()
            orb.called_back()
            wait_for(lambda: taken_as_it_should_be(orb, float(factor)), 3, "the outline after a hiding")


def test_the_outline_follows_a_scale_that_changes():
    with Desktop(sound="none", tray="none") as desktop:
        orb = start(desktop, size=120)
        for factor in (1.25, 1.5, 2, 1):
            desktop.xsettings.set_resolution(round(96 * factor))
            wait_for(lambda factor=factor: orb.place.width == round(120 * factor), 3, f"an orb at scale {factor}")
            wait_for(lambda factor=factor: taken_as_it_should_be(orb, factor), 3, f"the outline at scale {factor}")


def test_it_rises_above_a_full_screen_window_that_is_raised_where_nobody_manages_windows():
    with Desktop(window_manager="none", sound="none", tray="none") as desktop:
        orb = start(desktop)
        width, height = desktop.x11.size()
        full = desktop.window("Full", Rectangle(0, 0, width, height))
        for _ in range(3):
            wait_for(lambda: desktop.x11.order(orb.window, full.window()) > 0, 3, "the orb above")
            resource = desktop.x11.display.create_resource_object("window", full.window().id)
            resource.raise_window()
            desktop.x11.display.sync()
        wait_for(lambda: desktop.x11.order(orb.window, full.window()) > 0, 3, "the orb above")
        orb.remind()
        desktop.pointer.click(*orb.at(0, -20))
        wait_for(lambda: not orb.reminding(), 3, "the click above a full-screen window")


def taken_as_it_should_be(orb: OrbHand, scale: float) -> bool:
    window, side = orb.window.id, orb.place.width
    taken = numpy.zeros((side, side), bool)
    for r in orb.desktop.x11.input_region(window):
        taken[r.y:r.y + r.height, r.x:r.x + r.width] = True
    points = side / scale
    wanted = numpy.array([[owned((x + 0.5) / scale, (y + 0.5) / scale, points) for x in range(side)]
                          for y in range(side)])
    # Whole points may put the middle of the disc half a pixel aside.
    inner = wanted.copy()
    outer = wanted.copy()
    for axis in (0, 1):
        for step in (-1, 1):
            inner &= numpy.roll(wanted, step, axis)
            outer |= numpy.roll(wanted, step, axis)
    return bool((taken | ~inner).all() and (~taken | outer).all())


def test_it_is_hidden_by_nothing_and_lies_above_a_full_screen_window(orb: OrbHand):
    desktop = orb.desktop
    width, height = desktop.x11.size()
    letter = desktop.window("Full", Rectangle(0, 0, 400, 300))
    desktop.processes.run(["wmctrl", "-r", "Full", "-b", "add,fullscreen"])
    wait_for(lambda: letter.window().place == Rectangle(0, 0, width, height), 3, "the full screen")
    windows = [w.id for w in desktop.x11.windows()]
    assert windows.index(orb.window.id) > windows.index(letter.window().id)
    orb.remind()
    desktop.pointer.click(*orb.at(0, -20))
    wait_for(lambda: not orb.reminding(), 3, "the click above a full-screen window")


@pytest.mark.parametrize("manager", ["openbox", "xfwm4-plain"])
def test_without_a_compositor_there_is_no_black_corner(manager: str):
    with Desktop(window_manager=manager, tray="none", sound="none") as desktop:
        desktop.window("Letter", Rectangle(500, 300, 400, 300))
        orb = start(desktop)
        assert cut(orb)
        x, y = orb.at(-56, -56)
        corner = desktop.x11.pixels(Rectangle(x - 3, y - 3, 6, 6))
        assert numpy.median(corner) > 200, "the letter's paper shows through"
        desktop.pointer.move(*orb.at())
        desktop.pointer.wheel(4)
        wait_for(lambda: orb.side > 140 and cut(orb) and taken_as_it_should_be(orb, 1), 3,
                 "the outline of the new size")


def test_a_compositor_that_ends_and_returns_cuts_the_window_and_sets_it_free(orb: OrbHand):
    desktop = orb.desktop
    desktop.window("Letter", around(orb.place, 60))
    wait_for(lambda: uncut(orb), 3, "the whole window")
    desktop.window_manager.stop()
    wait_for(lambda: cut(orb), 0.5, "the cut")
    desktop.window_manager.start()
    desktop.window_manager.wait(desktop.x11)
    wait_for(lambda: uncut(orb), 1, "the whole window again")


def test_without_a_compositor_the_rim_and_the_corner_take_and_pass_clicks_too():
    with Desktop(window_manager="openbox", tray="none", sound="none") as desktop:
        orb = start(desktop)
        letter = desktop.window("Letter", around(orb.place, 60))
        orb.remind()
        desktop.pointer.click(*orb.at(-50, -40))
        wait_for(lambda: len(letter.presses()) == 1, 3, "the click on the corner")
        assert orb.reminding()
        desktop.pointer.click(*orb.at(-59, 0))
        wait_for(lambda: not orb.reminding(), 3, "the click on the rim")


def test_unplugging_its_display_brings_it_to_the_default_corner_of_the_main_one():
    heads = [Head(1280, 800), Head(1024, 768, x=1280)]
    with Desktop(heads=heads, sound="none", tray="none") as desktop:
        orb = start(desktop, size=120, x=1700, y=300)
        assert orb.place.x == 1700
        desktop.display_server.unplug(1)
        wait_for(lambda: orb.place == Rectangle(1280 - 120 - 28, 800 - 120 - 36, 120, 120), 3, "the corner")
        wait_for(orb.saved_where_it_stands, 3, "the saved place")


@pytest.mark.parametrize("scale", [1, 2])
def test_unplugging_the_main_display_on_the_left_brings_it_onto_the_other_one(scale: int):
    heads = [Head(1280 * scale, 800 * scale), Head(1024 * scale, 768 * scale, x=1280 * scale)]
    with Desktop(scale=scale, heads=heads, sound="none") as desktop:
        orb = start(desktop, size=120, x=1000, y=300)
        assert orb.place.x == 1000 * scale
        # The other display moves to where this one was.
        desktop.display_server.unplug(0)
        wait_for(lambda: desktop.x11.size() == (1024 * scale, 768 * scale), 3, "the display that is left")
        corner = ((1024 - 120 - 28) * scale, (768 - 120 - 36) * scale)
        wait_for(lambda: (orb.place.x, orb.place.y) == corner, 3, "the corner of the other display")
        wait_for(orb.saved_where_it_stands, 3, "the saved place")
        frame = SettingsForm.open(desktop, orb.program).at_rest()
        assert 0 <= frame.x and frame.x + frame.width <= orb.place.x


def test_a_display_that_shrinks_pulls_the_orb_along():
    with Desktop(sound="none", tray="none") as desktop:
        orb = start(desktop, size=120, x=1100, y=30)
        desktop.display_server.plug(0, Head(1024, 768))
        wait_for(lambda: orb.place.x == 1024 - 120 - 28, 3, "the orb on the smaller display")
        wait_for(orb.saved_where_it_stands, 3, "the saved place")
