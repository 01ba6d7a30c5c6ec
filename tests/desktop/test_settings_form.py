"""Every control of the settings form, by mouse, by keyboard and by assistive tools."""

import pytest

from harness import Desktop, wait_for, watch
from settings_form import ENABLED, SHOWING, SettingsForm


def stored(program, key: str, value) -> None:
    """Waits until a setting is on the disk with that value."""
    wait_for(lambda: program.settings.read().get(key) == value, 3,
             f"{key} = {value} on the disk, instead of {program.settings.read().get(key)}")


def one_chime(ear) -> None:
    """Hears one chime and no other, neither after it nor one that starts it over."""
    wait_for(lambda: ear.sounds(), 5, "the chime")
    watch(lambda: len(ear.sounds()) == 1, 2.5, "one chime only")
    (chime,) = ear.sounds()
    peak, fading = max(moment.peak for moment in chime), chime[0].when + 0.5
    assert all(moment.peak < peak - 1 for moment in chime if moment.when > fading), "the chime fades"


@pytest.fixture
def form(desktop: Desktop) -> SettingsForm:
    program = desktop.run()
    form = SettingsForm.open(desktop, program)
    form.program = program
    return form


def test_every_control_has_a_name_a_role_and_a_value(form: SettingsForm):
    expected = {
        "Minutes between reminders": "slider", "5m": "radio button", "10m": "radio button",
        "15m": "radio button", "20m": "radio button", "30m": "radio button",
        "45m": "radio button", "All day": "check box", "From": "spin box", "To": "spin box",
        "Gentle chime": "check box", "Chime volume": "slider", "Preview reminder": "push button",
        "Size of the orb": "slider", "Open at login": "check box",
        "Pause reminders": "check box", "Velmora now": "push button", "Quit": "push button"}
    assert {name: form.control(name).role for name in expected} == expected
    assert [form.control(name).value for name in
            ("Minutes between reminders", "Chime volume", "Size of the orb")] == [15, 0.55, 128]
    assert [name for name in expected if form.control(name).role in ("radio button", "check box")
            and form.checked(name)] == ["15m", "All day", "Gentle chime"]
    assert form.control("From").text == "08:00"
    cards = [each.name for each in form.dialog.everything() if each.role == "panel"]
    assert cards == ["Interval", "Active hours", "Alert", "Size", "General"]


def test_the_words_are_the_described_ones(form: SettingsForm):
    assert form.texts() == [
        "A quiet nudge to unclench, inhale, and come back.",
        "INTERVAL", "Every", "15 min", "ACTIVE HOURS", "From", "To", "ALERT", "SIZE", "Orb",
        "128 pt", "Or drag the corner grip on the orb, pinch, or scroll over it.", "GENERAL",
        "Reminds you every 15 minutes, all day. Drag the orb to move it. Drag the corner to "
        "resize. Click it during a reminder when you're done."]


def test_a_chip_sets_the_interval_and_starts_the_countdown_over(form: SettingsForm):
    form.click("20m")
    stored(form.program, "intervalMinutes", 20)
    form.program.wait_for_status("Next in 20m", 2)
    wait_for(lambda: form.checked("20m") and not form.checked("15m"), 2, "the chip to be chosen")
    assert form.program.settings.read()["heldRemaining"] > 1000


