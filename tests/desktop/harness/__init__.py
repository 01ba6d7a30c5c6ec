"""Private desktops for testing Velmora as its users meet it."""

from .clock import Clock
from .desktop import Desktop
from .display_server import Head
from .program import Program, program_path
from .waiting import NotInTime, in_time, wait_for, watch
from .x11 import Rectangle

__all__ = ["Clock", "Desktop", "Head", "NotInTime", "Program", "Rectangle", "in_time", "program_path",
           "wait_for", "watch"]
