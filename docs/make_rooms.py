"""Draws docs/rooms.svg, the picture of the rooms: run it after changing the list below."""

from pathlib import Path

_ROWS = (
    (("shell", "entry, lifecycle, status item, wiring", 0, 6, "#2e8575", "#fff"),),
    (("windows", "the orb's and the form's windows", 0, 2, "#6bbd94", "#10332b"),
     ("views", "the orb, its controls, the form", 2, 2, "#6bbd94", "#10332b"),
     ("platform/…/", "linux, macos, posix, toolkit: the real ones", 4, 2, "#f0d9b0", "#5a3a1c")),
    (("model", "AppModel, the one observable object", 0, 3, "#a8d9be", "#10332b"),
     ("services", "chime, opening at login", 3, 1.4, "#a8d9be", "#10332b"),
     ("platform/*.h", "seams, one for each outside fact", 4.4, 1.6, "#f8ecd4", "#5a3a1c")),
    (("engine", "the countdown, the hours, the words", 0, 2, "#e6f7e6", "#10332b"),
     ("geometry", "where the orb and the form may be", 2, 2, "#e6f7e6", "#10332b"),
     ("orb", "its shape, its breath, its pixels", 4, 2, "#e6f7e6", "#10332b")),
)
_COLUMN, _ROW, _GAP, _MARGIN = 140, 78, 10, 16


def _room(row: int, name: str, holds: str, column: float, width: float, fill: str, ink: str) -> str:
    x, y = _MARGIN + column * _COLUMN, _MARGIN + row * (_ROW + _GAP)
    across = width * _COLUMN - _GAP
    return (f'<rect x="{x:g}" y="{y}" width="{across:g}" height="{_ROW}" rx="12" fill="{fill}"/>'
            f'<text x="{x + across / 2:g}" y="{y + 34}" fill="{ink}" font-size="16" font-weight="600">{name}</text>'
            f'<text x="{x + across / 2:g}" y="{y + 56}" fill="{ink}" font-size="11.5">{holds}</text>')


def _main() -> None:
    rooms = "\n".join(_room(number, *room) for number, row in enumerate(_ROWS) for room in row)
    width, height = 2 * _MARGIN + 6 * _COLUMN - _GAP, 2 * _MARGIN + 4 * (_ROW + _GAP) + 14
    Path(__file__).with_name("rooms.svg").write_text(f"""\
<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}" height="{height}"
     font-family="DejaVu Sans, sans-serif" text-anchor="middle">
<rect width="{width}" height="{height}" rx="18" fill="#f6f7f3"/>
{rooms}
<text x="{width / 2:g}" y="{height - 16}" fill="#5b6b64" font-size="11.5">A room may use what stands below it or \
to its right, never what stands above. The bottom row knows the standard library only.</text>
</svg>
""")


if __name__ == "__main__":
    _main()
