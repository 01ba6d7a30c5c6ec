"""Shows a reminder on a desktop with other windows on it, and takes a picture.

Arguments: the program, the picture's path, and further arguments for the program.
"""

import sys
from pathlib import Path

from .desktop import Desktop
from .program import Program
from .screenshots import palette_worn
from .waiting import wait_for
from .x11 import Rectangle


def _main() -> None:
    program_path, picture, arguments = Path(sys.argv[1]), Path(sys.argv[2]), sys.argv[3:]
    with Desktop() as desktop:
        desktop.x11.paint_background((86, 108, 118))
        desktop.window("Notes", Rectangle(90, 80, 560, 380))
        desktop.window("A letter from the garden", Rectangle(520, 280, 640, 430))
        program = Program(desktop, "--preview", *arguments, path=program_path)
        program.wait_for_orb()
        wait_for(lambda: _reminds(desktop, program), 15, "the orb in its reminding palette")
        print(desktop.screenshot(picture))


def _reminds(desktop: Desktop, program: Program) -> bool:
    orb = program.orb()
    return bool(orb) and palette_worn(desktop.x11.pixels(orb.place)) == "reminding"


if __name__ == "__main__":
    _main()
