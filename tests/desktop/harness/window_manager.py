"""The window managers that a desktop can have."""

import subprocess
from dataclasses import dataclass, field

from .processes import Processes
from .waiting import COMING_UP, wait_for
from .x11 import X11
from .xfconf import SettingsStore, write_channel


@dataclass(frozen=True)
class Kind:
    """How a window manager is started, and whether it also composites."""

    command: list[str]
    composites: bool = False
    settings: dict = field(default_factory=dict)


def _xfwm4(composites: bool) -> Kind:
    return Kind(["xfwm4", f"--compositor={'on' if composites else 'off'}", "--vblank=off"], composites,
                {"general": {"use_compositing": composites, "theme": "Default"}})


KINDS = {
    "xfwm4": _xfwm4(composites=True),
    "xfwm4-plain": _xfwm4(composites=False),
    "openbox": Kind(["openbox"]),
    "kwin": Kind(["kwin_x11"], composites=True),
    "mutter": Kind(["mutter", "--x11"], composites=True),
    # The compositor is there already, with the display.
    "kwin-wayland": Kind([], composites=True),
    "none": Kind([]),
}


class WindowManager:
    """One window manager at work. Ending and starting it again is what a restart looks like."""

    def __init__(self, processes: Processes, name: str, store: SettingsStore):
        self._processes = processes
        self._store = store
        self.kind = KINDS[name]
        self.name = name
        self.process: subprocess.Popen | None = None
        if self.kind.settings:
            write_channel(processes, name.partition("-")[0], self.kind.settings)
        self.start()

    def start(self) -> None:
        """Starts the window manager, anew after a `stop`."""
        if self.kind.command:
            self.process = self._processes.start(self.name, self.kind.command)

    def stop(self) -> None:
        """Ends the window manager, and its compositor with it."""
        if self.process:
            self._processes.end(self.process)
            self.process = None

    def composite(self, enabled: bool, x11: X11) -> None:
        """Turns compositing on or off while windows are open; only xfwm4 can."""
        self._store.set("xfwm4", "/general/use_compositing", "bool", str(enabled).lower())
        wait_for(lambda: bool(x11.selection_owner("_NET_WM_CM_S0")) == enabled, COMING_UP,
                 f"compositing {'on' if enabled else 'off'}")

    def wait(self, x11: X11) -> None:
        """Returns when windows are managed and, where it composites, composited."""
        if not self.process and not self.kind.composites:
            return
        wait_for(lambda: self._manages(x11), COMING_UP, f"{self.name} to manage windows")
        if self.kind.composites:
            wait_for(lambda: x11.selection_owner("_NET_WM_CM_S0"), COMING_UP, f"{self.name} to composite")

    @staticmethod
    def _manages(x11: X11) -> bool:
        window = x11.property(x11.root.id, "_NET_SUPPORTING_WM_CHECK")
        return window is not None and len(window) > 0 and \
            x11.property(int(window[0]), "_NET_SUPPORTING_WM_CHECK") is not None
