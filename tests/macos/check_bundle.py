#!/usr/bin/python3
"""Checks what goes into the macOS bundle, as far as that can be read without a Mac."""

import plistlib
import struct
import sys
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(TOP / "resources/macos"))
import make_icns  # noqa: E402

EXPECTED = {
    "CFBundleIdentifier": "com.local.velmora",
    "CFBundleName": "Velmora",
    "CFBundlePackageType": "APPL",
    "LSUIElement": True,
    "LSMinimumSystemVersion": "12.0",
}


def complaints_about_information():
    with (TOP / "resources/macos/Info.plist.in").open("rb") as template:
        information = plistlib.load(template)
    for key, value in EXPECTED.items():
        if information.get(key) != value:
            yield f"{key} is {information.get(key)!r}, not {value!r}"
    icon = information.get("CFBundleIconFile")
    if not icon or not (TOP / "resources/macos" / icon).is_file():
        yield f"the icon {icon!r} is not there"
    project = (TOP / "CMakeLists.txt").read_text()
    if f"CMAKE_OSX_DEPLOYMENT_TARGET {EXPECTED['LSMinimumSystemVersion']} " not in project:
        yield "the program is built for another lowest system than the bundle names"


def complaints_about_icon():
    content = (TOP / "resources/macos/Velmora.icns").read_bytes()
    if content != make_icns.icns():
        yield "Velmora.icns is not what make_icns.py makes of the pictures"
    place = make_icns.HEADER
    for side, kind in make_icns.KINDS.items():
        found, length = struct.unpack_from(">4sI", content, place)
        picture = content[place + make_icns.HEADER : place + length]
        size = struct.unpack_from(">II", picture, 16)
        if found != kind or picture[:4] != b"\x89PNG" or size != (side, side):
            yield f"the picture of {side} pixels is not in its place"
        place += length
    if place != len(content):
        yield "something follows the last picture"


if __name__ == "__main__":
    complaints = [*complaints_about_information(), *complaints_about_icon()]
    print("\n".join(complaints) or "The bundle's information and icon are as they should be.")
    sys.exit(bool(complaints))
