"""The orb under the hand: moved, resized, clicked, hovered."""

import random
import time

import pytest

from harness import Desktop, Head, Rectangle, wait_for, watch
from orb_hand import OrbHand


@pytest.fixture
def orb(desktop: Desktop) -> OrbHand:
    desktop.settings.write(widgetSize=128.0, widgetOriginX=600.0, widgetOriginY=300.0, hasSavedOrigin=True)
    return OrbHand(desktop, desktop.run())


def test_it_follows_the_pointer_point_for_point_and_saves_where_it_was_left(orb: OrbHand):
    pointer, before = orb.desktop.pointer, orb.place
    start = orb.at(0, -20)
    pointer.move(*start)
    pointer.press()
    for step in range(1, 21):
        pointer.move(start[0] - step * 10 * orb.scale, start[1] + step * 3 * orb.scale)
    wait_for(lambda: (orb.place.x, orb.place.y)
             == (before.x - 200 * orb.scale, before.y + 60 * orb.scale), 3, "the orb under the pointer")
    pointer.release()
    wait_for(orb.saved_where_it_stands, 3, "the saved place")


def test_a_drag_hangs_at_most_thirty_five_per_cent_over_the_edge(orb: OrbHand):
    orb.desktop.pointer.drag(orb.at(0, -20), (0, orb.at(0, -20)[1]))
    wait_for(lambda: abs(orb.place.x + 0.35 * 128 * orb.scale) <= orb.scale, 3, "the bound at the left edge")


def test_dragging_with_alt_resizes_about_the_centre(orb: OrbHand):
    pointer, centre = orb.desktop.pointer, orb.place.centre
    start = orb.at(0, -20)
    pointer.hold_key("Alt_L")
    pointer.drag(start, (start[0] + 20 * orb.scale, start[1] + 12 * orb.scale))
    pointer.release_key("Alt_L")
    wait_for(lambda: orb.side == 160, 3, "a side of 160 points")
    assert max(abs(a - b) for a, b in zip(orb.place.centre, centre)) <= orb.scale
    wait_for(lambda: orb.saved()["widgetSize"] == 160 and orb.saved_where_it_stands(), 3, "both saved")


def test_alt_pressed_or_let_go_on_the_way_changes_nothing(orb: OrbHand):
    pointer, side = orb.desktop.pointer, orb.side
    start = orb.at(0, -20)
    pointer.move(*start)
    pointer.press()
    pointer.move(start[0] - 20 * orb.scale, start[1])
    wait_for(lambda: orb.place.x == (600 - 20) * orb.scale, 3, "the beginning of a move")
    pointer.hold_key("Alt_L")
    pointer.move(start[0] - 60 * orb.scale, start[1])
    pointer.release()
    pointer.release_key("Alt_L")
    wait_for(lambda: orb.place.x == (600 - 60) * orb.scale, 3, "the move's end")
    assert orb.side == side


def test_wheel_notches_are_eight_points(orb: OrbHand):
    orb.desktop.pointer.move(*orb.at())
    orb.desktop.pointer.wheel(2)
    wait_for(lambda: orb.side == 144, 3, "144 points")
    orb.desktop.pointer.wheel(-3)
    wait_for(lambda: orb.side == 120, 3, "120 points")


def test_the_wheel_on_a_corner_leaves_the_orb_alone(orb: OrbHand):
    letter = orb.desktop.window("Letter", Rectangle(orb.place.x - 60, orb.place.y - 60, 400, 400))
    orb.desktop.pointer.move(*orb.at(-60, -60))
    orb.desktop.pointer.wheel(2)
    wait_for(lambda: "scroll" in letter.events(), 3, "the wheel's turn beneath")
    assert orb.side == 128


