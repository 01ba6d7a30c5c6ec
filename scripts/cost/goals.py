"""What the program is meant to cost, beside what it does cost."""

from page import heading, row
from windows import Used

_UNSEEN = ("hidden", "session locked", "display blanked")


def goals(tables: dict[tuple[int, str], dict[tuple[str, int], Used]], first_frame: float) -> list[str]:
    """The goals as a table; the figures come from desktops without compositing and, beside them, with it."""

    def both(scale: int, value) -> list[float]:
        return [value(tables[scale, manager]) for manager in ("xfwm4-plain", "xfwm4")]

    def of(state: str, size: int, name: str):
        return lambda table: getattr(table[state, size], name)

    def worst(name: str):
        return lambda table: max(getattr(table[state, 128], name) for state in _UNSEEN)

    rest = "at rest"
    rows = [
        ("processor at rest, 128 points, scale 1, ms/s", 8, 5, both(1, of(rest, 128, "processor"))),
        ("the same at scale 2", 15, 9, both(2, of(rest, 128, "processor"))),
        ("the same at 316 points, scale 1", 18, 11, both(1, of(rest, 316, "processor"))),
        ("its share in the X server, ms/s", 5, 4, both(1, of(rest, 128, "server"))),
        ("voluntary switches a second, all threads", 40, 31, both(1, of(rest, 128, "switches"))),
        ("hidden, locked or blanked, the worst, ms/s", 0.3, 0.15, both(1, worst("processor"))),
        ("the same, switches a second", 2, 1, both(1, worst("switches"))),
        ("reduced motion, ms/s", 3, 2, both(1, of("reduced motion", 128, "processor"))),
        ("resident memory with the panel's tray, MiB", 40, 30, both(1, of(rest, 128, "resident"))),
        ("private dirty memory, MiB", 10, 6, both(1, of(rest, 128, "private_dirty"))),
        ("threads, after the states", 5, 3, both(1, of("display blanked", 128, "threads"))),
        ("from start to first frame, warm, ms", 80, 45, [first_frame]),
    ]
    lines = heading("goal", "at most", "aim", "without compositing", "with", "")
    for what, most, aim, found in rows:
        seen = [f"{value:.2f}" if most < 3 else f"{value:.1f}" for value in found] + [""] * (2 - len(found))
        lines.append(row(what, str(most), str(aim), *seen, _verdict(most, aim, found)))
    return lines


def _verdict(most: float, aim: float, found: list[float]) -> str:
    verdicts = ["aim met" if value <= aim else "met" if value <= most else "**missed**" for value in found]
    return ", with: ".join(verdicts if verdicts[-1] == "**missed**" else verdicts[:1])
