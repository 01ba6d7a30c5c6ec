"""The settings window: where it opens, how tall it is, and how it comes and goes."""

import pytest

from harness import Desktop, Head, Rectangle, wait_for, watch
from settings_form import WIDTH, SettingsForm

EVERY_DESKTOP = 0xFFFFFFFF
GAP, MARGIN, KEPT_FREE = 16, 12, 24


def states(desktop: Desktop, window: int) -> set[str]:
    atoms = desktop.x11.property(window, "_NET_WM_STATE")
    return {desktop.x11.display.get_atom_name(atom) for atom in (atoms if atoms is not None else [])}


def inside(form: SettingsForm, desktop: Desktop) -> tuple[int, int, int, int]:
    """How far the frame stays inside the work area: left, top, right, bottom, in points."""
    area, frame, scale = desktop.x11.work_area(), form.frame(), desktop.scale
    return ((frame.x - area.x) / scale, (frame.y - area.y) / scale,
            (area.x + area.width - frame.x - frame.width) / scale,
            (area.y + area.height - frame.y - frame.height) / scale)


def test_it_opens_left_of_the_orb_inside_the_display(desktop: Desktop):
    program = desktop.run()
    form = SettingsForm.open(desktop, program)
    orb = program.wait_for_orb().place
    wait_for(lambda: abs(form.frame().x + form.frame().width + GAP * desktop.scale - orb.x)
             <= desktop.scale, 3, "the panel beside the orb")
    assert form.window().place.width == WIDTH * desktop.scale
    _, top, _, bottom = inside(form, desktop)
    assert top >= MARGIN - 1 and bottom >= MARGIN - 1
    # The display is lower than the form: the panel is as tall as it may be.
    assert top + bottom == pytest.approx(KEPT_FREE, abs=1.5)


def test_it_opens_right_of_an_orb_at_the_left_edge(desktop: Desktop):
    desktop.settings.write(widgetOriginX=100.0, widgetOriginY=300.0, hasSavedOrigin=True)
    program = desktop.run()
    form = SettingsForm.open(desktop, program)
    orb = program.wait_for_orb().place
    wait_for(lambda: abs(form.frame().x - orb.x - orb.width - GAP * desktop.scale)
             <= desktop.scale, 3, "the panel on the other side")


def test_on_a_tall_display_it_is_as_tall_as_the_form_and_centred_on_the_orb():
    with Desktop(heads=[Head(1600, 1400)]) as desktop:
        desktop.settings.write(widgetOriginX=1000.0, widgetOriginY=600.0, hasSavedOrigin=True)
        program = desktop.run()
        form = SettingsForm.open(desktop, program)
        wait_for(lambda: 700 < form.window().place.height < 900, 3, "the form's own height")
        assert form.place("Quit").y + form.place("Quit").height <= \
            form.window().place.y + form.window().place.height
        orb = program.wait_for_orb().place
        wait_for(lambda: abs(form.frame().centre[1] - orb.centre[1]) <= 2, 3, "the panel centred")
        before = form.window().place.height
        form.click("Gentle chime")
        wait_for(lambda: form.window().place.height < before - 40, 3, "a shorter form")


def test_near_the_top_it_stays_below_the_edge():
    with Desktop(heads=[Head(1600, 1400)]) as desktop:
        desktop.settings.write(widgetOriginX=1000.0, widgetOriginY=1240.0, hasSavedOrigin=True)
        form = SettingsForm.open(desktop, desktop.run())
        wait_for(lambda: abs(inside(form, desktop)[1] - MARGIN) <= 1, 3, "the margin at the top")


def test_on_a_low_display_it_scrolls_to_the_actions():
    with Desktop(heads=[Head(1024, 600)]) as desktop:
        program = desktop.run()
        form = SettingsForm.open(desktop, program)
        _, top, _, bottom = inside(form, desktop)
        assert top + bottom == pytest.approx(KEPT_FREE, abs=1.5)
        form.tab_to("Quit")
        place, window = form.place("Quit"), form.window().place
        assert window.y <= place.y and place.y + place.height <= window.y + window.height
        form.click("Quit")
        assert program.wait() == 0


