"""Running the program where a part of the world around it has been taken away."""

import os
import shlex
import subprocess
from pathlib import Path

import pytest

from harness import Desktop, program_path


def _may_mount() -> bool:
    # Root in a container may be denied it.
    tried = ["unshare", "--mount", "--net", "sh", "-ec", "mount --make-rprivate /; mount -t tmpfs tmpfs /mnt"]
    return os.geteuid() == 0 and subprocess.run(tried, capture_output=True, check=False).returncode == 0


needs_root = pytest.mark.skipif(not _may_mount(), reason="only a root that may mount can take that away")


def mounted(desktop: Desktop, *commands: str, alone: str = "--mount", through: str = "") -> Path:
    """A program that first runs these commands among mounts of its own, then becomes ours.

    What is mounted is seen from outside below `seen_by`. `alone` names what else it has to itself,
    and `through` a program that starts ours.
    """
    return _script(desktop, "mounted", f"exec unshare {alone} sh -ec " + shlex.quote(
        "\n".join([*commands, f'exec {through} {_program()} "$@"'])) + ' velmora "$@"')


def mortal(desktop: Desktop) -> Path:
    """The program bound by the permissions of files, also where root runs it."""
    alone = "setpriv --bounding-set=-dac_override,-dac_read_search " if os.geteuid() == 0 else ""
    return _script(desktop, "mortal", f'exec {alone}{_program()} "$@"')


def seen_by(pid: int, path: Path) -> Path:
    """A path as the process sees it, among its own mounts."""
    return Path(f"/proc/{pid}/root{path}")


def _script(desktop: Desktop, name: str, body: str) -> Path:
    script = desktop.folder / f"{name}-{desktop.count(name)}"
    script.write_text(f"#!/bin/sh\n{body}\n")
    script.chmod(0o755)
    return script


def _program() -> str:
    return shlex.quote(str(program_path()))
