"""What a running program holds: memory, descriptors, threads, and resources of the X server."""

from dataclasses import dataclass
from pathlib import Path

from Xlib.ext import res

from harness.cost import Cost
from harness.x11 import X11


@dataclass(frozen=True)
class Held:
    """Resident memory in KiB, open descriptors, threads, X resources, and bytes of X pixmaps."""

    resident: int
    descriptors: int
    threads: int
    resources: int
    pixmap_bytes: int

    @staticmethod
    def by(pid: int, x11: X11) -> "Held":
        """What the process holds now."""
        clients = _clients(pid, x11)
        process = Path(f"/proc/{pid}")
        return Held(
            Cost.of(pid).resident, len(list((process / "fd").iterdir())),
            len(list((process / "task").iterdir())),
            sum(kind.count for client in clients
                for kind in x11.display.res_query_client_resources(client).types),
            sum(x11.display.res_query_client_pixmap_bytes(client).bytes for client in clients))

    def __str__(self) -> str:
        return (f"{self.resident} KiB, {self.descriptors} descriptors, {self.threads} threads, "
                f"{self.resources} X resources, {self.pixmap_bytes} bytes of pixmaps")


def _clients(pid: int, x11: X11) -> list[int]:
    # A specification of client 0 asks for every client.
    answer = x11.display.res_query_client_ids([{"client": 0, "mask": res.LocalClientPIDMask}])
    return [each.spec.client for each in answer.ids if list(each.value) == [pid]]
