"""A touchpad for the X server: smooth scrolling and pinches."""

import socket
import struct
from pathlib import Path

from .waiting import PATIENCE

_VERSION, _WAIT_FOR_SYNC, _MOTION, _PINCH = 0, 1, 2, 7
_BEGIN, _UPDATE, _END = 27, 28, 29  # the input extension's numbers for a pinch
_VALUATORS = 64
_SCROLL_ACROSS, _SCROLL_DOWN = 2, 3


class Touchpad:
    """Speaks to the server's own test input driver. Use it in a `with`."""

    def __init__(self, path: Path):
        self._socket = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self._socket.settimeout(PATIENCE)
        self._socket.connect(str(path))
        self._send(_VERSION, struct.pack("=HH", 1, 1))
        self._receive()

    def __enter__(self) -> "Touchpad":
        return self

    def __exit__(self, *_exception) -> None:
        self._socket.close()

    def scroll(self, down: float, across: float = 0.0) -> None:
        """Scrolls smoothly by so many units; a wheel's notch would be 120 of them."""
        self._send(_MOTION, struct.pack("=II", 0, 0) + _valuators({_SCROLL_ACROSS: across, _SCROLL_DOWN: down}))
        self._settle()

    def pinch(self, *scales: float) -> None:
        """Two fingers that start at scale 1 and pass through these scales, then lift."""
        self._pinch(_BEGIN, 1.0)
        for scale in scales:
            self._pinch(_UPDATE, scale)
        self._pinch(_END, scales[-1] if scales else 1.0)
        self._settle()

    def _pinch(self, kind: int, scale: float) -> None:
        self._send(_PINCH, struct.pack("=HHI6d", kind, 2, 0, 0, 0, 0, 0, scale, 0))

    def _settle(self) -> None:
        self._send(_WAIT_FOR_SYNC, b"")
        self._receive()

    def _send(self, kind: int, body: bytes) -> None:
        self._socket.sendall(struct.pack("=II", 8 + len(body), kind) + body)

    def _receive(self) -> bytes:
        length = struct.unpack("=I", self._exactly(4))[0]
        return self._exactly(length - 4)

    def _exactly(self, count: int) -> bytes:
        data = b""
        while len(data) < count:
            part = self._socket.recv(count - len(data))
            if not part:
                raise ConnectionError("the X server closed the touchpad")
            data += part
        return data


def _valuators(values: dict[int, float]) -> bytes:
    mask = sum(1 << axis for axis in values)
    numbers = [values.get(axis, 0.0) for axis in range(_VALUATORS)]
    return struct.pack(f"=IQI{2 * _VALUATORS}d", 0, mask, 0, *numbers, *([0.0] * _VALUATORS))