def test_at_one_and_a_half_times_the_text_size_it_fits_and_reaches_its_actions():
    with Desktop(environment={"QT_FONT_DPI": "144"}) as desktop:
        program = desktop.run()
        form = SettingsForm.open(desktop, program)
        wait_for(lambda: form.window().place.width == WIDTH * 3 // 2, 3, "a panel for large text")
        wait_for(lambda: inside(form, desktop)[1] + inside(form, desktop)[3]
                 == pytest.approx(KEPT_FREE * 1.5, abs=2), 3, "the panel inside the display")
        form.tab_to("Quit")
        desktop.pointer.key("Return")
        assert program.wait() == 0


def test_it_is_a_managed_window_on_every_desktop_above_the_others(desktop: Desktop):
    form = SettingsForm.open(desktop, desktop.run())
    window = form.window()
    assert window.title == "Velmora"
    wait_for(lambda: {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR",
                      "_NET_WM_STATE_SKIP_PAGER"} <= states(desktop, window.id), 3, "its states")
    assert list(desktop.x11.property(window.id, "_NET_WM_DESKTOP")) == [EVERY_DESKTOP]


@pytest.mark.parametrize("way", ["Escape", "Control W", "close button", "menu"])
def test_closing_gives_the_focus_back(way: str):
    with Desktop() as desktop:
        letter = desktop.window("Letter", Rectangle(80, 120, 300, 200))
        desktop.pointer.click(*letter.wait().place.centre)
        wait_for(lambda: letter.events().count("focus") == 1, 3, "the letter to have the focus")
        program = desktop.run("--settings")
        form = SettingsForm(desktop, program)
        wait_for(lambda: "focus lost" in letter.events(), 3, "the settings to take the focus")

        if way == "Escape":
            desktop.pointer.key("Escape")
        elif way == "Control W":
            desktop.pointer.key("Control_L", "w")
        elif way == "close button":
            frame = form.frame()
            desktop.pointer.click(frame.x + frame.width - 15, frame.y + 15)
        else:
            program.accessible.find(name="Settings", role="push button").act("Press")
        wait_for(form.gone, 3, "the settings to close")
        wait_for(lambda: letter.events().count("focus") >= 2, 3, "the letter to have the focus back")

        SettingsForm.open(desktop, program)
        assert program.running


def test_control_and_comma_fit_and_place_it_anew(desktop: Desktop):
    program = desktop.run()
    form = SettingsForm.open(desktop, program)
    wait_for(lambda: inside(form, desktop)[1] >= MARGIN - 1, 3, "the panel in place")
    home = form.at_rest()
    grip = (home.x + home.width // 2, home.y + 10)
    desktop.pointer.drag_until(grip, (grip[0] - 200 * desktop.scale, grip[1] + 20),
                               lambda: form.frame().x < home.x - 100, "the panel elsewhere")
    form.tab_to("5m")
    desktop.pointer.key("Control_L", "comma")
    wait_for(lambda: form.frame() == home, 3, f"the panel back at {home}")
    assert form.window()


def test_control_and_q_save_and_end_the_program(desktop: Desktop):
    program = desktop.run()
    form = SettingsForm.open(desktop, program)
    form.tab_to("20m")
    desktop.pointer.key("space")
    desktop.pointer.key("Control_L", "q")
    assert program.wait() == 0
    assert program.settings.read()["intervalMinutes"] == 20


def test_it_follows_the_orb_at_the_next_opening(desktop: Desktop):
    program = desktop.run()
    form = SettingsForm.open(desktop, program)
    desktop.pointer.key("Escape")
    wait_for(form.gone, 3, "the settings to close")
    orb = program.wait_for_orb().place
    desktop.pointer.drag(orb.centre, (200 * desktop.scale, 400 * desktop.scale))
    wait_for(lambda: program.wait_for_orb().place.centre == (200 * desktop.scale, 400 * desktop.scale), 3,
             "the orb where it was dragged")
    moved = program.wait_for_orb().place
    form = SettingsForm.open(desktop, program)
    wait_for(lambda: abs(form.frame().x - moved.x - moved.width - GAP * desktop.scale)
             <= desktop.scale, 3, "the panel beside the orb's new place")


def test_a_second_launch_opens_the_settings_of_the_first(desktop: Desktop):
    program = desktop.run()
    program.wait_for_orb()
    assert desktop.run("--settings").wait() == 0
    form = SettingsForm(desktop, program)
    assert desktop.run("--settings").wait() == 0
    watch(lambda: not form.gone(), 0.5, "the settings stay open")
