"""The X server: Xorg on its dummy driver, or Xvfb where that is missing."""

import os
import random
import re
import shutil
import subprocess
from dataclasses import dataclass
from pathlib import Path

from .processes import Processes
from .waiting import COMING_UP, PATIENCE, wait_for

_DUMMY_DRIVER = Path("/usr/lib/xorg/modules/drivers/dummy_drv.so")
_TEST_INPUT_DRIVER = Path("/usr/lib/xorg/modules/input/inputtest_drv.so")

_CONFIGURATION = """
Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "AutoEnableDevices" "false"
    Option "DontVTSwitch" "true"
EndSection
Section "Device"
    Identifier "card"
    Driver "dummy"
    VideoRam 262144
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 5-1000
    VertRefresh 5-300
    Modeline {modeline}
EndSection
Section "Screen"
    Identifier "screen"
    Device "card"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Modes {mode}
        Virtual {width} {height}
    EndSubSection
EndSection
"""
_TOUCHPAD = """
Section "InputDevice"
    Identifier "touchpad"
    Driver "inputtest"
    Option "SocketPath" "{socket}"
    Option "DeviceType" "PointerGesture"
EndSection
Section "ServerLayout"
    Identifier "layout"
    Screen "screen"
    InputDevice "touchpad"
EndSection
"""


@dataclass(frozen=True)
class Head:
    """One display of the desktop, in device pixels; x and y name its top-left corner."""

    width: int = 1280
    height: int = 800
    x: int = 0
    y: int = 0


class DisplayServer:
    """An X server of its own, with displays that can be plugged, unplugged and resized."""

    def __init__(self, processes: Processes, heads: list[Head]):
        """Starts the server with the first head; `wait` plugs in the others."""
        self._processes = processes
        self._heads = heads
        self._modes: set[tuple[str, str]] = set()
        self.touchpad_socket: Path | None = None
        dummy = _DUMMY_DRIVER.exists() and shutil.which("Xorg")
        command = self._dummy(heads[0]) if dummy else self._framebuffer(heads[0])
        self.pluggable = bool(dummy)
        # A number of its own: where a server takes the lowest free one, as it does when it may choose, the
        # one that had it just before may still be ending, and removes the new one's socket.
        for number in random.sample(range(100, 50_000), 5):
            if self._starts(command, number):
                self.name = f":{number}"
                return
        raise RuntimeError(f"no X server: {processes.log('display').read_text()[-2000:]}")

    def _starts(self, command: list[str], number: int) -> bool:
        """Starts the server and waits for it; false when it ends, as it does where the number is taken."""
        read, write = os.pipe()
        self.process = self._processes.start(
            "display", [*command, f":{number}", "-displayfd", str(write), "-noreset", "-nolisten", "tcp"],
            pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as answer:
            return answer.readline().strip() == str(number)

    @property
    def socket(self) -> Path:
        """Where programs come to."""
        return x_socket(self.name)

    def close(self) -> None:
        """Removes what a killed server leaves behind; one that ends by itself leaves nothing."""
        if self.process.returncode < 0:
            self.socket.unlink(missing_ok=True)
            Path(f"/tmp/.X{self.name[1:]}-lock").unlink(missing_ok=True)

    def wait(self) -> None:
        """Returns when every display of the desktop is plugged in."""
        wait_for(self.socket.exists, COMING_UP, "the X server")
        for index, head in enumerate(self._heads):
            if index > 0:
                self.plug(index, head)

    def plug(self, index: int, head: Head) -> None:
        """Plugs in the display of that index, or gives it another size or place."""
        self._xrandr("--output", _output(index), "--mode", self._mode(index, head), "--pos",
                     f"{head.x}x{head.y}")

    def unplug(self, index: int) -> None:
        """Takes the display of that index away."""
        self._xrandr("--output", _output(index), "--off")

    def make_primary(self, index: int) -> None:
        """Makes the display of that index the primary one."""
        self._xrandr("--output", _output(index), "--primary")

    def plugged(self) -> dict[int, Head]:
        """Every display that shows something now, by its index."""
        found = {}
        for match in re.finditer(r"^DUMMY(\d+) connected (?:primary )?(\d+)x(\d+)\+(\d+)\+(\d+)",
                                 self._xrandr(), re.MULTILINE):
            index, width, height, x, y = map(int, match.groups())
            found[index] = Head(width, height, x, y)
        return found

    def _dummy(self, head: Head) -> list[str]:
        folder = self._processes.folder
        text = _CONFIGURATION.format(modeline=_modeline("start", head), mode='"start"',
                                     width=head.width, height=head.height)
        if _TEST_INPUT_DRIVER.exists():
            self.touchpad_socket = folder / "touchpad"
            text += _TOUCHPAD.format(socket=self.touchpad_socket)
        (folder / "xorg.conf").write_text(text)
        return ["Xorg", "-config", str(folder / "xorg.conf"),
                "-logfile", str(self._processes.log("xorg"))]

    def _framebuffer(self, head: Head) -> list[str]:
        return ["Xvfb", "-screen", "0", f"{head.width}x{head.height}x24", "+extension", "Composite"]

    def _mode(self, index: int, head: Head) -> str:
        name = f"{head.width}x{head.height}v"
        if not any(mode == name for _, mode in self._modes):
            self._xrandr("--newmode", *_modeline(name, head).replace('"', "").split())
        if (_output(index), name) not in self._modes:
            self._xrandr("--addmode", _output(index), name)
            self._modes.add((_output(index), name))
        return name

    def _xrandr(self, *arguments: str) -> str:
        done = subprocess.run(["xrandr", "--display", self.name, *arguments], capture_output=True,
                              text=True, timeout=PATIENCE, env=self._processes.environment)
        if done.returncode != 0:
            raise RuntimeError(f"xrandr {' '.join(arguments)}: {done.stderr.strip()}")
        return done.stdout


def x_socket(name: str) -> Path:
    """Where programs come to the X server of that name."""
    return Path(f"/tmp/.X11-unix/X{name[1:]}")


def _output(index: int) -> str:
    return f"DUMMY{index}"


def _modeline(name: str, head: Head) -> str:
    # The dummy driver shows nothing to anybody, so any blanking will do, at about 60 Hz.
    across, down = head.width + 160, head.height + 30
    clock = across * down * 60 / 1e6
    return (f'"{name}" {clock:.2f} {head.width} {head.width + 40} {head.width + 80} {across} '
            f"{head.height} {head.height + 3} {head.height + 6} {down}")
