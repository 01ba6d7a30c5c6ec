"""A view of the X server: its windows, their properties and its pixels."""

import contextlib
from dataclasses import dataclass

import numpy
from Xlib import X, Xatom, display, error
from Xlib.ext import shape
from Xlib.protocol import display as protocol
from Xlib.protocol import event


@dataclass(frozen=True)
class Rectangle:
    """Device pixels from the top-left corner of the desktop, y growing downwards."""

    x: int
    y: int
    width: int
    height: int

    @property
    def centre(self) -> tuple[int, int]:
        return self.x + self.width // 2, self.y + self.height // 2


@dataclass(frozen=True)
class Window:
    """A window as it was when it was looked up."""

    id: int
    title: str
    pid: int | None
    place: Rectangle
    override_redirect: bool


def open_display(name: str) -> display.Display:
    """A connection to an X server. The library keeps what it learns of a server's extensions for all
    connections together; here each keeps its own, since two servers need not number them alike."""
    kind = protocol.Display
    kind.extension_major_opcodes = {}
    kind.error_classes = error.xerror_class.copy()
    kind.event_classes = event.event_class.copy()
    opened = display.Display(name)
    opened.display.extension_major_opcodes = kind.extension_major_opcodes
    opened.display.error_classes = kind.error_classes
    opened.display.event_classes = kind.event_classes
    return opened


class X11:
    """This process's own connection to the desktop's X server."""

    def __init__(self, name: str):
        self.display = open_display(name)
        self.root = self.display.screen().root

    def close(self) -> None:
        """Leaves the X server, if it is still there."""
        with contextlib.suppress(error.ConnectionClosedError):
            self.display.close()

    def selection_owner(self, name: str) -> int:
        """The window that owns a selection, 0 when nobody does."""
        owner = self.display.get_selection_owner(self.display.intern_atom(name))
        return owner if isinstance(owner, int) else owner.id

    def property(self, window: int, name: str):
        """The values of a window's property, or none."""
        resource = self.display.create_resource_object("window", window)
        try:
            found = resource.get_full_property(self.display.intern_atom(name), X.AnyPropertyType)
        except error.BadWindow:
            return None
        return found.value if found else None

    def paint_background(self, colour: tuple[int, int, int]) -> None:
        """Gives the bare desktop a colour, red, green and blue of 0..255, while this connection lasts."""
        pixmap = self.root.create_pixmap(1, 1, self.display.screen().root_depth)
        red, green, blue = colour
        pixmap.fill_rectangle(pixmap.create_gc(foreground=red << 16 | green << 8 | blue), 0, 0, 1, 1)
        # Compositors paint what these properties name.
        for name in ("_XROOTPMAP_ID", "ESETROOT_PMAP_ID"):
            self.root.change_property(self.display.intern_atom(name), Xatom.PIXMAP, 32, [pixmap.id])
        self.root.change_attributes(background_pixmap=pixmap)
        self.root.clear_area()
        self.display.sync()

    def work_area(self) -> Rectangle:
        """The part of the desktop that no panel covers."""
        values = self.property(self.root.id, "_NET_WORKAREA")
        return Rectangle(*(int(value) for value in values[:4]))

    def size(self) -> tuple[int, int]:
        """Width and height of the whole desktop."""
        geometry = self.root.get_geometry()
        return geometry.width, geometry.height

    def windows(self) -> list[Window]:
        """Every visible window with a title, a process or no manager, bottom to top."""
        found: list[Window] = []
        self._collect(self.root, found)
        return found

    def input_region(self, window: int) -> list[Rectangle]:
        """The parts of a window that take the pointer, relative to its own corner."""
        return self._region(window, shape.SK.Input)

    def bounding_region(self, window: int) -> list[Rectangle]:
        """The parts of a window that are on the screen, relative to its own corner."""
        return self._region(window, shape.SK.Bounding)

    def order(self, first: Window, second: Window) -> int:
        """More than 0 when the first lies above the second, less than 0 when below."""
        stack = [window.id for window in self.windows()]
        return stack.index(first.id) - stack.index(second.id)

    def pointer(self) -> tuple[int, int]:
        """Where the pointer is."""
        answer = self.root.query_pointer()
        return answer.root_x, answer.root_y

    def focus(self) -> int:
        """The window that has the keyboard."""
        focus = self.display.get_input_focus().focus
        return focus if isinstance(focus, int) else focus.id

    def pixels(self, place: Rectangle | None = None) -> numpy.ndarray:
        """What is seen there: rows × columns × (red, green, blue), 0..255; parts off screen black."""
        width, height = self.size()
        place = place or Rectangle(0, 0, width, height)
        left, top = max(place.x, 0), max(place.y, 0)
        right, bottom = min(place.x + place.width, width), min(place.y + place.height, height)
        seen = numpy.zeros((place.height, place.width, 3), numpy.uint8)
        if right > left and bottom > top:
            image = self.root.get_image(left, top, right - left, bottom - top, X.ZPixmap, 0xFFFFFFFF)
            raw = numpy.frombuffer(image.data, numpy.uint8).reshape(bottom - top, right - left, 4)
            seen[top - place.y:bottom - place.y, left - place.x:right - place.x] = raw[:, :, 2::-1]
        return seen

    def _region(self, window: int, kind: int) -> list[Rectangle]:
        answer = self.display.create_resource_object("window", window).shape_get_rectangles(kind)
        return [Rectangle(r.x, r.y, r.width, r.height) for r in answer.rectangles]

    def _collect(self, parent, found: list[Window]) -> None:
        try:
            children = parent.query_tree().children
        except error.BadWindow:
            return
        for child in children:
            try:
                attributes = child.get_attributes()
                if attributes.map_state != X.IsViewable:
                    continue
                window = self._describe(child, attributes)
            except (error.BadWindow, error.BadDrawable):
                continue
            if window.title or window.pid or window.override_redirect:
                found.append(window)
            self._collect(child, found)

    def _describe(self, window, attributes) -> Window:
        geometry = window.get_geometry()
        corner = window.translate_coords(self.root, 0, 0)
        pid = self.property(window.id, "_NET_WM_PID")
        title = self.property(window.id, "_NET_WM_NAME") or self.property(window.id, "WM_NAME")
        return Window(
            window.id, title.decode(errors="replace") if isinstance(title, bytes) else title or "",
            int(pid[0]) if pid is not None and len(pid) else None,
            Rectangle(-corner.x, -corner.y, geometry.width, geometry.height),
            bool(attributes.override_redirect))
