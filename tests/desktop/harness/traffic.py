"""What one program says to the X server and is told, counted by the server itself."""

import threading
from collections import Counter

from Xlib import display
from Xlib.ext import record

_LAST_CORE, _LAST = 127, 255
_REQUESTS_AND_REPLIES = {
    "core_requests": (0, _LAST_CORE), "core_replies": (0, _LAST_CORE),
    "ext_requests": (_LAST_CORE + 1, _LAST, 0, _LAST), "ext_replies": (_LAST_CORE + 1, _LAST, 0, _LAST),
    "delivered_events": (0, 0), "device_events": (0, 0), "errors": (0, 0),
    "client_started": False, "client_died": False}
_REPLY = 1


class Traffic:
    """Counts requests and replies of the client that owns a window; use it in a `with`.

    A round trip is a request whose reply is waited for, so that there are no more of them than replies.
    """

    def __init__(self, server: str, window: int):
        self._control, self._data = display.Display(server), display.Display(server)
        self._context = self._control.record_create_context(0, [window], [_REQUESTS_AND_REPLIES])
        self._control.sync()
        self._started = threading.Event()
        self._lock = threading.Lock()
        self._requests: Counter[tuple[int, int]] = Counter()
        self._replies = 0
        self._thread = threading.Thread(
            target=self._data.record_enable_context, args=(self._context, self._take), daemon=True)

    def __enter__(self) -> "Traffic":
        self._thread.start()
        if not self._started.wait(30):
            raise AssertionError("the server did not begin to count")
        return self

    def __exit__(self, *_exception) -> None:
        self._control.record_disable_context(self._context)
        self._control.sync()
        self._thread.join(30)
        for connection in (self._control, self._data):
            connection.close()

    @property
    def replies(self) -> int:
        """How many replies were given up to now."""
        with self._lock:
            return self._replies

    @property
    def requests(self) -> Counter[tuple[int, int]]:
        """How many requests were made up to now, by the two numbers that name their kind."""
        with self._lock:
            return Counter(self._requests)

    def _take(self, answer) -> None:
        if answer.category == record.StartOfData:
            self._started.set()
        data = bytes(answer.data)
        with self._lock:
            while data:
                fields = int.from_bytes(data[2:4], "little"), int.from_bytes(data[4:8], "little")
                if answer.category == record.FromServer:
                    self._replies += data[0] == _REPLY
                    size = 32 + 4 * fields[1] if data[0] == _REPLY else 32
                else:
                    self._requests[data[0], data[1] if data[0] > _LAST_CORE else 0] += 1
                    size = 4 * fields[0] or 4 * fields[1]  # A length of zero: the longer one follows.
                data = data[size:]
