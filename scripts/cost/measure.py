"""Measures the program in every state: measure.py PROGRAM BARE_WINDOW PAGE SUMMARY.

The page gets every table, the summary, which is another document, the few figures of most interest.
"""

import sys
import time
from pathlib import Path

from harness.desktop import Desktop
from harness.display_server import Head

from first_frame import first_frame
from goals import goals
from page import Page, between_marks, heading, row, used_cells
from peers import measure_peers
from states import Subject
from windows import Meter, Used

# Wide enough for an orb of 316 points.
_HEAD = Head(1600, 900)
_SIZES = (72, 128, 316)
_USUAL_SIZE = 128
_MANAGERS = {"xfwm4-plain": "without compositing", "xfwm4": "with compositing"}

Table = dict[tuple[str, int], Used]


def _bare(desktop: Desktop, meter: Meter, path: Path, *words: str) -> Used:
    process = desktop.processes.start("bare-window", [str(path), *words])
    time.sleep(2)
    used = meter.measure([process.pid])
    desktop.processes.end(process)
    return used


def _states(desktop: Desktop, meter: Meter, path: Path) -> Table:
    """What the program uses at each size at rest, and in each state at the usual size."""
    found: Table = {}
    for size in _SIZES:
        subject = Subject(desktop, path, size)
        for name, brought_about in subject.states():
            with brought_about():
                found[name, size] = meter.measure([subject.program.pid])
            if size != _USUAL_SIZE:
                break
        subject.stop()
    return found


def _table(page: Page, title: str, found: Table, timer: Used, repainting: Used) -> None:
    lines = heading(title, "processor, ms/s", "switches/s", "X server, ms/s", "window manager, ms/s",
                    "× a bare timer", "× a bare repaint")
    for (name, size), used in found.items():
        ratios = [f"{used.processor / other.processor:.2f}" for other in (timer, repainting)]
        lines.append(row(f"{name}, {size} points", *used_cells(used), *ratios))
    lines.append(row("bare window, timer alone", *used_cells(timer), "1", ""))
    lines.append(row(f"bare window, repainting {_USUAL_SIZE} points", *used_cells(repainting), "", "1"))
    page.add(*lines)


def _peers(page: Page, desktop: Desktop, meter: Meter, own: Used) -> None:
    lines = heading("doing nothing", "processor, ms/s", "switches/s", "resident, MiB", "private dirty, MiB", "threads")
    for name, used in [("Velmora, its orb breathing", own), *measure_peers(desktop, meter)]:
        cells = [f"{used.processor:.1f}", f"{used.switches:.1f}", f"{used.resident:.0f}",
                 f"{used.private_dirty:.1f}", str(used.threads)] if used else ["not measured here"] + [""] * 4
        lines.append(row(name, *cells))
    page.add(*lines)


def _summary(tables: dict[tuple[int, str], Table], first: float) -> str:
    """The figures at the first size without compositing, each for one scale or both."""
    lines = heading("", "processor at scale 1", "at scale 2", "voluntary switches")
    for state in ("at rest", "in a reminder", "reduced motion", "session locked"):
        low, high = (tables[scale, "xfwm4-plain"][state, _USUAL_SIZE] for scale in (1, 2))
        lines.append(row(state, f"{low.processor / 10:.2f} % of a core", f"{high.processor / 10:.2f} %",
                         f"{low.switches:.0f} a second"))
    rest = tables[1, "xfwm4-plain"]["at rest", _USUAL_SIZE]
    after = f"{rest.resident:.0f} MiB resident, {rest.private_dirty:.1f} MiB of its own; {first:.0f} ms to the first frame."
    return "\n".join([*lines, "", after])


def _main() -> None:
    program, bare, document, short = (Path(argument).resolve() for argument in sys.argv[1:5])
    page, tables = Page(), {}
    for scale in (1, 2):
        for manager, words in _MANAGERS.items():
            head = Head(_HEAD.width * scale, _HEAD.height * scale)
            with Desktop(window_manager=manager, scale=scale, heads=[head]) as desktop:
                meter = Meter(desktop.display_server.process.pid, desktop.window_manager.process.pid)
                timer = _bare(desktop, meter, bare)
                repainting = _bare(desktop, meter, bare, "--repaint", str(_USUAL_SIZE))
                found = tables[scale, manager] = _states(desktop, meter, program)
                _table(page, f"scale {scale}, {words}", found, timer, repainting)
                if (scale, manager) == (1, "xfwm4-plain"):
                    _peers(page, desktop, meter, found["at rest", _USUAL_SIZE])
                    desktop.settings.write()
                    starts = first_frame(desktop, [program]), first_frame(desktop, [bare, "--repaint"])
    page.add(f"From start to first frame, warm: {starts[0]}. The bare window: {starts[1]}.")
    page.add(*goals(tables, starts[0].total))
    page.write(document)
    between_marks(short, _summary(tables, starts[0].total), page.load())
    print(f"Written to {document} and, in short, to {short}")


if __name__ == "__main__":
    _main()
