#!/usr/bin/env python3
"""Makes chime.wav: a small bell, struck softly.

A handful of sine waves, each decaying at its own pace, the low ones longest. Two of them are a
little out of tune with each other, so that the tail shimmers. The sound rises over a few
milliseconds and is faded to nothing at its end: neither end clicks.

    python3 resources/make_chime.py resources/chime.wav
"""

import array
import math
import sys
import wave

RATE = 48_000  # frames a second
LENGTH = 1.8  # seconds
ATTACK = 0.008  # seconds
FADE = 0.25  # seconds
PEAK = 10 ** (-9 / 20)  # of full scale
NOTE = 587.33  # hertz

# ratio to the note, share of the whole, seconds to fall to 1/e
PARTIALS = [
    (0.5, 0.16, 0.70),
    (1.0, 0.46, 0.52),
    (1.0035, 0.22, 0.52),
    (2.0, 0.16, 0.32),
    (2.76, 0.12, 0.17),
    (5.40, 0.05, 0.06),
]


def raised_cosine(share):
    return 0.5 - 0.5 * math.cos(math.pi * min(max(share, 0.0), 1.0))


def sample(time):
    bell = sum(
        share * math.exp(-time / decay) * math.sin(2 * math.pi * NOTE * ratio * time)
        for ratio, share, decay in PARTIALS
    )
    return bell * raised_cosine(time / ATTACK) * raised_cosine((LENGTH - time) / FADE)


def main(path):
    frames = [sample(frame / RATE) for frame in range(round(RATE * LENGTH))]
    loudest = max(abs(value) for value in frames)
    scale = PEAK * 32767 / loudest
    samples = array.array("h", (round(value * scale) for value in frames))
    if sys.byteorder == "big":
        samples.byteswap()
    with wave.open(path, "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(samples.tobytes())


if __name__ == "__main__":
    main(sys.argv[1])