def test_a_touchpad_resizes_smoothly_and_by_pinching(orb: OrbHand):
    if not orb.desktop.has_touchpad:
        pytest.skip("this X server has no test input driver")
    orb.hover()
    with orb.desktop.touchpad() as touchpad:
        # The toolkit learns from the first strokes where the axis stands.
        def felt() -> bool:
            touchpad.scroll(-20)
            return orb.saved()["widgetSize"] > 128
        wait_for(felt, 3, "a stroke that is felt", every=0.3)
        before = settled_size(orb)
        # 120 of the driver's units are a notch, and a notch is 15 points of a touchpad.
        touchpad.scroll(-80)
        wait_for(lambda: orb.saved()["widgetSize"] == pytest.approx(before + 6, abs=0.7), 3, "6 points more")
        before = settled_size(orb)
        touchpad.pinch(1.1, 1.2)
        wait_for(lambda: orb.saved()["widgetSize"] == pytest.approx(before * 1.1 * 1.1, abs=2.5), 3, "a tenth, twice")


def settled_size(orb: OrbHand) -> float:
    """The stored size, once it is that of the window and has been for a second: strokes take their time."""
    changed, last = time.monotonic(), None

    def rests() -> bool:
        nonlocal changed, last
        seen = orb.saved()["widgetSize"], orb.side
        if seen != last:
            changed, last = time.monotonic(), seen
        return abs(seen[0] - seen[1]) <= 0.5 and time.monotonic() - changed > 1

    wait_for(rests, 5, "the size at rest")
    return last[0]


def test_the_grip_resizes_from_its_start_and_adds_both_axes(orb: OrbHand):
    pointer, start = orb.desktop.pointer, orb.grip()
    pointer.move(*start)
    pointer.press()
    pointer.move(start[0] - 300 * orb.scale, start[1] - 300 * orb.scale)
    wait_for(lambda: orb.side == 72, 3, "the smallest size")
    pointer.move(start[0] + 10 * orb.scale, start[1] + 10 * orb.scale)
    wait_for(lambda: orb.side == 148, 3, "148 points")
    pointer.release()
    wait_for(lambda: orb.saved()["widgetSize"] == 148 and orb.saved_where_it_stands(), 3, "both saved")


def test_a_hundred_small_resizes_leave_the_centre_where_it_is(orb: OrbHand):
    pointer, centre = orb.desktop.pointer, orb.place.centre
    pointer.move(*orb.at())
    for turn in range(100):
        pointer.wheel(1 if turn % 2 else -1)
    pointer.wheel(3)
    wait_for(lambda: orb.side == 152, 5, "all that and three notches more")
    assert max(abs(a - b) for a, b in zip(orb.place.centre, centre)) <= orb.scale
    # A point more or less moves the corners by half a point, which must not add up either.
    start = orb.grip()
    pointer.move(*start)
    pointer.press()
    for turn in range(1, 21):
        pointer.move(start[0] + turn % 2 * orb.scale, start[1])
        wait_for(lambda turn=turn: orb.side == 152 + turn % 2, 3, "a point more or less")
    pointer.release()
    assert max(abs(a - b) for a, b in zip(orb.place.centre, centre)) <= orb.scale


def test_a_press_that_never_moves_ends_a_reminder_and_so_does_the_second_of_two_quick_ones(orb: OrbHand):
    orb.remind()
    orb.desktop.pointer.click(*orb.at(0, -20))
    wait_for(lambda: not orb.reminding(), 3, "the reminder's end")
    orb.desktop.pointer.click(*orb.at(0, -20))
    orb.element.act("Velmora now")
    orb.desktop.pointer.press()
    orb.desktop.pointer.release()
    wait_for(lambda: not orb.reminding(), 3, "the end by the second press")


def test_presses_between_the_circles_where_the_buttons_sit_and_after_a_move_end_nothing(orb: OrbHand):
    orb.remind()
    for dx, dy in ((-46, -46), (0, 20)):
        orb.desktop.pointer.click(*orb.at(dx, dy))
    start = orb.at(0, -20)
    orb.desktop.pointer.drag(start, (start[0] + 4 * orb.scale, start[1]))
    wait_for(lambda: orb.place.x == 604 * orb.scale, 3, "the move by four points")
    assert orb.reminding()


