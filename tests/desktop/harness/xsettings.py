"""The desktop's toolkit settings: fonts' resolution, animations, theme."""

from .processes import Processes
from .waiting import COMING_UP, wait_for
from .x11 import X11
from .xfconf import Integer, SettingsStore, write_channel


class XSettings:
    """Xfce's settings daemon, which owns the XSETTINGS selection."""

    def __init__(self, processes: Processes, store: SettingsStore, scale: int):
        """Starts the daemon on a desktop of that scale.

        A session tells its scale as the fonts' resolution: 96 dots an inch times the scale, both in
        XSETTINGS and in the X resources. That is where Qt finds it on a user's desktop.
        """
        self._store = store
        write_channel(processes, "xsettings", {
            "Net": {"ThemeName": "Adwaita", "IconThemeName": "Adwaita", "EnableEventSounds": False},
            "Xft": {"DPI": Integer(96 * scale), "Antialias": Integer(1), "Hinting": Integer(1)},
            "Gtk": {"EnableAnimations": True},
        })
        store.wait()
        self.process = processes.start("xfsettingsd", ["xfsettingsd", "--no-daemon", "--disable-wm-check"])

    def wait(self, x11: X11) -> None:
        """Returns when programs can read the settings, the resolution among them."""
        wait_for(lambda: x11.selection_owner("_XSETTINGS_S0"), COMING_UP, "the settings daemon")
        wait_for(lambda: b"Xft.dpi" in (x11.property(x11.root.id, "RESOURCE_MANAGER") or b""), COMING_UP,
                 "the desktop's resolution")

    def enable_animations(self, enabled: bool) -> None:
        """Turns the user's wish for animations on or off."""
        self._store.set("xsettings", "/Gtk/EnableAnimations", "bool", str(enabled).lower())

    def set_resolution(self, dots: int) -> None:
        """Gives the fonts another resolution, in dots an inch; 96 is a scale of 1."""
        self._store.set("xsettings", "/Xft/DPI", "int", str(dots))
