"""A window with a letter in it that prints a line for everything that reaches it.

Arguments: title, and x, y, width, height unless it is to cover the whole screen.
"""

import sys

import gi

gi.require_version("Gtk", "3.0")
gi.require_version("Gdk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402

_LINES = (
    "Dear Ada,",
    "thank you for the drawings. The garden is green again, and the",
    "bench under the lime tree has dried. Come and sit there with us",
    "when the term is over; the kettle is always on.",
    "Yours, Tomas",
)


def _main() -> None:
    title, place = sys.argv[1], [int(word) for word in sys.argv[2:6]]
    window = Gtk.Window(title=title)
    if place:
        window.set_default_size(*place[2:])
        window.move(*place[:2])
    else:
        window.fullscreen()
    area = Gtk.EventBox()
    area.add(Gtk.Label(label="\n\n".join(_LINES), xalign=0, yalign=0, margin=24))
    area.add_events(Gdk.EventMask.BUTTON_PRESS_MASK | Gdk.EventMask.SCROLL_MASK
                    | Gdk.EventMask.POINTER_MOTION_MASK)
    area.connect("button-press-event",
                 lambda _, event: print("press", event.button, int(event.x), int(event.y)))
    area.connect("scroll-event", lambda *_: print("scroll"))
    area.connect("motion-notify-event", lambda *_: print("motion"))
    window.connect("focus-in-event", lambda *_: print("focus"))
    window.connect("focus-out-event", lambda *_: print("focus lost"))
    window.connect("key-press-event", lambda _, event: print("key", Gdk.keyval_name(event.keyval)))
    window.connect("destroy", Gtk.main_quit)
    window.add(area)
    window.show_all()
    window.get_frame_clock().connect("after-paint", _say_drawn())
    Gtk.main()


def _say_drawn():
    said = []

    def after_paint(_clock) -> None:
        if not said:
            said.append(True)
            print("drawn")

    return after_paint


_main()
