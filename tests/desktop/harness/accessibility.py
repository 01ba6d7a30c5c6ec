"""What a screen reader is told, read from the accessibility bus itself and never from a cache."""

import subprocess
from collections.abc import Iterator
from pathlib import Path

from gi.repository import Gio, GLib

from .bus import Bus, call, connect
from .processes import Processes
from .waiting import COMING_UP, wait_for

_LAUNCHERS = ("/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher")
_REGISTRY = "org.a11y.atspi.Registry"
_ROOT = "/org/a11y/atspi/accessible/root"
_ACCESSIBLE = "org.a11y.atspi.Accessible"
_ACTION = "org.a11y.atspi.Action"
_VALUE = "org.a11y.atspi.Value"


class Accessibility:
    """The accessibility bus of a desktop whose user has a screen reader on."""

    def __init__(self, processes: Processes, session_bus: Bus):
        self._session_bus = session_bus
        self._connection: Gio.DBusConnection | None = None
        session_bus.wait()
        launcher = next(path for path in _LAUNCHERS if Path(path).exists())
        self.process: subprocess.Popen = processes.start(
            "accessibility", [launcher, "--launch-immediately", "--a11y=1", "--screen-reader=1"])

    def wait(self) -> None:
        """Returns when programs can register."""
        wait_for(lambda: self._session_bus.owner("org.a11y.Bus"), COMING_UP, "the accessibility bus")

    def close(self) -> None:
        """Leaves the accessibility bus."""
        if self._connection and not self._connection.is_closed():
            self._connection.close_sync(None)

    def application(self, pid: int, bound: float = 15.0) -> "Accessible":
        """The accessible application of a process; waits until it has registered."""
        return wait_for(lambda: self._find(pid), bound, f"process {pid} on the accessibility bus")

    def _find(self, pid: int) -> "Accessible | None":
        if not self._connection:
            address = self._session_bus.call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")[0]
            self._connection = connect(address)
            # The registry is started by its first use.
            self._connection.call_sync(_REGISTRY, _ROOT, "org.freedesktop.DBus.Peer", "Ping", None, None,
                                       Gio.DBusCallFlags.NONE, int(COMING_UP * 1000), None)
        desktop = Accessible(self._connection, _REGISTRY, _ROOT)
        for child in desktop.children():
            if child.pid() == pid:
                return child
        return None


class Accessible:
    """One element: a window, a button, the orb."""

    def __init__(self, connection: Gio.DBusConnection, name: str, path: str):
        self._connection = connection
        self._name = name
        self._path = path

    @property
    def name(self) -> str:
        return self._get(_ACCESSIBLE, "Name")

    @property
    def description(self) -> str:
        return self._get(_ACCESSIBLE, "Description")

    @property
    def role(self) -> str:
        """The role's name, such as "push button"."""
        return self._call(_ACCESSIBLE, "GetRoleName")[0]

    @property
    def text(self) -> str:
        """What the element's text interface holds."""
        return self._call("org.a11y.atspi.Text", "GetText", GLib.Variant("(ii)", (0, -1)))[0]

    @property
    def selection(self) -> tuple[int, int] | None:
        """Where the selected part of the text begins and ends; none without a selection."""
        if not self._call("org.a11y.atspi.Text", "GetNSelections")[0]:
            return None
        return self._call("org.a11y.atspi.Text", "GetSelection", GLib.Variant("(i)", (0,)))

    @property
    def value(self) -> float:
        return self._get(_VALUE, "CurrentValue")

    def set_value(self, value: float) -> None:
        """Moves a slider, as an assistive tool would."""
        self._call("org.freedesktop.DBus.Properties", "Set",
                   GLib.Variant("(ssv)", (_VALUE, "CurrentValue", GLib.Variant("d", value))))

    def interfaces(self) -> list[str]:
        """The last words of the interfaces it has, such as "Action", "Value"."""
        return [name.rpartition(".")[2] for name in self._call(_ACCESSIBLE, "GetInterfaces")[0]]

    def states(self) -> set[int]:
        """The numbers of the states it is in."""
        low, high = self._call(_ACCESSIBLE, "GetState")[0]
        return {bit for bit in range(64) if (low | high << 32) >> bit & 1}

    def actions(self) -> list[str]:
        """The names of what can be done with it, in order."""
        return [action[0] for action in self._call(_ACTION, "GetActions")[0]]

    def act(self, name: str) -> None:
        """Does one of its actions."""
        self._call(_ACTION, "DoAction", GLib.Variant("(i)", (self.actions().index(name),)))

    def children(self) -> list["Accessible"]:
        """The elements directly inside; those that have just gone are left out."""
        return [Accessible(self._connection, name, path)
                for name, path in self._call(_ACCESSIBLE, "GetChildren")[0]
                if not path.endswith("/null")]

    def everything(self) -> Iterator["Accessible"]:
        """This element and all that lies in it."""
        yield self
        try:
            children = self.children()
        except GLib.Error:
            return
        for child in children:
            yield from child.everything()

    def find(self, name: str | None = None, role: str | None = None) -> "Accessible | None":
        """The first element inside with that name and role, or none."""
        for element in self.everything():
            try:
                if name in (None, element.name) and role in (None, element.role):
                    return element
            except GLib.Error:
                continue
        return None

    def pid(self) -> int | None:
        """The process that the element belongs to."""
        try:
            return call(self._connection, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                        "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                        GLib.Variant("(s)", (self._name,)))[0]
        except GLib.Error:
            return None

    def _get(self, interface: str, key: str):
        return self._call("org.freedesktop.DBus.Properties", "Get",
                          GLib.Variant("(ss)", (interface, key)))[0]

    def _call(self, interface: str, method: str, arguments: GLib.Variant | None = None) -> tuple:
        return call(self._connection, self._name, self._path, interface, method, arguments)
