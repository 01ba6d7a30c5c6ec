"""The orb for those who cannot see it or cannot hold a mouse."""

import pytest

from harness import Desktop, wait_for
from orb_hand import LABEL, OrbHand

HINT = "Click during a reminder when you are done. Drag to move."


@pytest.fixture(scope="module")
def desktop() -> Desktop:
    with Desktop(tray="none", sound="none") as brought_up:
        yield brought_up


@pytest.fixture
def orb(desktop: Desktop) -> OrbHand:
    desktop.settings.path.unlink(missing_ok=True)
    orb = OrbHand(desktop, desktop.run())
    yield orb
    orb.program.stop()


def test_it_is_one_element_with_label_value_hint_and_three_actions_in_order(orb: OrbHand):
    element = orb.element
    assert (element.name, element.description) == (LABEL, HINT)
    assert element.text.startswith("Next in ")
    assert element.actions() == ["Pause reminders", "Velmora now", "Settings"]
    assert [(child.role, child.name) for child in element.children()] == \
        [("push button", "Pause"), ("push button", "Settings")]


def test_its_actions_do_what_they_say(orb: OrbHand):
    element = orb.element
    element.act("Pause reminders")
    wait_for(lambda: element.text == "Paused", 2, "the pause")
    assert element.actions()[0] == "Resume reminders"
    assert element.find(name="Resume", role="push button")
    element.act("Velmora now")
    wait_for(orb.reminding, 2, "the reminder")
    for _ in range(2):
        element.act("Settings")
    wait_for(lambda: len(orb.program.windows()) > 1, 3, "the settings")


def test_its_buttons_can_be_pressed_without_a_pointer(orb: OrbHand):
    orb.element.find(name="Pause").act("Press")
    wait_for(lambda: orb.status == "Paused", 2, "the pause")
    orb.element.find(name="Resume").act("Press")
    wait_for(lambda: orb.status.startswith("Next in"), 2, "the countdown")


def test_the_assistive_library_reads_and_drives_it(desktop: Desktop, orb: OrbHand):
    said = desktop.processes.run(["/usr/bin/python3", "-c", (
        "import pyatspi\n"
        "orb = next(window for app in pyatspi.Registry.getDesktop(0) for window in app\n"
        f"           if window.name == {LABEL!r})\n"
        "print(orb.description)\n"
        "print(orb.queryText().getText(0, -1))\n"
        "actions = orb.queryAction()\n"
        "print([actions.getName(i) for i in range(actions.nActions)])\n"
        "actions.doAction(1)\n")])
    assert said.splitlines() == [HINT, "Next in 15m", "['Pause reminders', 'Velmora now', 'Settings']"]
    wait_for(orb.reminding, 2, "the reminder")


LISTEN = """
import pyatspi, sys
def told(event):
    if event.source.name == sys.argv[1]:
        print("told", event.any_data, flush=True)
pyatspi.Registry.registerEventListener(told, "object:text-changed:insert")
print("listening", flush=True)
pyatspi.Registry.start()
"""


def test_changes_are_told_when_a_reminder_starts_or_ends_and_not_at_every_second(desktop: Desktop):
    desktop.settings.write(intervalMinutes=2, heldRemaining=50.0)
    orb = OrbHand(desktop, desktop.run())
    name = f"listener-{desktop.count('listener')}"
    listener = desktop.processes.start(name, ["/usr/bin/python3", "-u", "-c", LISTEN, LABEL])

    def told() -> list[str]:
        lines = desktop.processes.log(name).read_text().splitlines()
        return [line.removeprefix("told ") for line in lines if line.startswith("told ")]

    wait_for(lambda: "listening" in desktop.processes.log(name).read_text(), 5, "the listener")
    wait_for(lambda: orb.status.endswith("s"), 3, "a countdown in seconds")
    shown = orb.status
    for _ in range(2):
        shown = wait_for(lambda shown=shown: orb.status if orb.status != shown else None, 3, "another second")
    assert told() == []
    orb.element.act("Velmora now")
    wait_for(lambda: told() == ["Velmora"], 3, "the start told")
    orb.desktop.pointer.click(*orb.at(0, -20))
    wait_for(lambda: told()[1:] == ["Next in 2m"], 3, "the end told")
    orb.element.act("Pause reminders")
    wait_for(lambda: told()[2:] == ["Paused"], 3, "the pause told")
    desktop.processes.end(listener)
    orb.program.stop()
