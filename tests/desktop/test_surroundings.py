"""What is around the program is missing, comes late or changes while it runs."""

import pytest

from harness import Desktop, Head, Rectangle, wait_for, watch
from harness.screenshots import palette_worn
from orb_hand import OrbHand
from saves import run_past_a_save, saved_again
from settings_form import SettingsForm


def wears(desktop: Desktop, program, palette: str) -> bool:
    orb = program.orb()
    return bool(orb) and palette_worn(desktop.x11.pixels(orb.place)) == palette


def test_without_any_service_the_orb_reminds_and_is_clicked_and_saves():
    with Desktop(session_bus=False, logind=False, sound="none", tray="none") as desktop:
        desktop.settings.write(intervalMinutes=2, heldRemaining=12.0)
        program = desktop.run()
        orb = program.wait_for_orb()
        wait_for(lambda: wears(desktop, program, "active"), 5, "the orb at rest")
        wait_for(lambda: wears(desktop, program, "reminding"), 30, "the reminder")
        desktop.pointer.click(orb.place.centre[0], orb.place.y + orb.place.height * 2 // 5)
        wait_for(lambda: wears(desktop, program, "active"), 5, "its end")
        assert program.stop() == 0
        assert 60 < desktop.settings.read()["heldRemaining"] <= 120
        assert program.errors == ""


def test_without_a_session_bus_the_chime_is_heard_and_the_orb_opens_the_settings():
    with Desktop(session_bus=False, tray="none") as desktop:
        desktop.settings.write(intervalMinutes=2, heldRemaining=8.0)
        with desktop.sound.listen() as ear:
            program = desktop.run()
            wait_for(ear.sounds, 20, "the chime")
        orb = program.wait_for_orb()
        desktop.pointer.move(*orb.place.centre)
        side, centre = orb.place.width, orb.place.centre
        # The right one of the two buttons, as far from the middle as the left one.
        desktop.pointer.click(centre[0] + round((side * 0.18 + side * 0.06) / 2),
                              centre[1] + round(side * (0.5 - 0.22 - 0.09)))
        wait_for(lambda: len(program.windows()) == 2, 5, "the settings")
        assert program.stop() == 0 and program.errors == ""


def inhibitors(desktop: Desktop) -> list[str]:
    return [entry[1] for entry in desktop.system_bus.call(
        "org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager",
        "ListInhibitors")[0]]


def test_a_login_manager_that_comes_back_is_asked_again_and_heard_again():
    with Desktop(sound="none") as desktop:
        program, held = run_past_a_save(desktop)
        wait_for(lambda: "Velmora" in inhibitors(desktop), 3, "the machine held back")
        desktop.processes.end(desktop.logind.process)
        wait_for(lambda: not desktop.system_bus.owner("org.freedesktop.login1"), 3, "no login manager")
        desktop.logind.start()
        desktop.logind.wait()
        wait_for(lambda: "Velmora" in inhibitors(desktop), 3, "the machine held back again")
        desktop.logind.going_to_sleep()
        wait_for(lambda: saved_again(desktop, held), 3, "the save before the sleep")
        assert program.stop() == 0 and program.errors == ""


def test_a_display_plugged_in_leaves_the_orb_where_it_is_and_under_the_hand():
    with Desktop(sound="none", tray="none") as desktop:
        orb = OrbHand(desktop, desktop.run())
        before = orb.place
        desktop.display_server.plug(1, Head(1024, 768, x=1280))
        watch(lambda: orb.place == before, 1, "the orb where it was")
        start = orb.at(0, -20)
        desktop.pointer.drag(start, (start[0] - 400, start[1] - 300))
        moved = Rectangle(before.x - 400, before.y - 300, before.width, before.height)
        wait_for(lambda: orb.place == moved, 3, "the orb where it was dragged")
        assert orb.program.stop() == 0
        assert OrbHand(desktop, desktop.run()).place == moved


def test_a_display_that_grows_leaves_the_orb_reachable_and_the_settings_beside_it():
    with Desktop(sound="none") as desktop:
        # In the middle of the larger display, and near the lower edge of the smaller one.
        desktop.settings.write(widgetSize=120.0, widgetOriginX=900.0, widgetOriginY=200.0, hasSavedOrigin=True)
        program = desktop.run()
        orb = OrbHand(desktop, program)
        before = orb.place
        desktop.display_server.plug(0, Head(1920, 1080))
        wait_for(lambda: desktop.x11.size() == (1920, 1080), 3, "the larger display")
        wait_for(orb.saved_where_it_stands, 3, "its place counted from the new lower edge")
        form = SettingsForm.open(desktop, program)
        frame = form.at_rest()
        assert orb.place == before
        assert abs(frame.x + frame.width + 16 - before.x) <= 1
        assert abs(frame.centre[1] - before.centre[1]) <= 2
        orb.remind()
        desktop.pointer.click(*orb.at(0, -20))
        wait_for(lambda: not orb.reminding(), 3, "the reminder's end")


@pytest.mark.parametrize("dots", [144, 192])
def test_a_scale_changed_while_it_runs_scales_the_orb_and_all_its_parts(dots: int):
    with Desktop(heads=[Head(2560, 1600)], sound="none", tray="none") as desktop:
        orb = OrbHand(desktop, desktop.run())
        assert orb.place.width == 128
        desktop.xsettings.set_resolution(dots)
        orb.scale = dots / 96
        wait_for(lambda: orb.place.width == 128 * orb.scale, 3, "the orb at the new scale")
        area = Rectangle(0, 0, 2560, 1600)
        assert orb.place.x + orb.place.width <= area.width and orb.place.y + orb.place.height <= area.height
        wait_for(lambda: _takes_its_disc(orb), 3, "the outline at the new scale")
        orb.remind()
        desktop.pointer.click(*orb.at(0, -50))
        wait_for(lambda: not orb.reminding(), 3, "a click near the rim ends the reminder")
        assert orb.program.stop() == 0
        assert desktop.settings.read()["widgetSize"] == 128


def _takes_its_disc(orb: OrbHand) -> bool:
    taken = orb.desktop.x11.input_region(orb.window.id)
    return max((r.y + r.height for r in taken), default=0) >= orb.place.height - 2 * orb.scale
