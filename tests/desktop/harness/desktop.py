"""A private desktop: display, buses, window manager, panel, sound, all of its own."""

import shutil
import tempfile
import time
from collections import Counter
from collections.abc import Callable
from pathlib import Path

from Xlib.error import ConnectionClosedError, XError

from .accessibility import Accessibility
from .bus import Bus
from .bystander import Bystander
from .display_server import DisplayServer, Head
from .logind import Logind
from .pointer import Pointer
from .processes import Processes
from .program import Program
from .screenshots import save
from .settings import Settings
from .sound import PipeWire, SoundServer
from .touchpad import Touchpad
from .tray import Tray
from .wayland import WaylandSession
from .window_manager import WindowManager
from .x11 import X11, Rectangle
from .xfconf import SettingsStore
from .xsettings import XSettings

_PATH = "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin"


class Desktop:
    """Brings a desktop up, and on leaving the `with` ends everything that it started.

    - `window_manager`: "xfwm4" (composites), "xfwm4-plain" (does not), "openbox", "kwin", "mutter", "none";
      "kwin-wayland" is a Wayland session with an X server for X programs.
    - `scale`: 1 or 2, told to programs the way a session does.
    - `heads`: the displays, in device pixels; the first is the primary one.
    - `tray`: "panel" (StatusNotifierItem), "xembed" (a tray without it), "none".
    - `sound`: "pulse" (PulseAudio), "pipewire" (PipeWire in its place), "none".
    - `session_bus`, `logind`, `accessibility`, `xsettings`: whether programs find them. Without a
      session bus there is no accessibility either; the desktop's own parts keep a bus to themselves.
    - `display`: without one, programs find no server to draw on.
    - `timezone`, `locale`, `environment`: what programs inherit.

    Several desktops can be up at once, also in one process.
    """

    living: list["Desktop"] = []
    # Where screenshot and logs are kept when a problem leaves the `with`; set by the test run.
    evidence: Path | None = None

    def __init__(self, *, window_manager: str = "xfwm4", scale: int = 1, heads: list[Head] | None = None,
                 tray: str = "panel", sound: str = "pulse", session_bus: bool = True,
                 logind: bool = True, accessibility: bool = True, xsettings: bool = True,
                 display: bool = True, timezone: str = "UTC", locale: str = "C.UTF-8",
                 environment: dict[str, str] | None = None):
        self.scale = scale
        self.window_manager: WindowManager | None = None
        self.display_server: DisplayServer | None = None
        self.x11: X11 | None = None
        self.session_bus: Bus | None = None
        self.system_bus: Bus | None = None
        self.logind: Logind | None = None
        self.sound: SoundServer | None = None
        self.accessibility: Accessibility | None = None
        self.xsettings: XSettings | None = None
        self.tray: Tray | None = None
        self.settings_store: SettingsStore | None = None
        self._wanted = {
            "window_manager": window_manager, "heads": heads or [Head(1280 * scale, 800 * scale)],
            "tray": tray, "sound": sound, "session_bus": session_bus, "logind": logind,
            "accessibility": accessibility, "xsettings": xsettings, "display": display}
        self._inherited = {"TZ": timezone, "LANG": locale, **(environment or {})}
        # What programs are told otherwise than the desktop's own parts.
        self.for_programs: dict[str, str] = {}
        self._own_bus: Bus | None = None
        self._hand: Pointer | None = None
        self._counts: Counter[str] = Counter()
        self._timings: list[tuple[str, float]] = []

    def __enter__(self) -> "Desktop":
        # Addresses of sockets end after 108 bytes, so the folder's name is a short one.
        self.folder = Path(tempfile.mkdtemp(prefix="vd-", dir="/tmp"))
        self.home = self.folder / "home"
        self.processes = Processes(self.folder, self._environment())
        self.settings = Settings(self.home / ".config")
        try:
            self._bring_up()
        except BaseException as problem:
            self._keep_on(problem)
            self._take_down()
            raise
        Desktop.living.append(self)
        return self

    def __exit__(self, _kind, problem, _trace) -> None:
        Desktop.living.remove(self)
        if problem:
            self._keep_on(problem)
        self._take_down()

    @property
    def environment(self) -> dict[str, str]:
        """What every program on this desktop inherits."""
        return {**self.processes.environment, **self.for_programs}

    @property
    def pointer(self) -> Pointer:
        """A hand on the mouse and the keyboard."""
        if self._hand is None:
            self._hand = self.display_server.hand() if self.is_wayland else Pointer(self.x11)
        return self._hand

    @property
    def is_wayland(self) -> bool:
        """Whether the desktop is a Wayland session."""
        return isinstance(self.display_server, WaylandSession)

    def touchpad(self) -> Touchpad:
        """A touchpad; use it in a `with`. Not every server has one, see `has_touchpad`."""
        return Touchpad(self.display_server.touchpad_socket)

    @property
    def has_touchpad(self) -> bool:
        return bool(self.display_server and self.display_server.touchpad_socket)

    def run(self, *arguments: str, **options) -> Program:
        """Starts the program under test with these arguments."""
        return Program(self, *arguments, **options)

    def window(self, title: str, place: Rectangle) -> Bystander:
        """Opens an ordinary window of another program and waits until it is seen."""
        bystander = Bystander(self.processes, self.x11, title, place)
        bystander.wait()
        return bystander

    def native_full_screen_window(self, title: str) -> Bystander:
        """Opens a window of a Wayland program that covers the screen, in a Wayland session."""
        bystander = Bystander(self.processes, self.x11, title, None,
                              {**self.display_server.environment, "GDK_BACKEND": "wayland"})
        bystander.wait()
        return bystander

    def screenshot(self, path: Path) -> Path:
        """Saves what the whole desktop shows."""
        return save(self.x11.pixels(), path)

    def count(self, what: str) -> int:
        """1, 2, 3, … for each call with the same text."""
        self._counts[what] += 1
        return self._counts[what]

    @property
    def timings(self) -> list[tuple[str, float]]:
        """How long each step of coming up took, in seconds from the beginning."""
        return list(self._timings)

    def keep_evidence(self, folder: Path) -> None:
        """Copies a screenshot, every log and the stored settings to a folder that stays."""
        folder.mkdir(parents=True, exist_ok=True)
        number = sum(1 for entry in folder.iterdir() if entry.is_dir()) + 1
        kept = folder / f"desktop-{number}"
        shutil.copytree(self.processes.logs, kept)
        if self.settings.path.exists():
            shutil.copy(self.settings.path, kept)
        if self.x11:
            try:
                self.screenshot(kept / "screenshot.png")
            except (OSError, ConnectionClosedError, XError) as error:
                (kept / "no-screenshot.txt").write_text(f"the display could not be read: {error!r}\n")

    def _environment(self) -> dict[str, str]:
        runtime = self.folder / "run"
        self.home.mkdir()
        runtime.mkdir(mode=0o700)
        (runtime / "pulse").mkdir(mode=0o700)
        config = self.home / ".config"
        environment = {
            "PATH": _PATH, "HOME": str(self.home), "USER": "tester", "LOGNAME": "tester",
            "XDG_RUNTIME_DIR": str(runtime), "XDG_CONFIG_HOME": str(config),
            "XDG_DATA_HOME": str(self.home / ".local/share"),
            "XDG_CACHE_HOME": str(self.home / ".cache"),
            "XDG_STATE_HOME": str(self.home / ".local/state"),
            "XDG_CURRENT_DESKTOP": "XFCE", "XDG_SESSION_TYPE": "x11",
            # Nothing of the machine's own session is reachable unless the desktop has it.
            "DBUS_SESSION_BUS_ADDRESS": f"unix:path={runtime}/session-bus",
            "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={runtime}/system-bus",
            "PULSE_SERVER": f"unix:{runtime}/pulse/native",
            "GTK_THEME": "Adwaita", "NO_AT_BRIDGE": "1"}
        environment.update(self._inherited)
        return environment

    def _bring_up(self) -> None:
        wanted, start = self._wanted, time.monotonic()
        waits: list[tuple[str, Callable[[], None]]] = []

        def note(what: str) -> None:
            self._timings.append((what, time.monotonic() - start))

        self._own_bus = Bus(self.processes, "session")
        if wanted["session_bus"]:
            self.session_bus = self._own_bus
        else:
            self.for_programs["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.folder}/run/no-bus"
        if wanted["logind"]:
            self.system_bus = Bus(self.processes, "system")
        if wanted["sound"] != "none":
            server = {"pulse": SoundServer, "pipewire": PipeWire}[wanted["sound"]]
            self.sound = server(self.processes)
            waits.append(("sound", self.sound.wait))
        if wanted["logind"]:
            self.logind = Logind(self.processes, self.system_bus)
            waits.append(("logind", self.logind.wait))
        if wanted["session_bus"] and wanted["accessibility"]:
            self.accessibility = Accessibility(self.processes, self.session_bus)
            waits.append(("accessibility", self.accessibility.wait))
        note("buses")
        if wanted["display"]:
            self._bring_up_display(note)
        for what, wait in waits:
            wait()
            note(what)

    def _bring_up_display(self, note: Callable[[str], None]) -> None:
        wanted = self._wanted
        if wanted["window_manager"] == "kwin-wayland":
            self.display_server = WaylandSession(self.processes, wanted["heads"], self._own_bus)
            self.for_programs.update(self.display_server.environment)
        else:
            self.display_server = DisplayServer(self.processes, wanted["heads"])
        self.processes.environment["DISPLAY"] = self.display_server.name
        self.display_server.wait()
        self.x11 = self.display_server.view() if self.is_wayland else X11(self.display_server.name)
        note("display")
        self.settings_store = SettingsStore(self.processes, self._own_bus)
        if wanted["xsettings"]:
            self.xsettings = XSettings(self.processes, self.settings_store, self.scale)
        self.settings_store.wait()
        self.window_manager = WindowManager(
            self.processes, wanted["window_manager"], self.settings_store)
        if self.xsettings:
            # The panel takes its own scale from there when it starts.
            self.xsettings.wait(self.x11)
            note("xsettings")
        self.tray = Tray(self.processes, wanted["tray"], self.scale, self._own_bus)
        self.window_manager.wait(self.x11)
        note("window manager")
        self.tray.wait(self.x11)
        note("tray")

    def _keep_on(self, problem: BaseException) -> None:
        if self.evidence and isinstance(problem, Exception):
            try:
                self.keep_evidence(self.evidence)
            except Exception as trouble:  # the first problem is the one to report
                problem.add_note(f"the evidence is incomplete: {trouble}")

    def _take_down(self) -> None:
        hand = self._hand if self.is_wayland else None
        for connection in (hand, self.x11, self.accessibility, self._own_bus, self.system_bus):
            if connection:
                connection.close()
        self.processes.end_all()
        if self.display_server:
            self.display_server.close()
        shutil.rmtree(self.folder, ignore_errors=True)
