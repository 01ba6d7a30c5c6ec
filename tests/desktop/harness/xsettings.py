"""The desktop's toolkit settings: fonts' resolution, animations, theme."""

import struct

from Xlib import X, Xatom
from Xlib.protocol import event

from .processes import Processes
from .waiting import COMING_UP, wait_for
from .x11 import X11, open_display
from .xfconf import SettingsStore

_OWNER = "_XSETTINGS_S0"


class XSettings:
    """The owner of the XSETTINGS selection, as a desktop's settings daemon is.

    Xfce's own daemon also looks after the displays, and puts back what a test has just unplugged.
    """

    def __init__(self, processes: Processes, _store: SettingsStore, scale: int):
        """Hands settings out on a desktop of that scale.

        A session tells its scale as the fonts' resolution: 96 dots an inch times the scale, both in
        XSETTINGS and in the X resources. That is where Qt finds it on a user's desktop.
        """
        self._display = open_display(processes.environment["DISPLAY"])
        self._root = self._display.screen().root
        self._window = self._root.create_window(-1, -1, 1, 1, 0, X.CopyFromParent)
        self._serial = 0
        self._values: dict[str, int | str] = {
            "Net/ThemeName": "Adwaita", "Net/IconThemeName": "Adwaita", "Net/EnableEventSounds": 0,
            "Xft/Antialias": 1, "Xft/Hinting": 1, "Gtk/EnableAnimations": 1}
        self.set_resolution(96 * scale)
        self._own()

    def wait(self, x11: X11) -> None:
        """Returns when programs can read the settings, the resolution among them."""
        wait_for(lambda: x11.selection_owner(_OWNER), COMING_UP, "the settings")
        wait_for(lambda: b"Xft.dpi" in (x11.property(x11.root.id, "RESOURCE_MANAGER") or b""), COMING_UP,
                 "the desktop's resolution")

    def enable_animations(self, enabled: bool) -> None:
        """Turns the user's wish for animations on or off."""
        self._values["Gtk/EnableAnimations"] = int(enabled)
        self._publish()

    def set_resolution(self, dots: int) -> None:
        """Gives the fonts another resolution, in dots an inch; 96 is a scale of 1."""
        resources = f"Xft.antialias:\t1\nXft.dpi:\t{dots}\nXft.hinting:\t1\n"
        self._root.change_property(Xatom.RESOURCE_MANAGER, Xatom.STRING, 8, resources.encode())
        self._values["Xft/DPI"] = dots * 1024
        self._publish()

    def _publish(self) -> None:
        self._serial += 1
        kind = self._display.intern_atom("_XSETTINGS_SETTINGS")
        body = b"".join(_setting(name, value, self._serial) for name, value in sorted(self._values.items()))
        head = struct.pack("<BxxxII", 0, self._serial, len(self._values))
        self._window.change_property(kind, kind, 8, head + body)
        self._display.sync()

    def _own(self) -> None:
        selection = self._display.intern_atom(_OWNER)
        self._window.set_selection_owner(selection, X.CurrentTime)
        # Those who came before are told.
        news = event.ClientMessage(window=self._root, client_type=self._display.intern_atom("MANAGER"),
                                   data=(32, [X.CurrentTime, selection, self._window.id, 0, 0]))
        self._root.send_event(news, event_mask=X.StructureNotifyMask)
        self._display.sync()


def _setting(name: str, value: int | str, serial: int) -> bytes:
    """One setting: its type, its name, when it last changed, its value."""
    kind = 0 if isinstance(value, int) else 1
    text = _padded(name.encode())
    head = struct.pack("<BxH", kind, len(name)) + text + struct.pack("<I", serial)
    if isinstance(value, int):
        return head + struct.pack("<i", value)
    return head + struct.pack("<I", len(value.encode())) + _padded(value.encode())


def _padded(text: bytes) -> bytes:
    return text + bytes(-len(text) % 4)
