"""What a desktop shows status items in."""

import subprocess

from gi.repository import GLib

from .bus import Bus
from .processes import Processes
from .waiting import COMING_UP, wait_for
from .x11 import X11
from .xfconf import Integer, write_channel

WATCHER = "org.kde.StatusNotifierWatcher"
WATCHER_PATH = "/StatusNotifierWatcher"


class Tray:
    """A host for status items, of one of three kinds.

    "panel" is Xfce's panel, which speaks StatusNotifierItem and XEmbed; "xembed" is a tray that
    knows XEmbed only; "none" is a desktop without one, until `start` is called with another kind.
    """

    def __init__(self, processes: Processes, kind: str, scale: int, session_bus: Bus):
        self._processes = processes
        self._bus = session_bus
        self.kind = kind
        self._scale = scale
        self.process: subprocess.Popen | None = None
        # Written in any case, because a panel may start later and its settings are read once.
        write_channel(processes, "xfce4-panel", _panel(scale))
        self.start(kind)

    def start(self, kind: str) -> None:
        """Starts a host of that kind where there is none; use `wait` before counting on it."""
        self.kind = kind
        if kind == "panel":
            self.process = self._processes.start("panel", ["xfce4-panel", "--disable-wm-check"])
        elif kind == "xembed":
            self.process = self._processes.start("tray", [
                "trayer", "--edge", "top", "--align", "right", "--widthtype", "request",
                "--height", str(28 * self._scale), "--SetDockType", "true"])

    def stop(self) -> None:
        """Ends the host; its icons go with it."""
        if self.process:
            self._processes.end(self.process)
            self.process = None

    def wait(self, x11: X11) -> None:
        """Returns when the host takes status items."""
        if self.kind == "panel":
            wait_for(self.takes_status_items, COMING_UP, "the panel to take status items")
        elif self.kind == "xembed":
            wait_for(lambda: x11.selection_owner("_NET_SYSTEM_TRAY_S0"), COMING_UP, "the tray")

    def takes_status_items(self) -> bool:
        """Whether a StatusNotifierItem host is registered at this moment."""
        try:
            return bool(self._bus.get(
                WATCHER, WATCHER_PATH, WATCHER, "IsStatusNotifierHostRegistered"))
        except GLib.Error:
            return False


def _panel(scale: int) -> dict:
    return {
        "configver": Integer(2),
        "panels": {
            "": [Integer(1)],
            "panel-1": {
                "position": "p=6;x=0;y=0", "length": 100, "position-locked": True,
                "size": 28 * scale,
                "plugin-ids": [Integer(1), Integer(2), Integer(3), Integer(4)],
            },
        },
        "plugins": {
            "plugin-1": "tasklist",
            "plugin-2": {"": "separator", "expand": True, "style": 0},
            "plugin-3": {"": "systray", "square-icons": True},
            "plugin-4": "clock",
        },
    }
