"""Settings of the Xfce programs, written before they start and changed while they run."""

from pathlib import Path
from xml.sax.saxutils import quoteattr

from .bus import Bus
from .processes import Processes
from .waiting import COMING_UP, wait_for

_STORE = "/usr/lib/x86_64-linux-gnu/xfce4/xfconf/xfconfd"


def write_channel(processes: Processes, channel: str, properties: dict) -> None:
    """Writes a channel's file. A nested dict is a branch; its "" entry is the branch's own value."""
    folder = Path(processes.environment["XDG_CONFIG_HOME"]) / "xfce4/xfconf/xfce-perchannel-xml"
    folder.mkdir(parents=True, exist_ok=True)
    body = "".join(_element(name, value) for name, value in properties.items())
    (folder / f"{channel}.xml").write_text(
        f'<?xml version="1.0"?><channel name={quoteattr(channel)} version="1.0">{body}</channel>')


class SettingsStore:
    """The daemon that hands those settings out."""

    def __init__(self, processes: Processes, session_bus: Bus):
        self._processes = processes
        self._bus = session_bus
        session_bus.wait()
        command = next((str(path) for path in Path("/usr/lib").glob("*/xfce4/xfconf/xfconfd")), _STORE)
        self.process = processes.start("xfconfd", [command])

    def wait(self) -> None:
        """Returns when settings can be read."""
        wait_for(lambda: self._bus.owner("org.xfce.Xfconf"), COMING_UP, "the settings store")

    def set(self, channel: str, name: str, kind: str, value: str) -> None:
        """Changes one setting while its readers run, as a settings dialog would."""
        self._processes.run(["xfconf-query", "-c", channel, "-p", name, "-n", "-t", kind, "-s", value])


def _element(name: str, value) -> str:
    if isinstance(value, dict):
        own = value.get("")
        inside = "".join(_element(key, item) for key, item in value.items() if key)
        return f"<property name={quoteattr(name)} {_typed(own)}>{_items(own)}{inside}</property>"
    return f"<property name={quoteattr(name)} {_typed(value)}>{_items(value)}</property>"


def _typed(value) -> str:
    if value is None:
        return 'type="empty"'
    if isinstance(value, list):
        return 'type="array"'
    if isinstance(value, bool):
        return f'type="bool" value="{str(value).lower()}"'
    if isinstance(value, int):
        return f'type="{"uint" if value >= 0 else "int"}" value="{value}"'
    if isinstance(value, Integer):
        return f'type="int" value="{value.value}"'
    return f'type="string" value={quoteattr(value)}'


def _items(value) -> str:
    if not isinstance(value, list):
        return ""
    return "".join(f"<value {_typed(item)}/>" for item in value)


class Integer:
    """A number that its reader wants signed."""

    def __init__(self, value: int):
        self.value = value
