"""The status item: its icon, its tooltip, its menu, and panels that come and go."""

import time

import numpy
import pytest

from harness import Desktop, Rectangle, wait_for, watch
from harness.pointer import LEFT, RIGHT

ROWS = ["—", "Pause Reminders", "Velmora Now", "—", "Settings…", "—", "Quit Velmora"]


@pytest.fixture
def plain() -> Desktop:
    with Desktop() as desktop:
        yield desktop


def texts(rows) -> list[str]:
    return ["—" if row.separator else row.text for row in rows]


def systray(desktop) -> Rectangle | None:
    """Where the panel shows status items, once there is one."""
    return next((window.place for window in desktop.x11.windows()
                 if window.title == "wrapper-2.0" and window.place.y == 0
                 and window.place.width >= 24 * desktop.scale), None)


def contrast(desktop, place: Rectangle) -> int:
    """How far the lightest and the darkest pixel are apart across the middle of a place, 0..255."""
    pixels = desktop.x11.pixels(place).astype(int).mean(axis=2)
    middle = pixels[pixels.shape[0] // 2]
    return int(middle.max() - middle.min())


def drawn(desktop, find) -> Rectangle:
    """The place of an icon, once it is drawn and has stood still for a while."""
    looks: list[Rectangle | None] = []

    def stands() -> bool:
        place = find()
        looks.append(place if place and contrast(desktop, place) > 60 else None)
        return looks[-1] is not None and len(looks) >= 10 and len(set(looks[-10:])) == 1

    wait_for(stands, 5, "the icon to be drawn and to stand still")
    return looks[-1]


def open_by_click(desktop, program, place: Rectangle, button: int):
    """Clicks an icon and answers the program's own menu."""
    desktop.pointer.click(*place.centre, button)
    return wait_for(lambda: menu_of(program), 3, "the menu")


def close_by_click_elsewhere(desktop, program) -> None:
    """Clicks on the bare desktop, again where the menu had not yet taken hold of the pointer."""
    def closed() -> bool:
        desktop.pointer.click(300, 500, LEFT)
        return not menu_of(program)

    wait_for(closed, 3, "the menu closed", every=0.5)


def menu_of(program):
    """The menu that the program itself has opened, or none."""
    return next((window for window in program.windows()
                 if window.override_redirect and window.place.width > window.place.height + 20), None)


def pixels_of(icon) -> numpy.ndarray:
    width, height, data = icon
    return numpy.frombuffer(data, numpy.uint8).reshape(height, width, 4)


def test_the_tooltip_carries_the_status_line(plain):
    plain.settings.write(intervalMinutes=20, heldRemaining=600.0)
    program = plain.run()
    wait_for(lambda: program.item.tooltip == "Velmora — Next in 10m", 5, "the tooltip")
    program.item.click("Pause Reminders")
    wait_for(lambda: program.item.tooltip == "Velmora — Paused", 2, "the tooltip")
    program.item.click("Velmora Now")
    wait_for(lambda: program.item.tooltip == "Velmora — Velmora", 2, "the tooltip")


def test_the_menu_has_its_rows_and_shortcuts(plain):
    program = plain.run()
    rows = program.item.open_menu()
    assert texts(rows)[1:] == ROWS
    assert rows[0].text == program.status_line and not rows[0].enabled
    assert all(row.enabled for row in rows[1:] if not row.separator)
    shortcuts = {row.text: row.shortcut for row in rows if row.shortcut}
    assert shortcuts == {"Pause Reminders": [["Control", "P"]], "Velmora Now": [["Control", "B"]],
                         "Settings…": [["Control", ","]], "Quit Velmora": [["Control", "Q"]]}


def test_the_open_menus_first_row_follows_the_countdown_and_nothing_else_changes(plain):
    plain.settings.write(intervalMinutes=15, heldRemaining=50.0)
    program = plain.run()
    item = program.item
    item.open_menu()
    first = item.rows()[0]
    wait_for(lambda: len(item.row_changes) >= 4, 6, "three seconds to pass in the menu")
    assert {number for number, _ in item.row_changes} == {first.number}
    seconds = [int(text.removeprefix("Next in ").removesuffix("s")) for _, text in item.row_changes]
    # A program that did not get its turn for a moment leaves a second out.
    assert all(1 <= earlier - later <= 2 for earlier, later in zip(seconds, seconds[1:]))


def test_the_first_row_is_written_only_when_it_reads_differently(plain):
    program = plain.run()
    program.wait_for_status("Next in 15m", 5)
    program.item.open_menu()
    watch(lambda: not program.item.row_changes, 3, "an unchanged row left alone")


def test_the_third_row_is_decided_when_the_menu_opens(plain):
    program = plain.run()
    item = program.item
    assert item.open_menu()[2].text == "Pause Reminders"
    item.click("Pause Reminders")
    program.wait_for_status("Paused", 2)
    assert item.rows()[2].text == "Pause Reminders"
    item.close_menu()
    assert item.open_menu()[2].text == "Resume Reminders"
    item.click("Resume Reminders")
    program.wait_for_status("Next in", 2)
    item.close_menu()
    assert item.open_menu()[2].text == "Pause Reminders"


def test_every_row_does_what_it_says(plain):
    program = plain.run()
    program.wait_for_orb()
    program.item.click("Settings…")
    wait_for(lambda: len(program.windows()) == 2, 3, "the settings panel")
    program.item.click("Velmora Now")
    program.wait_for_status("Velmora", 2)
    program.item.click("Quit Velmora")
    assert program.wait() == 0
    assert program.errors == ""


@pytest.mark.parametrize("scale", [1, 2])
def test_a_left_click_opens_the_programs_menu_and_a_click_elsewhere_closes_it(scale):
    with Desktop(scale=scale) as desktop:
        program = desktop.run()
        program.wait_for_orb()
        program.item
        place = drawn(desktop, lambda: systray(desktop))
        for _ in range(3):
            menu = open_by_click(desktop, program, place, LEFT)
            assert menu.place.y >= place.y + place.height - 1
            assert menu.place.x >= 0 and menu.place.x + menu.place.width <= desktop.x11.size()[0]
            close_by_click_elsewhere(desktop, program)


def test_a_row_of_the_programs_own_menu_can_be_clicked(plain):
    program = plain.run()
    program.wait_for_orb()
    program.item
    menu = open_by_click(plain, program, drawn(plain, lambda: systray(plain)), LEFT)
    # The third row: below the status line and the first separator.
    plain.pointer.click(menu.place.x + menu.place.width // 3, menu.place.y + 34, LEFT)
    program.wait_for_status("Paused", 3)


def test_a_right_click_opens_the_panels_menu(plain):
    program = plain.run()
    program.item.click("Pause Reminders")
    program.wait_for_status("Paused", 2)
    place = drawn(plain, lambda: systray(plain))
    before = {window.id for window in plain.x11.windows()}
    plain.pointer.click(*place.centre, RIGHT)
    wait_for(lambda: [window for window in plain.x11.windows()
                      if window.id not in before and window.place.height > 100], 3, "the menu")
    # The panel has a menu of its own too; this row is decided when the program's opens.
    wait_for(lambda: program.item.rows()[2].text == "Resume Reminders", 3, "the program's rows in it")
    plain.pointer.key("Escape")


@pytest.mark.parametrize("theme, ink", [("Adwaita", range(0, 100)), ("Adwaita:dark", range(180, 256))])
def test_the_icon_wears_the_panels_own_ink(theme, ink):
    with Desktop(environment={"GTK_THEME": theme}) as desktop:
        program = desktop.run()
        icons = program.item.icons()
        sizes = {width for width, _, _ in icons}
        assert {16, 22, 24, 32, 44, 48} <= sizes
        for icon in icons:
            pixels = pixels_of(icon)
            solid = pixels[pixels[:, :, 0] > 250]
            assert len(solid) > 0 and all(int(value) in ink for value in solid[:, 1:].flat)


def test_the_icon_is_a_ring_around_a_dot_at_every_size(plain):
    program = plain.run()
    for icon in program.item.icons():
        side = icon[0]
        alpha = pixels_of(icon)[:, :, 0]
        row = alpha[side // 2] > 128
        # Along the middle: ring, gap, dot, gap, ring.
        runs = numpy.flatnonzero(numpy.diff(np_padded(row)))
        assert len(runs) == 6, f"{side}: {row.astype(int)}"
        outer = (runs[5] - runs[0]) / side * 18
        dot = (runs[3] - runs[2]) / side * 18
        assert abs(outer - 15.1) < 1.6 and abs(dot - 5.6) < 1.6


def np_padded(row: numpy.ndarray) -> numpy.ndarray:
    return numpy.concatenate([[0], row.astype(int), [0]])


def test_a_panel_that_restarts_gets_the_item_back(plain):
    program = plain.run()
    program.item
    for _ in range(3):
        plain.tray.stop()
        wait_for(lambda: not plain.tray.takes_status_items(), 5, "the panel to go")
        watch(lambda: program.running, 0.2, "the program running")
        plain.tray.start("panel")
        plain.tray.wait(plain.x11)
        program._item = None
        assert texts(program.item.open_menu())[1:] == ROWS
        program.item.close_menu()
    program.item.click("Pause Reminders")
    program.wait_for_status("Paused", 2)


def test_a_panel_that_comes_late_gets_the_item():
    with Desktop(tray="none") as desktop:
        program = desktop.run()
        program.wait_for_orb()
        watch(lambda: program.running, 1, "the program running without a panel")
        desktop.tray.start("panel")
        desktop.tray.wait(desktop.x11)
        assert texts(program.item.open_menu())[1:] == ROWS


def icon_in_tray(program):
    """The icon that the program has put into a tray of the old kind, or none."""
    return next((window for window in program.windows() if 8 <= window.place.width < 40), None)


def test_a_tray_of_the_old_kind_gets_the_icon_and_both_clicks_open_the_menu():
    with Desktop(tray="xembed") as desktop:
        program = desktop.run()
        place = drawn(desktop, lambda: icon_in_tray(program).place if icon_in_tray(program) else None)
        for button in (LEFT, RIGHT):
            open_by_click(desktop, program, place, button)
            close_by_click_elsewhere(desktop, program)


def test_a_tray_of_the_old_kind_gets_the_icon_without_a_session_bus():
    with Desktop(tray="xembed", session_bus=False) as desktop:
        program = desktop.run()
        wait_for(lambda: icon_in_tray(program), 10, "the icon in the tray")
        assert program.stop() == 0 and program.errors == ""


def test_the_icon_can_be_read_in_a_tray_that_tells_no_colours():
    with Desktop(tray="xembed") as desktop:
        program = desktop.run()
        icon = wait_for(lambda: icon_in_tray(program), 10, "the icon in the tray")
        wait_for(lambda: contrast(desktop, icon.place) > 120, 3, "a light image on a dark ground")


def test_a_tray_of_the_old_kind_that_restarts_gets_the_icon_back():
    with Desktop(tray="xembed") as desktop:
        program = desktop.run()
        wait_for(lambda: icon_in_tray(program), 10, "the icon in the tray")
        desktop.tray.stop()
        wait_for(lambda: not desktop.x11.selection_owner("_NET_SYSTEM_TRAY_S0"), 3, "the tray gone")
        desktop.tray.start("xembed")
        desktop.tray.wait(desktop.x11)
        wait_for(lambda: icon_in_tray(program), 10, "the icon in the tray again")
        assert program.running


def test_without_any_tray_nothing_is_lost():
    with Desktop(tray="none") as desktop:
        program = desktop.run()
        program.wait_for_orb()
        assert desktop.run("--settings").wait() == 0
        panel = wait_for(
            lambda: next((w for w in program.windows() if not w.override_redirect), None), 3,
            "the settings panel")
        desktop.pointer.click(panel.place.x + 20, panel.place.y + 20)
        desktop.pointer.key("Control_L", "q")
        assert program.wait() == 0
        assert "heldRemaining" in desktop.settings.read()


def test_the_icon_and_its_menu_cost_next_to_nothing_while_nothing_changes(plain):
    program = plain.run()
    program.wait_for_status("Paused" if program.status_line == "Paused" else "Next in 15m", 5)
    tooltips = []
    plain.session_bus.listen("org.kde.StatusNotifierItem", "NewToolTip",
                             lambda path, arguments: tooltips.append(time.monotonic()))
    watch(lambda: not tooltips, 4, "an unchanged tooltip left alone")
