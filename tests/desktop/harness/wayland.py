"""A Wayland session: KWin without a screen, and the X server that it keeps for X programs."""

import os
import random
import shutil
import socket
import threading
from pathlib import Path

import numpy
from gi.repository import Gio, GLib

from .bus import Bus
from .display_server import Head, x_socket
from .fake_input import FakeInput
from .processes import Processes
from .waiting import COMING_UP, PATIENCE, listens, wait_for
from .x11 import X11, Rectangle

COMMAND = "kwin_wayland"
# Not the name that programs try unasked: who comes by Wayland has been told to.
_SOCKET = "wayland-test"
_SCREENSHOTS = "org.kde.KWin.ScreenShot2"


class WaylandSession:
    """Stands where another desktop has its X server and its window manager."""

    touchpad_socket = None
    pluggable = False

    def __init__(self, processes: Processes, heads: list[Head], session_bus: Bus):
        """Starts the compositor with one display of that size; `wait` returns when it is up."""
        self._processes = processes
        self._bus = session_bus
        self._head = heads[0]
        self._socket = Path(processes.environment["XDG_RUNTIME_DIR"]) / _SOCKET
        # The installed program may raise its own priority, which a container forbids; a copy may not.
        program = processes.folder / "bin" / COMMAND
        program.parent.mkdir()
        shutil.copyfile(shutil.which(COMMAND) or COMMAND, program)
        program.chmod(0o755)
        self._listener, self.name = _listen_for_x_programs()
        session_bus.wait()
        self.process = processes.start(
            COMMAND, [str(program), "--virtual", "--xwayland", "--no-lockscreen", "--no-global-shortcuts",
                      "--width", str(self._head.width), "--height", str(self._head.height), "--socket", _SOCKET,
                      "--xwayland-fd", str(self._listener.fileno()), "--xwayland-display", self.name],
            pass_fds=[self._listener.fileno()],
            environment={"KWIN_WAYLAND_NO_PERMISSION_CHECKS": "1", "KWIN_SCREENSHOT_NO_PERMISSION_CHECKS": "1",
                         "KWIN_COMPOSE": "O2", "LIBGL_ALWAYS_SOFTWARE": "1"})

    # What programs of the session are told besides the X server's name.
    environment = {"WAYLAND_DISPLAY": _SOCKET, "XDG_SESSION_TYPE": "wayland"}

    def wait(self) -> None:
        """Returns when both kinds of programs can connect."""
        wait_for(lambda: listens(self._socket), COMING_UP, "the compositor")

    def close(self) -> None:
        """Gives the X server's name back."""
        self._listener.close()
        x_socket(self.name).unlink(missing_ok=True)

    def plugged(self) -> dict[int, Head]:
        """The only display."""
        return {0: self._head}

    def hand(self) -> FakeInput:
        """A hand on the session's mouse and keyboard."""
        hand = FakeInput(self._socket)
        # The X server has no pointer before the session has one, and misses what it does until then.
        wait_for(lambda: all(device in self._processes.run(["xinput", "list", "--name-only"])
                             for device in ("xwayland-pointer", "xwayland-keyboard")), COMING_UP,
                 "the X server's pointer and keyboard")
        return hand

    def view(self) -> "WaylandView":
        """A view of the X programs' windows, and of what the compositor shows of everything."""
        return WaylandView(self.name, self)

    def pixels(self, place: Rectangle) -> numpy.ndarray:
        """What is seen there: rows × columns × (red, green, blue), 0..255."""
        read, write = os.pipe()
        received: list[bytes] = []
        reader = threading.Thread(target=lambda: received.append(_everything(read)))
        reader.start()
        try:
            descriptors = Gio.UnixFDList.new()
            handle = descriptors.append(write)
        finally:
            os.close(write)
        arguments = GLib.Variant("(iiuua{sv}h)", (place.x, place.y, place.width, place.height, {}, handle))
        reply, _ = self._bus.connection.call_with_unix_fd_list_sync(
            "org.kde.KWin", "/org/kde/KWin/ScreenShot2", _SCREENSHOTS, "CaptureArea", arguments, None,
            Gio.DBusCallFlags.NO_AUTO_START, int(PATIENCE * 1000), descriptors, None)
        # The compositor writes to its own end; ours goes with the list.
        del descriptors
        reader.join(PATIENCE)
        told = reply.unpack()[0]
        rows = numpy.frombuffer(received[0], numpy.uint8).reshape(told["height"], told["stride"] // 4, 4)
        return rows[:, :told["width"], 2::-1]


class WaylandView(X11):
    """The X programs' windows; pixels come from the compositor, since X programs see only their own."""

    def __init__(self, name: str, session: WaylandSession):
        super().__init__(name)
        self._session = session

    def pixels(self, place: Rectangle | None = None) -> numpy.ndarray:
        width, height = self.size()
        place = place or Rectangle(0, 0, width, height)
        left, top = max(place.x, 0), max(place.y, 0)
        right, bottom = min(place.x + place.width, width), min(place.y + place.height, height)
        seen = numpy.zeros((place.height, place.width, 3), numpy.uint8)
        if right > left and bottom > top:
            seen[top - place.y:bottom - place.y, left - place.x:right - place.x] = \
                self._session.pixels(Rectangle(left, top, right - left, bottom - top))
        return seen


def _listen_for_x_programs() -> tuple[socket.socket, str]:
    """A socket that X programs come to, and its display's name.

    Left alone, the compositor would look for a free name itself and remove its socket at the end, which
    by then may be another desktop's. Names this high are nobody else's choice.
    """
    for number in random.sample(range(1000, 30000), 100):
        listener = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        try:
            listener.bind(str(x_socket(f":{number}")))
            listener.listen()
            return listener, f":{number}"
        except OSError:
            listener.close()
    raise RuntimeError("no free display name")


def _everything(descriptor: int) -> bytes:
    with os.fdopen(descriptor, "rb") as stream:
        return stream.read()
