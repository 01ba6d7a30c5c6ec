"""A program's status item as a panel sees it: over the session bus."""

from gi.repository import GLib

from .bus import Bus
from .tray import WATCHER, WATCHER_PATH
from .waiting import wait_for

ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"


class Row:
    """One row of a menu."""

    def __init__(self, number: int, properties: dict):
        self.number = number
        self.text = properties.get("label", "").replace("__", "\0").replace("_", "").replace("\0", "_")
        self.enabled = properties.get("enabled", True)
        self.visible = properties.get("visible", True)
        self.separator = properties.get("type") == "separator"
        self.shortcut = properties.get("shortcut", [])

    def __repr__(self) -> str:
        return "—" if self.separator else self.text + ("" if self.enabled else " (disabled)")


class StatusItem:
    """The status item of one process."""

    def __init__(self, bus: Bus, pid: int, bound: float = 15.0):
        """Waits until the panel knows an item of that process."""
        self._bus = bus
        self._name, self._path = wait_for(lambda: find(bus, pid), bound, "the status item")
        self.row_changes: list[tuple[int, str]] = []
        bus.listen(MENU, "ItemsPropertiesUpdated", self._rows_changed, sender=self._name)

    @property
    def tooltip(self) -> str:
        """The tooltip's title, as a panel shows it."""
        return self.get("ToolTip")[2]

    @property
    def status_line(self) -> str:
        """The line after "Velmora — " in the tooltip, or nothing before the first refresh."""
        return self.tooltip.partition(" — ")[2]

    def get(self, key: str):
        """A property of the item."""
        return self._bus.get(self._name, self._path, ITEM, key)

    def icons(self) -> list[tuple[int, int, bytes]]:
        """The icon in every size: width, height, and rows of A, R, G, B bytes."""
        return [(width, height, bytes(pixels)) for width, height, pixels in self.get("IconPixmap")]

    def activate(self) -> None:
        """A left click on the icon."""
        self._bus.call(self._name, self._path, ITEM, "Activate", GLib.Variant("(ii)", (0, 0)))

    def open_menu(self) -> list[Row]:
        """Tells the program that its menu is about to be shown, and answers its rows then."""
        self._menu("AboutToShow", GLib.Variant("(i)", (0,)))
        self._event(0, "opened")
        return self.rows()

    def close_menu(self) -> None:
        """Tells the program that its menu is closed."""
        self._event(0, "closed")

    def rows(self) -> list[Row]:
        """The menu's rows as they are now, hidden ones left out."""
        layout = self._menu("GetLayout", GLib.Variant("(iias)", (0, -1, [])))[1]
        rows = [Row(child[0], child[1]) for child in layout[2]]
        return [row for row in rows if row.visible]

    def click(self, text: str) -> None:
        """Chooses the row with that text; raises when there is none or it is disabled."""
        rows = self.rows()
        row = next((row for row in rows if row.text == text), None)
        if row is None or not row.enabled:
            raise AssertionError(f"no row to click named {text!r} in {rows}")
        self._event(row.number, "clicked")

    def choose(self, text: str) -> None:
        """Opens the menu, chooses the row with that text and closes the menu, as a user does."""
        self.open_menu()
        self.click(text)
        self.close_menu()

    def _event(self, row: int, kind: str) -> None:
        self._menu("Event", GLib.Variant("(isvu)", (row, kind, GLib.Variant("i", 0), 0)))

    def _menu(self, method: str, arguments: GLib.Variant) -> tuple:
        return self._bus.call(self._name, self.get("Menu"), MENU, method, arguments)

    def _rows_changed(self, _path: str, arguments: tuple) -> None:
        for number, properties in arguments[0]:
            if "label" in properties:
                self.row_changes.append((number, properties["label"]))


def find(bus: Bus, pid: int) -> tuple[str, str] | None:
    """The bus name and object path of a process's status item, or none."""
    if not bus.owner(WATCHER):
        return None
    for item in bus.get(WATCHER, WATCHER_PATH, WATCHER, "RegisteredStatusNotifierItems"):
        name, slash, path = item.partition("/")
        if bus.pid_of(name) == pid:
            return name, slash + path if slash else "/StatusNotifierItem"
    return None
