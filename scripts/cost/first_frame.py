"""How long a program takes from its start to its first frame."""

import statistics
import threading
import time
from dataclasses import dataclass
from pathlib import Path

from Xlib import display
from Xlib.ext import record

from harness.desktop import Desktop

_SHM_PUT_IMAGE = 3
_STARTS = 9


@dataclass(frozen=True)
class Start:
    """Milliseconds from the start to the first frame: in all, running, and waiting for a processor."""

    total: float
    running: float
    waiting: float

    def __str__(self) -> str:
        return (f"{self.total:.0f} ms, in which its threads ran for {self.running:.0f} ms, and its main thread "
                f"waited {self.waiting:.0f} ms for a processor that others had")


def first_frame(desktop: Desktop, command: list[str | Path]) -> Start:
    """Medians over several starts, warm; the display server tells of the frame."""
    starts = [_one_start(desktop, command) for _ in range(_STARTS)]
    return Start(*(statistics.median(getattr(start, name) for start in starts)
                   for name in ("total", "running", "waiting")))


def _scheduled(pid: int) -> tuple[float, float]:
    """How long all threads have run, and how long the main one has waited for a processor, in milliseconds."""
    books = {task.name: [int(word) / 1e6 for word in (task / "schedstat").read_text().split()]
             for task in Path(f"/proc/{pid}/task").iterdir()}
    return sum(run for run, *_ in books.values()), books[str(pid)][1]


def _one_start(desktop: Desktop, command: list[str | Path]) -> Start:
    control, data = (display.Display(desktop.display_server.name) for _ in range(2))
    major = control.query_extension("MIT-SHM").major_opcode
    context = control.record_create_context(0, [record.FutureClients], [{
        "core_requests": (0, 0), "core_replies": (0, 0),
        "ext_requests": (major, major, _SHM_PUT_IMAGE, _SHM_PUT_IMAGE), "ext_replies": (0, 0, 0, 0),
        "delivered_events": (0, 0), "device_events": (0, 0), "errors": (0, 0),
        "client_started": False, "client_died": False}])
    control.sync()
    ready, seen, instant = threading.Event(), threading.Event(), []

    def take(answer) -> None:
        if answer.category == record.StartOfData:
            ready.set()
        elif answer.category == record.FromClient and not seen.is_set():
            instant.append(time.monotonic())
            seen.set()

    thread = threading.Thread(target=data.record_enable_context, args=(context, take), daemon=True)
    thread.start()
    ready.wait(10)
    start = time.monotonic()
    process = desktop.processes.start("first-frame", [str(word) for word in command])
    try:
        if not seen.wait(20):
            raise AssertionError(f"{command[0]} put no picture into shared memory")
        scheduled = _scheduled(process.pid)
    finally:
        desktop.processes.end(process)
        control.record_disable_context(context)
        control.sync()
        thread.join(10)
        control.close()
        data.close()
    return Start((instant[0] - start) * 1000, *scheduled)
