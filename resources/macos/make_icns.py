#!/usr/bin/python3
"""Packs the icon's pictures into Velmora.icns: make_icns.py

The file is a header and, for each picture, four letters for its size, its length and the PNG as it
is. Run it again when the pictures have changed.
"""

import struct
from pathlib import Path

HERE = Path(__file__).resolve().parent
PICTURES = HERE.parent / "icons"

# What the format calls a picture of so many pixels.
KINDS = {16: b"icp4", 32: b"icp5", 64: b"icp6", 128: b"ic07", 256: b"ic08", 512: b"ic09"}
HEADER = 8


def entry(kind: bytes, content: bytes) -> bytes:
    return kind + struct.pack(">I", HEADER + len(content)) + content


def icns() -> bytes:
    pictures = b"".join(
        entry(kind, (PICTURES / f"com.local.velmora-{side}.png").read_bytes())
        for side, kind in KINDS.items()
    )
    return entry(b"icns", pictures)


if __name__ == "__main__":
    (HERE / "Velmora.icns").write_bytes(icns())