def test_the_buttons_pause_and_open_the_settings(orb: OrbHand):
    orb.desktop.pointer.click(*orb.button("pause"))
    wait_for(lambda: orb.status == "Paused", 3, "the pause")
    orb.desktop.pointer.click(*orb.button("pause"))
    wait_for(lambda: orb.status.startswith("Next in"), 3, "the countdown")
    orb.desktop.pointer.click(*orb.button("settings"))
    wait_for(lambda: any(not window.override_redirect for window in orb.program.windows()), 3, "the settings")


def test_a_button_tells_what_it_does(orb: OrbHand):
    orb.desktop.pointer.move(*orb.button("pause"))
    tip = wait_for(lambda: [w for w in orb.program.windows() if w.id != orb.window.id], 3, "a tooltip")[0]
    assert tip.place.width > 60 * orb.scale and orb.desktop.x11.focus() != tip.id
    orb.desktop.pointer.move(5, 5)
    wait_for(lambda: [w.id for w in orb.program.windows()] == [orb.window.id], 3, "the tooltip's end")


def test_the_buttons_show_under_the_pointer_and_through_a_drag_that_leaves_the_orb(orb: OrbHand):
    pointer, edge = orb.desktop.pointer, 1280 * orb.scale
    # Room for the pointer beyond the display that the orb keeps to.
    orb.desktop.display_server.plug(1, Head(1024 * orb.scale, 768 * orb.scale, x=edge))
    wait_for(lambda: orb.desktop.x11.size()[0] > edge, 3, "the second display")
    pointer.move(5, 5)
    wait_for(lambda: not orb.buttons_shown(), 2, "no buttons")
    orb.hover()
    pointer.press()
    start = orb.at(0, -20)
    for step in range(12):
        pointer.move(start[0] + step * 80 * orb.scale, start[1])
    wait_for(lambda: abs(orb.place.x + 0.65 * orb.place.width - edge) <= orb.scale, 3, "the orb at its bound")
    wait_for(orb.buttons_shown, 3, "the orb drawn there")
    watch(orb.buttons_shown, 1, "the buttons show while the orb is dragged beyond its bound")
    pointer.release()
    orb.hover()
    pointer.move(5, 5)
    wait_for(lambda: not orb.buttons_shown(), 2, "no buttons again")


def test_an_orb_that_somebody_takes_off_the_screen_comes_back_in_its_place_when_it_is_called(orb: OrbHand):
    place = orb.place
    region = orb.desktop.x11.input_region(orb.window.id)
    orb.taken_away()
    orb.called_back()
    assert orb.place == place and orb.desktop.x11.input_region(orb.window.id) == region
    orb.hover()


def test_a_move_that_ends_when_the_orb_is_taken_away_is_saved_where_it_stands(orb: OrbHand):
    pointer, start = orb.desktop.pointer, orb.at(0, -20)
    pointer.move(*start)
    pointer.press()
    pointer.move(start[0] - 30 * orb.scale, start[1])
    pointer.move(start[0] - 60 * orb.scale, start[1])
    wait_for(lambda: orb.place.x == (600 - 60) * orb.scale, 3, "the move")
    orb.taken_away()
    pointer.release()
    orb.called_back()
    wait_for(orb.saved_where_it_stands, 3, "the saved place")
    assert orb.place.x == (600 - 60) * orb.scale


