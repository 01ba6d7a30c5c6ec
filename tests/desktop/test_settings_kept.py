"""Settings changed in every way that there is, and found again by the next run."""

import pytest

from harness import Desktop, wait_for
from orb_hand import OrbHand
from settings_form import SettingsForm


def changed_with_the_mouse(desktop: Desktop, form: SettingsForm) -> None:
    for name in ("20m", "All day", "Gentle chime"):
        form.click(name)
        wait_for(lambda name=name: form.checked(name) == (name == "20m"), 3, f"{name} to change")


def changed_with_the_keyboard(desktop: Desktop, form: SettingsForm) -> None:
    for name in ("20m", "All day", "Gentle chime"):
        form.tab_to(name)
        desktop.pointer.key("space")
        wait_for(lambda name=name: form.checked(name) == (name == "20m"), 3, f"{name} to change")


def changed_by_assistive_tools(desktop: Desktop, form: SettingsForm) -> None:
    for name, action in (("20m", "Press"), ("All day", "Toggle"), ("Gentle chime", "Toggle")):
        form.control(name).act(action)
        wait_for(lambda name=name: form.checked(name) == (name == "20m"), 3, f"{name} to change")


@pytest.mark.parametrize("change", [changed_with_the_mouse, changed_with_the_keyboard,
                                    changed_by_assistive_tools])
def test_what_was_changed_in_the_form_is_there_again(change):
    with Desktop(sound="none") as desktop:
        program = desktop.run("--settings")
        change(desktop, SettingsForm(desktop, program))
        assert program.stop() == 0
        stored = desktop.settings.read()
        assert (stored["intervalMinutes"], stored["allDay"], stored["soundEnabled"]) == (20, False, False)

        form = SettingsForm(desktop, desktop.run("--settings"))
        assert form.checked("20m") and not form.checked("15m")
        assert not form.checked("All day") and not form.checked("Gentle chime")
        assert form.control("Minutes between reminders").value == 20


def test_what_was_changed_on_the_orb_in_the_menu_and_with_sliders_is_there_again(desktop: Desktop):
    program = desktop.run()
    orb, form = OrbHand(desktop, program), SettingsForm.open(desktop, program)
    desktop.pointer.key("Escape")
    wait_for(form.gone, 3, "the settings to close")
    before, step = orb.place, 200 * orb.scale
    start = orb.at(0, -20)
    desktop.pointer.drag(start, (start[0] - step, start[1] - step))
    wait_for(lambda: (orb.place.x, orb.place.y) == (before.x - step, before.y - step), 3, "the orb moved")
    desktop.pointer.wheel(2)
    wait_for(lambda: orb.side == 144, 3, "the orb resized")
    place = orb.place
    form = SettingsForm.open(desktop, program)
    form.control("Chime volume").set_value(0.3)
    form.control("Minutes between reminders").set_value(37)
    program.item.choose("Pause Reminders")
    program.wait_for_status("Paused", 3)
    assert program.stop() == 0

    program = desktop.run("--settings")
    program.wait_for_status("Paused", 5)
    orb, form = OrbHand(desktop, program), SettingsForm(desktop, program)
    assert orb.side == 144
    assert max(abs(a - b) for a, b in zip(orb.place.centre, place.centre)) <= orb.scale
    assert form.control("Chime volume").value == pytest.approx(0.3)
    assert form.control("Minutes between reminders").value == 37
    assert form.control("Size of the orb").value == 144
    assert form.checked("Pause reminders")


def test_a_pause_begun_in_one_place_is_ended_in_any_other(desktop: Desktop):
    program = desktop.run("--settings")
    orb, form = OrbHand(desktop, program), SettingsForm(desktop, program)

    def on_the_orb() -> None:
        desktop.pointer.click(*orb.button("pause"))

    def by_assistive_tools() -> None:
        orb.element.act("Resume reminders" if orb.status == "Paused" else "Pause reminders")

    def in_the_menu() -> None:
        program.item.choose("Resume Reminders" if orb.status == "Paused" else "Pause Reminders")

    def in_the_settings() -> None:
        form.tab_to("Pause reminders")
        desktop.pointer.key("space")

    ways = [on_the_orb, by_assistive_tools, in_the_menu, in_the_settings]
    # Each begins one pause and ends that of the one before.
    for begin, end in zip(ways, ways[1:] + ways[:1]):
        begin()
        wait_for(lambda: orb.status == "Paused", 3, f"the pause begun {begin.__name__}")
        wait_for(lambda: form.checked("Pause reminders"), 3, "the switch to show it")
        wait_for(lambda: program.settings.read().get("paused") is True, 3, "the pause on the disk")
        end()
        wait_for(lambda: orb.status.startswith("Next in"), 3, f"the pause ended {end.__name__}")
        wait_for(lambda: not form.checked("Pause reminders"), 3, "the switch to show it")
        wait_for(lambda: program.settings.read().get("paused") is False, 3, "the end on the disk")
