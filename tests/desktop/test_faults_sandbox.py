"""How little the program needs, and how little it offers."""

import os
import shutil
import subprocess
from collections.abc import Iterator
from pathlib import Path

import pytest

from confinement import mounted, needs_root, seen_by
from harness import Desktop, wait_for

_UNIT = Path(__file__).resolve().parents[2] / "packaging/velmora.service"
# The flag of a listening socket, and the state of a listening connection.
_ACCEPTS, _LISTENS = 0x10000, "0A"


@pytest.fixture
def plain() -> Iterator[Desktop]:
    with Desktop() as desktop:
        yield desktop


def sockets(pid: int) -> set[str]:
    """The numbers of the sockets that the process has open."""
    found = set()
    for entry in Path(f"/proc/{pid}/fd").iterdir():
        try:
            target = os.readlink(entry)
        except FileNotFoundError:
            continue
        if target.startswith("socket:["):
            found.add(target[len("socket:["):-1])
    return found


def listening(pid: int) -> list[str]:
    """Those of its sockets to which anybody could connect."""
    mine, found = sockets(pid), []
    for line in Path(f"/proc/{pid}/net/unix").read_text().splitlines()[1:]:
        fields = line.split()
        if fields[6] in mine and int(fields[3], 16) & _ACCEPTS:
            found.append(line)
    for kind in ("tcp", "tcp6", "udp", "udp6", "raw", "raw6"):
        table = Path(f"/proc/{pid}/net/{kind}")
        if table.exists():
            # None of these is any business of the program, listening or not.
            found += [line for line in table.read_text().splitlines()[1:] if line.split()[9] in mine]
    return found


def test_nobody_can_connect_to_it(plain):
    program = plain.run("--settings", "--preview")
    program.wait_for_status("Velmora", 5)
    wait_for(lambda: len(program.windows()) == 2, 5, "the settings")
    assert sockets(program.pid)
    # The server shows that what is looked for would be found.
    assert listening(plain.display_server.process.pid)
    assert listening(program.pid) == []


@needs_root
def test_it_runs_without_rights_network_or_a_system_to_write_to(plain):
    # What the example for systemd takes away, as far as it can be taken away without systemd.
    path = mounted(
        plain, "mount --make-rprivate /", f"mount --bind {plain.folder} {plain.folder}",
        "mount -o remount,bind,ro /", alone="--mount --net",
        through="setpriv --no-new-privs --bounding-set=-all --inh-caps=-all")
    program = plain.run("--preview", path=path)
    program.wait_for_status("Velmora", 5)
    with pytest.raises(OSError):
        seen_by(program.pid, Path("/usr/written")).touch()
    status = Path(f"/proc/{program.pid}/status").read_text()
    assert "NoNewPrivs:\t1\n" in status and "CapEff:\t0000000000000000\n" in status
    program.item.open_menu()
    program.item.click("Pause Reminders")
    program.wait_for_status("Paused", 3)
    wait_for(lambda: plain.settings.read().get("paused") is True, 5, "the save")
    assert program.errors == "" and program.stop() == 0


@pytest.mark.skipif(not shutil.which("systemd-analyze"), reason="there is no systemd to ask")
def test_the_example_for_systemd_is_well_formed_and_takes_away_what_it_says(plain):
    unit = plain.folder / "velmora.service"
    # The program need not be installed for the example to be looked at.
    unit.write_text(_UNIT.read_text().replace("ExecStart=velmora", "ExecStart=/bin/true"))
    judged = subprocess.run(["systemd-analyze", "verify", "--user", "--man=no", str(unit)],
                            capture_output=True, text=True, timeout=60, env=plain.environment)
    assert judged.returncode == 0 and "velmora.service" not in judged.stderr, judged.stderr
    exposure = subprocess.run(
        ["systemd-analyze", "security", "--user", "--offline=yes", "--threshold=25", "--no-pager", str(unit)],
        capture_output=True, text=True, timeout=60, env=plain.environment)
    assert exposure.returncode == 0, exposure.stdout[-300:]
