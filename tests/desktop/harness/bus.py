"""Private message buses, and talking over them."""

from collections.abc import Callable
from pathlib import Path

from gi.repository import Gio, GLib

from .processes import Processes
from .waiting import COMING_UP, PATIENCE, listens, wait_for

# A bus without service folders: nothing is started behind a test's back.
_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>{kind}</type>
  <listen>unix:path={socket}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
    <allow user="*"/>
  </policy>
</busconfig>
"""


class Bus:
    """One message bus of its own: the session's, or one that stands in for the system's."""

    def __init__(self, processes: Processes, kind: str):
        """Starts the bus; `kind` is "session" or "system". Use `wait` before the first call."""
        self._socket = Path(processes.environment["XDG_RUNTIME_DIR"]) / f"{kind}-bus"
        self.address = f"unix:path={self._socket}"
        configuration = processes.folder / f"{kind}-bus.conf"
        configuration.write_text(_CONFIGURATION.format(kind=kind, socket=self._socket))
        self._kind = kind
        self._connection: Gio.DBusConnection | None = None
        self.process = processes.start(
            f"{kind}-bus", ["dbus-daemon", "--nofork", f"--config-file={configuration}"])

    def wait(self) -> None:
        """Returns when the bus takes connections."""
        wait_for(lambda: listens(self._socket), COMING_UP, f"the {self._kind} bus")

    @property
    def connection(self) -> Gio.DBusConnection:
        """This process's connection to the bus, made at first use."""
        if self._connection is None or self._connection.is_closed():
            self._connection = connect(self.address)
        return self._connection

    def close(self) -> None:
        """Leaves the bus."""
        if self._connection and not self._connection.is_closed():
            self._connection.close_sync(None)
        self._connection = None

    def owner(self, name: str) -> str | None:
        """The unique name of whoever owns the name, or none."""
        try:
            return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus",
                             "org.freedesktop.DBus", "GetNameOwner", GLib.Variant("(s)", (name,)))[0]
        except GLib.Error:
            return None

    def id(self) -> str:
        """The bus's own identity."""
        return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId")[0]

    def names(self) -> list[str]:
        """Every name on the bus, the unique ones too."""
        return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                         "ListNames")[0]

    def pid_of(self, name: str) -> int | None:
        """The process behind a name on the bus, or none."""
        try:
            return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                             "GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)))[0]
        except GLib.Error:
            return None

    def call(self, name: str, path: str, interface: str, method: str,
             arguments: GLib.Variant | None = None, bound: float = PATIENCE) -> tuple:
        """Calls a method and answers its results as plain values."""
        return call(self.connection, name, path, interface, method, arguments, bound)

    def get(self, name: str, path: str, interface: str, key: str):
        """Reads one property as a plain value."""
        return self.call(name, path, "org.freedesktop.DBus.Properties", "Get",
                         GLib.Variant("(ss)", (interface, key)))[0]

    def emit(self, path: str, interface: str, signal: str, arguments: GLib.Variant) -> None:
        """Sends a signal to everybody on the bus."""
        self.connection.emit_signal(None, path, interface, signal, arguments)
        self.connection.flush_sync(None)

    def listen(self, interface: str, signal: str, heard: Callable[[str, tuple], None],
               sender: str | None = None, path: str | None = None) -> None:
        """Calls `heard(path, arguments)` for each such signal while a `wait_for` is under way."""
        def deliver(_connection, _sender, source, _interface, _signal, arguments):
            heard(source, arguments.unpack())
        self.connection.signal_subscribe(sender, interface, signal, path, None,
                                         Gio.DBusSignalFlags.NONE, deliver)
        # The bus takes messages in their order: once it has answered, it knows who listens.
        self.id()


def connect(address: str) -> Gio.DBusConnection:
    """A connection to the bus at this address; losing it does not end this process."""
    connection = Gio.DBusConnection.new_for_address_sync(
        address,
        Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
    connection.set_exit_on_close(False)
    return connection


def call(connection: Gio.DBusConnection, name: str, path: str, interface: str, method: str,
         arguments: GLib.Variant | None = None, bound: float = PATIENCE) -> tuple:
    """Calls a method over a connection, never starting its owner, within `bound` seconds."""
    reply = connection.call_sync(name, path, interface, method, arguments, None,
                                 Gio.DBusCallFlags.NO_AUTO_START, int(bound * 1000), None)
    return reply.unpack()