def test_a_display_that_changes_during_a_drag_leaves_the_measure_and_the_saved_place_right():
    with Desktop(sound="none", tray="none") as desktop:
        desktop.settings.write(widgetSize=128.0, widgetOriginX=600.0, widgetOriginY=300.0, hasSavedOrigin=True)
        orb = OrbHand(desktop, desktop.run())
        # The places of the desktop count from the bottom, which moves up while the grip is held.
        pointer, start, place = desktop.pointer, orb.grip(), orb.place
        pointer.move(*start)
        pointer.press()
        pointer.move(start[0] + 10, start[1])
        wait_for(lambda: orb.side == 138, 3, "the resize")
        desktop.display_server.plug(0, Head(1280, 720))
        wait_for(orb.saved_where_it_stands, 3, "the place counted anew")
        pointer.move(start[0] + 20, start[1])
        wait_for(lambda: orb.side == 148, 3, "ten points more and nothing else")
        pointer.release()
        wait_for(orb.saved_where_it_stands, 3, "the saved place")
        assert max(abs(a - b) for a, b in zip(orb.place.centre, place.centre)) <= 1


@pytest.mark.long
def test_a_thousand_deeds_at_random_never_lose_the_orb():
    heads = [Head(1280, 800), Head(1024, 768, x=1280)]
    chance = random.Random(20010101)
    with Desktop(heads=heads, sound="none", tray="none") as desktop:
        orb = OrbHand(desktop, desktop.run())
        plugged = True
        for deed in range(1000):
            kind = chance.choices(("drag", "grip", "wheel", "alt", "display", "hide"), (40, 20, 29, 7, 2, 2))[0]
            if kind == "hide":
                place = at_rest(orb)
                orb.taken_away()
                orb.called_back()
                assert orb.place == place
                continue
            if kind == "display":
                plugged = not plugged
                if plugged:
                    desktop.display_server.plug(0, heads[0])
                    desktop.display_server.plug(1, heads[1])
                else:
                    desktop.display_server.unplug(1)
                    # The one that the orb is on, which often leaves the orb outside.
                    desktop.display_server.plug(0, Head(800, 600))
                wait_for(lambda: at_rest_on_screen(orb), 5, f"the orb at rest after deed {deed}")
                continue
            end = (chance.randrange(desktop.x11.size()[0]), chance.randrange(desktop.x11.size()[1]))
            if kind == "drag":
                desktop.pointer.drag(orb.at(0, -15), end, steps=4)
            elif kind == "grip":
                start = orb.grip()
                desktop.pointer.drag(start, (start[0] + chance.randrange(-60, 60), start[1]), steps=4)
            elif kind == "wheel":
                desktop.pointer.move(*orb.at(0, -15))
                desktop.pointer.wheel(chance.randrange(-4, 5))
            else:
                desktop.pointer.hold_key("Alt_L")
                start = orb.at(0, -15)
                desktop.pointer.drag(start, (start[0] + chance.randrange(-40, 40), start[1]), steps=4)
                desktop.pointer.release_key("Alt_L")
            if deed % 50 == 49:
                wait_for(lambda: orb.saved_where_it_stands(), 5, f"the saved place after deed {deed}")
                wait_for(lambda: at_rest_on_screen(orb), 5, f"the orb on screen after deed {deed}")


def at_rest(orb: OrbHand) -> Rectangle:
    """The orb's place, once what the hand did has arrived: the program may be some turns behind."""
    looks: list[Rectangle] = []

    def rests() -> bool:
        looks.append(orb.place)
        return len(looks) >= 10 and len(set(looks[-10:])) == 1 and orb.saved_where_it_stands()

    wait_for(rests, 5, "the orb at rest", every=0.05)
    return looks[-1]


def at_rest_on_screen(orb: OrbHand) -> bool:
    """Whether at least 45 % of the orb is visible on each axis of one display."""
    place = orb.place
    for head in orb.desktop.display_server.plugged().values():
        across = min(place.x + place.width, head.x + head.width) - max(place.x, head.x)
        down = min(place.y + place.height, head.y + head.height) - max(place.y, head.y)
        if min(across, down) >= 0.45 * place.width - 1:
            return True
    return False
