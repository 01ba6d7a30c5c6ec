"""Pictures of a desktop, and what the orb wears in them."""

from pathlib import Path

import numpy
from PIL import Image

# The body's three gradient colours, from the middle outwards, in each state.
PALETTES = {
    "paused": ((0.62, 0.66, 0.64), (0.48, 0.54, 0.52), (0.36, 0.42, 0.40)),
    "reminding": ((0.98, 0.90, 0.72), (0.86, 0.62, 0.48), (0.72, 0.42, 0.40)),
    "active": ((0.90, 0.97, 0.90), (0.42, 0.74, 0.58), (0.18, 0.52, 0.46)),
    "resting": ((0.55, 0.62, 0.70), (0.38, 0.46, 0.56), (0.26, 0.32, 0.42)),
}
# What shines through the orb where it is translucent as a whole: a desktop's own background.
_OPACITY = {"resting": 0.78}
_BACKGROUND = 0.0


def save(pixels: numpy.ndarray, path: Path) -> Path:
    """Writes pixels (rows × columns × red, green, blue) as a PNG and answers its path."""
    path.parent.mkdir(parents=True, exist_ok=True)
    Image.fromarray(pixels).save(path)
    return path


def share_wearing(pixels: numpy.ndarray, palette: str, tolerance: float = 0.06) -> float:
    """Which share of the pixels, 0..1, lies on the gradient between a palette's three colours.

    `tolerance` is the largest distance of a pixel from the gradient, in a cube of side 1. Where the
    palette is translucent the bare desktop has to be behind it.
    """
    opacity = _OPACITY.get(palette, 1.0)
    colours = numpy.asarray(PALETTES[palette]) * opacity + _BACKGROUND * (1 - opacity)
    seen = pixels.reshape(-1, 3) / 255.0
    nearest = numpy.full(len(seen), numpy.inf)
    for start, end in zip(colours, colours[1:]):
        along = end - start
        place = numpy.clip((seen - start) @ along / (along @ along), 0, 1)
        distance = numpy.linalg.norm(seen - start - place[:, None] * along, axis=1)
        nearest = numpy.minimum(nearest, distance)
    return float(numpy.mean(nearest <= tolerance))


def palette_worn(pixels: numpy.ndarray, least: float = 0.2) -> str | None:
    """The palette that most of the pixels wear, or none when no palette covers `least` of them."""
    shares = {name: share_wearing(pixels, name) for name in PALETTES}
    best = max(shares, key=shares.get)
    return best if shares[best] >= least else None
