"""A desktop to look at by hand: `/usr/bin/python3 -m harness --help`."""

import argparse
import os
import shlex
import subprocess
import sys
from pathlib import Path

from .desktop import Desktop
from .display_server import Head
from .window_manager import KINDS


def _arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(
        prog="python3 -m harness",
        description="Brings up a private desktop and runs a command on it, a shell by default. "
                    "The desktop goes when the command ends.")
    parser.add_argument("--window-manager", choices=KINDS, default="xfwm4")
    parser.add_argument("--tray", choices=["panel", "xembed", "none"], default="panel")
    parser.add_argument("--scale", type=int, choices=[1, 2], default=1)
    parser.add_argument("--size", default="1280x800", help="device pixels of the only display")
    parser.add_argument("--no-sound", action="store_true")
    parser.add_argument("command", nargs="*", help="the command; write -- before its options")
    return parser.parse_args()


def _main() -> int:
    chosen = _arguments()
    width, height = map(int, chosen.size.split("x"))
    command = chosen.command or [os.environ.get("SHELL", "/bin/sh")]
    with Desktop(window_manager=chosen.window_manager, tray=chosen.tray, scale=chosen.scale,
                 heads=[Head(width, height)], sound="none" if chosen.no_sound else "pulse") as desktop:
        picture = Path(__file__).with_name("screenshot.py")
        print(f"desktop {desktop.display_server.name} is up; its home is {desktop.home}\n"
              f"for a picture: /usr/bin/python3 {shlex.quote(str(picture))} FILE.png", file=sys.stderr)
        inherited = {name: os.environ[name] for name in ("TERM",) if name in os.environ}
        return subprocess.run(command, env={**desktop.environment, **inherited}).returncode


if __name__ == "__main__":
    sys.exit(_main())
