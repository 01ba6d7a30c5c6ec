"""A hand on the mouse and the keyboard of a Wayland session."""

import socket
import struct
from pathlib import Path

from .pointer import LEFT, MIDDLE, RIGHT, Pointer
from .waiting import PATIENCE

_DISPLAY, _REGISTRY = 1, 2
_INTERFACE, _VERSION = "org_kde_kwin_fake_input", 4
# The interface's requests by their number.
_AUTHENTICATE, _BUTTON, _AXIS, _MOVE_TO, _KEY = 0, 2, 3, 9, 10
# The kernel's names for buttons and keys.
_BUTTONS = {LEFT: 0x110, RIGHT: 0x111, MIDDLE: 0x112}
_KEYS = {"Alt_L": 56, "Control_L": 29, "Escape": 1, "F3": 61,
         **{letter: code for letters, first in (("qwertyuiop", 16), ("asdfghjkl", 30), ("zxcvbnm", 44))
            for code, letter in enumerate(letters, first)}}
_DOWN_THE_WHEEL = 0
# The X server there takes so many units for a notch when nothing else tells it of one.
_UNITS_PER_NOTCH = 10.0


class FakeInput(Pointer):
    """Moves the mouse and types where the compositor itself takes it for a real one's doing.

    The server of the X programs learns of it the way it learns of a real mouse, which it does not
    through its own XTEST extension. Speaks the protocol over a connection of its own.
    """

    def __init__(self, path: Path):
        self._socket = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self._socket.settimeout(PATIENCE)
        self._socket.connect(str(path))
        self._buffer = b""
        # The compositor wants the numbers of new things one after the other.
        self._newest = _REGISTRY
        self._send(_DISPLAY, 1, struct.pack("=I", _REGISTRY))
        name = self._round_trip()
        if name is None:
            raise RuntimeError("this compositor takes no made-up input")
        self._input = self._new()
        self._send(_REGISTRY, 0, struct.pack("=I", name) + _text(_INTERFACE)
                   + struct.pack("=II", _VERSION, self._input))
        self._send(self._input, _AUTHENTICATE, _text("tests") + _text("tests"))
        self._round_trip()

    def close(self) -> None:
        """Leaves the compositor."""
        self._socket.close()

    def move(self, x: int, y: int) -> None:
        self._act(_MOVE_TO, struct.pack("=ii", _fixed(x), _fixed(y)))

    def press(self, button: int = LEFT) -> None:
        self._act(_BUTTON, struct.pack("=II", _BUTTONS[button], 1))

    def release(self, button: int = LEFT) -> None:
        self._act(_BUTTON, struct.pack("=II", _BUTTONS[button], 0))

    def wheel(self, notches: int) -> None:
        for _ in range(abs(notches)):
            turn = -_UNITS_PER_NOTCH if notches > 0 else _UNITS_PER_NOTCH
            self._act(_AXIS, struct.pack("=Ii", _DOWN_THE_WHEEL, _fixed(turn)))

    def hold_key(self, name: str) -> None:
        self._act(_KEY, struct.pack("=II", _KEYS[name], 1))

    def release_key(self, name: str) -> None:
        self._act(_KEY, struct.pack("=II", _KEYS[name], 0))

    def _act(self, request: int, body: bytes) -> None:
        self._send(self._input, request, body)
        self._round_trip()

    def _new(self) -> int:
        self._newest += 1
        return self._newest

    def _send(self, thing: int, request: int, body: bytes) -> None:
        self._socket.sendall(struct.pack("=IHH", thing, request, 8 + len(body)) + body)

    def _round_trip(self) -> int | None:
        """Waits until everything sent has been dealt with; answers the input's number if it was told."""
        callback, found = self._new(), None
        self._send(_DISPLAY, 0, struct.pack("=I", callback))
        while True:
            thing, event, body = self._receive()
            if thing == _DISPLAY and event == 0:
                raise ConnectionError(f"the compositor refuses: {body!r}")
            if thing == _REGISTRY and event == 0:
                number, length = struct.unpack("=II", body[:8])
                if body[8:8 + length - 1].decode() == _INTERFACE:
                    found = number
            if thing == callback:
                return found

    def _receive(self) -> tuple[int, int, bytes]:
        thing, event, size = struct.unpack("=IHH", self._exactly(8))
        return thing, event, self._exactly(size - 8)

    def _exactly(self, count: int) -> bytes:
        while len(self._buffer) < count:
            part = self._socket.recv(4096)
            if not part:
                raise ConnectionError("the compositor has gone")
            self._buffer += part
        taken, self._buffer = self._buffer[:count], self._buffer[count:]
        return taken


def _text(text: str) -> bytes:
    data = text.encode() + b"\0"
    return struct.pack("=I", len(data)) + data + b"\0" * (-len(data) % 4)


def _fixed(number: float) -> int:
    return round(number * 256)
