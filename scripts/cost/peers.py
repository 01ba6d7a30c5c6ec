"""Other break reminders, as Debian has them, doing nothing."""

import shutil
import time
from collections.abc import Iterator

from harness.desktop import Desktop

from windows import Meter, Used, family

PEERS = ("workrave", "safeeyes", "rsibreak")
_COMING_UP = 12.0


def measure_peers(desktop: Desktop, meter: Meter) -> Iterator[tuple[str, Used | None]]:
    """Each peer with what it used, or with nothing where it is not installed or did not stay."""
    for name in PEERS:
        if not shutil.which(name):
            yield name, None
            continue
        process = desktop.processes.start(name, [name])
        time.sleep(_COMING_UP)
        stays = process.poll() is None
        yield name, meter.measure(family(process.pid), seconds=5) if stays else None
        desktop.processes.end(process)
