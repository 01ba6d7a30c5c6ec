"""Writes the program's icons: the orb at rest, and a symbol of it for panels.

The colours and layers are the orb's own, and so is the outline with its waves calmed: at 16 pixels
it still has to be read as an orb.
The scalable icons are written as SVG; the sizes in pixels are drawn from them by rsvg-convert
(Debian: librsvg2-bin). Run it from anywhere; it replaces what is in resources/icons.
"""

import math
import subprocess
from pathlib import Path

_FOLDER = Path(__file__).resolve().parent / "icons"
_NAME = "com.local.velmora"
_SIDE = 128.0
_PHASE = 297.74
# The outline fills little more than half of its square; the icon may fill its own.
_ZOOM = 1.38
_CALM = 0.4
SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)


def outline(side: float, phase: float) -> str:
    """The orb's outline in a square of this side, as the data of an SVG path."""
    points = []
    for index in range(8):
        angle = index * math.pi / 4 - math.pi / 2
        reach = side / 2 * (0.62 + _CALM * (0.12 * math.sin(2 * angle + phase)
                                     + 0.07 * math.cos(3 * angle - 0.73 * phase)
                                     + 0.04 * math.sin(5 * angle + 1.21 * phase)))
        points.append((side / 2 + reach * math.cos(angle), side / 2 + reach * math.sin(angle)))
    parts = [f"M{points[0][0]:.2f} {points[0][1]:.2f}"]
    for index in range(8):
        before, start, end, after = (points[(index + step) % 8] for step in (-1, 0, 1, 2))
        first = [start[axis] + (end[axis] - before[axis]) / 6 for axis in (0, 1)]
        second = [end[axis] - (after[axis] - start[axis]) / 6 for axis in (0, 1)]
        parts.append("C" + " ".join(f"{x:.2f} {y:.2f}" for x, y in (first, second, end)))
    return "".join(parts) + "Z"


def scalable() -> str:
    """The orb at rest: glow, shadow, body, rim and highlight."""
    middle = _SIDE / 2
    place = f"translate({middle} {middle}) scale({_ZOOM}) translate({-middle} {-middle})"
    body = outline(_SIDE, _PHASE)
    return f"""<svg xmlns="http://www.w3.org/2000/svg" width="128" height="128" viewBox="0 0 128 128">
  <defs>
    <radialGradient id="body" gradientUnits="userSpaceOnUse" cx="46" cy="40" r="50">
      <stop offset="0" stop-color="#e6f7e6"/>
      <stop offset="0.5" stop-color="#6bbd94"/>
      <stop offset="1" stop-color="#2e8575"/>
    </radialGradient>
    <filter id="soft" x="-30%" y="-30%" width="160%" height="160%">
      <feGaussianBlur stdDeviation="3.2"/>
    </filter>
  </defs>
  <g transform="{place}">
    <path d="{body}" fill="#8ce0b3" opacity="0.42" filter="url(#soft)"
          transform="translate(64 64) scale(1.06) translate(-64 -64)"/>
    <path d="{body}" fill="#000" opacity="0.2" filter="url(#soft)" transform="translate(0 2.5)"/>
    <path d="{body}" fill="url(#body)" stroke="#2e8575" stroke-opacity="0.35" stroke-width="0.8"/>
    <path d="{outline(_SIDE, _PHASE + 0.55)}" fill="#fff" opacity="0.4" filter="url(#soft)"
          transform="translate(52 50) scale(0.38) translate(-64 -64)"/>
  </g>
</svg>
"""


def symbolic() -> str:
    """A ring around a dot, for panels that paint symbols in their own colour."""
    return """<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
  <path fill="#2e3436" fill-rule="evenodd"
        d="M8 1.5a6.5 6.5 0 1 0 0 13a6.5 6.5 0 1 0 0-13zM8 3a5 5 0 1 1 0 10a5 5 0 1 1 0-10z"/>
  <circle fill="#2e3436" cx="8" cy="8" r="2.5"/>
</svg>
"""


def _main() -> None:
    drawing = _FOLDER / f"{_NAME}.svg"
    drawing.parent.mkdir(parents=True, exist_ok=True)
    drawing.write_text(scalable())
    (_FOLDER / f"{_NAME}-symbolic.svg").write_text(symbolic())
    for size in SIZES:
        picture = _FOLDER / f"{_NAME}-{size}.png"
        subprocess.run(["rsvg-convert", "--width", str(size), "--height", str(size),
                        "--output", str(picture), str(drawing)], check=True)
        print(picture)


if __name__ == "__main__":
    _main()
