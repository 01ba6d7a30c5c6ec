"""How long a program takes from its start to its first frame."""

import statistics
import threading
import time
from pathlib import Path

from Xlib import display
from Xlib.ext import record

from harness.desktop import Desktop

_SHM_PUT_IMAGE = 3
_STARTS = 9


def first_frame(desktop: Desktop, command: list[str | Path]) -> float:
    """The median over several starts, warm, in milliseconds; the display server tells of the frame."""
    return statistics.median(_one_start(desktop, command) for _ in range(_STARTS + 1)[1:])


def _one_start(desktop: Desktop, command: list[str | Path]) -> float:
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
    finally:
        desktop.processes.end(process)
        control.record_disable_context(context)
        control.sync()
        thread.join(10)
        control.close()
        data.close()
    return (instant[0] - start) * 1000
