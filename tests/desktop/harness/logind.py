"""A system bus whose login manager says what a test wants to hear."""

from gi.repository import GLib

from .bus import Bus
from .processes import Processes
from .waiting import COMING_UP, wait_for

NAME = "org.freedesktop.login1"
PATH = "/org/freedesktop/login1"
MANAGER = "org.freedesktop.login1.Manager"
SESSION = "org.freedesktop.login1.Session"
# What programs ask for that have not been told which session is theirs.
_OWN = "auto"
_MOCK = "org.freedesktop.DBus.Mock"


class Logind:
    """A mocked login manager that sends a machine to sleep and wakes it, in name only."""

    def __init__(self, processes: Processes, system_bus: Bus):
        self._processes = processes
        self._bus = system_bus
        system_bus.wait()
        self.start()

    def start(self) -> None:
        """Starts the login manager, anew after its end."""
        self.process = self._processes.start(
            "logind", ["/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "logind"])

    def wait(self) -> None:
        """Returns when the login manager answers."""
        wait_for(lambda: self._bus.owner(NAME), COMING_UP, "the login manager")

    def going_to_sleep(self) -> None:
        """Announces that the machine is about to sleep."""
        self._prepare_for_sleep(True)

    def woke_up(self) -> None:
        """Announces that the machine has woken up."""
        self._prepare_for_sleep(False)

    def open_session(self) -> None:
        """Opens the session that programs take for their own; it is not locked."""
        self._bus.call(NAME, PATH, _MOCK, "AddSession",
                       GLib.Variant("(ssusb)", (_OWN, "seat0", 1000, "tester", True)))

    def lock(self, locked: bool) -> None:
        """Says of the session that it is locked, or no longer, as a screen locker makes it do."""
        self._bus.call(NAME, f"{PATH}/session/{_OWN}", SESSION, "SetLockedHint", GLib.Variant("(b)", (locked,)))

    def _prepare_for_sleep(self, sleeping: bool) -> None:
        self._bus.call(NAME, PATH, _MOCK, "EmitSignal", GLib.Variant(
            "(sssav)", (MANAGER, "PrepareForSleep", "b", [GLib.Variant("b", sleeping)])))