def test_the_interval_slider_is_dragged_without_starting_the_countdown_over(
        form: SettingsForm, desktop: Desktop):
    place = form.place("Minutes between reminders")
    knob = (place.x + place.width * 13 // 58, place.centre[1])
    desktop.pointer.drag(knob, (place.x + place.width + 50, knob[1]))
    stored(form.program, "intervalMinutes", 60)
    assert "60 min" in form.texts()
    assert form.program.settings.read()["heldRemaining"] <= 900


def test_hours_are_chosen_with_the_keys_and_run_overnight(form: SettingsForm, desktop: Desktop):
    assert ENABLED not in form.control("From").states()
    form.click("All day")
    stored(form.program, "allDay", False)
    wait_for(lambda: ENABLED in form.control("From").states(), 2, "the pickers to be enabled")
    place = form.place("From")
    desktop.pointer.click(place.x + 14 * desktop.scale, place.centre[1])
    # The window manager settles whose window a click was for; keys may overtake that.
    wait_for(lambda: form.focused() == "From", 2, "the picker to have the focus")
    for key in ("2", "3"):
        desktop.pointer.key(key)
    stored(form.program, "startMinutes", 23 * 60)
    wait_for(lambda: "Overnight — reminders run through midnight." in form.texts(), 2, "the note")
    assert any(text.startswith("Reminds you every 15 minutes, from 23:00 to 22:00.")
               for text in form.texts())


def test_the_steppers_of_a_picker_take_clicks(form: SettingsForm, desktop: Desktop):
    form.click("All day")
    wait_for(lambda: ENABLED in form.control("To").states(), 2, "the pickers to be enabled")
    place = form.place("To")
    stepper = place.x + place.width - 10 * desktop.scale
    desktop.pointer.click(stepper, place.y + place.height // 4)
    stored(form.program, "endMinutes", 23 * 60)
    desktop.pointer.click(stepper, place.y + place.height * 3 // 4)
    stored(form.program, "endMinutes", 22 * 60)


@pytest.mark.parametrize(("locale", "start"), [("en_US.UTF-8", "8:00 AM"), ("de_DE.UTF-8", "08:00")])
def test_times_are_written_as_people_write_them_there(locale: str, start: str):
    # The words stay English: it is the times that are looked at.
    with Desktop(environment={"LC_ALL": locale, "LANGUAGE": "en"}) as desktop:
        program = desktop.run()
        form = SettingsForm.open(desktop, program)
        assert form.control("From").text == start
        form.control("All day").act("Toggle")
        wait_for(lambda: [text for text in form.texts() if f"from {start} to" in text], 2,
                 "the same form in the summary")


def test_without_the_chime_there_is_no_volume_and_no_preview(form: SettingsForm):
    form.click("Gentle chime")
    stored(form.program, "soundEnabled", False)
    wait_for(lambda: SHOWING not in form.control("Chime volume").states(), 2, "no volume")
    assert SHOWING not in form.control("Preview reminder").states()


def test_the_chime_is_heard_once_when_the_volume_was_dragged(form: SettingsForm, desktop: Desktop):
    place = form.place("Chime volume")
    with desktop.sound.listen() as ear:
        desktop.pointer.move(place.x + place.width // 2, place.centre[1])
        desktop.pointer.press()
        desktop.pointer.move(place.x + place.width * 3 // 4, place.centre[1])
        wait_for(lambda: form.control("Chime volume").value > 0.7, 3, "the volume to follow")
        watch(lambda: not ear.sounds(), 1, "silence until it is let go")
        desktop.pointer.release()
        one_chime(ear)


def test_the_chime_is_heard_once_for_a_key(form: SettingsForm, desktop: Desktop):
    form.tab_to("Chime volume")
    with desktop.sound.listen() as ear:
        desktop.pointer.key("Left")
        one_chime(ear)
    assert form.control("Chime volume").value == pytest.approx(0.5)


def test_the_preview_starts_a_reminder(form: SettingsForm):
    form.click("Preview reminder")
    form.program.wait_for_status("Velmora", 2)


def test_the_size_slider_resizes_the_orb(form: SettingsForm, desktop: Desktop):
    form.tab_to("Size of the orb")
    desktop.pointer.key("Home")
    wait_for(lambda: form.program.orb().place.width == 72 * desktop.scale, 3, "a small orb")
    assert "72 pt" in form.texts()
    desktop.pointer.key("Page_Up")
    wait_for(lambda: form.program.orb().place.width == 82 * desktop.scale, 3, "a larger orb")


def test_the_wheel_over_the_orb_moves_the_size_slider(form: SettingsForm, desktop: Desktop):
    desktop.pointer.move(*form.program.orb().place.centre)
    desktop.pointer.wheel(1)
    wait_for(lambda: form.control("Size of the orb").value == 136, 3, "the slider to follow")
    assert "136 pt" in form.texts()


def test_the_pause_is_one_in_form_and_menu(form: SettingsForm):
    form.control("Pause reminders").act("Toggle")
    form.program.wait_for_status("Paused", 2)
    form.program.item.open_menu()
    form.program.item.click("Resume Reminders")
    wait_for(lambda: not form.checked("Pause reminders"), 2, "the switch to follow the menu")


def test_assistive_tools_set_the_sliders_and_press_the_chips(form: SettingsForm):
    form.control("Minutes between reminders").set_value(7.6)
    stored(form.program, "intervalMinutes", 8)
    form.control("30m").act("Press")
    stored(form.program, "intervalMinutes", 30)
    wait_for(lambda: form.checked("30m"), 2, "the chip to be chosen")
    form.control("Size of the orb").set_value(100)
    stored(form.program, "widgetSize", 100)


def test_opening_at_login_writes_the_autostart_entry(form: SettingsForm, desktop: Desktop):
    form.click("Open at login")
    stored(form.program, "openAtLogin", True)
    autostart = form.program.settings.path.parents[1] / "autostart"
    wait_for(lambda: autostart.is_dir() and list(autostart.iterdir()), 3, "an autostart entry")


def test_everything_by_keyboard_alone(form: SettingsForm, desktop: Desktop):
    keys = desktop.pointer
    form.tab_to("Minutes between reminders")
    keys.key("End")
    form.tab_to("45m")
    keys.key("space")
    form.tab_to("All day")
    keys.key("space")
    form.tab_to("From")
    keys.key("Up")
    form.tab_to("To")
    keys.key("Tab")
    keys.key("Up")
    form.tab_to("Chime volume")
    keys.key("Page_Up")
    form.tab_to("Size of the orb")
    keys.key("Home")
    form.tab_to("Open at login")
    keys.key("space")
    form.tab_to("Pause reminders")
    keys.key("space")
    keys.key("Escape")
    wait_for(form.gone, 3, "the settings to close")
    expected = {"intervalMinutes": 45, "allDay": False, "startMinutes": 9 * 60,
                "endMinutes": 22 * 60 + 1, "widgetSize": 72.0, "openAtLogin": True, "paused": True}
    wait_for(lambda: expected.items() <= form.program.settings.read().items(), 3,
             f"{expected} on the disk, not {form.program.settings.read()}")
    assert form.program.settings.read()["soundVolume"] == pytest.approx(0.7)


def test_quit_saves_and_ends(form: SettingsForm, desktop: Desktop):
    form.tab_to("Quit")
    desktop.pointer.key("Return")
    assert form.program.wait() == 0
    assert form.program.settings.read()["intervalMinutes"] == 15
