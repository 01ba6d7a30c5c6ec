"""Checks the .deb, installs it into a bare Debian 12, runs it there, upgrades it and removes it.

Run it as root: /usr/bin/python3 packaging/test_package.py velmora_*.deb [--keep-root FOLDER]

The bare system is made by debootstrap with nothing but what Debian calls essential, and apt; what
the package needs comes as its dependencies or not at all. The screen is one of the desktop tests'
own. The version to upgrade to is built from the sources beside this script, with nothing but a higher
number. With --keep-root the bare system is kept in that folder, and copied from there the next time.
Debian's packages debootstrap and lintian have to be there.
"""

import argparse
import re
import shutil
import subprocess
import sys
import tempfile
from contextlib import contextmanager
from pathlib import Path

_SOURCE = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(_SOURCE / "tests/desktop"))

from harness.desktop import Desktop  # noqa: E402
from harness.screenshots import palette_worn  # noqa: E402
from harness.waiting import wait_for  # noqa: E402

_ENVIRONMENT = ["env", "-i", "PATH=/usr/sbin:/usr/bin:/sbin:/bin", "HOME=/root", "LANG=C.UTF-8",
                "DEBIAN_FRONTEND=noninteractive"]


class BareRoot:
    """A bare Debian 12 in a folder."""

    def __init__(self, folder: Path, kept: Path | None):
        self.folder = folder
        if kept and (kept / "etc/debian_version").exists():
            subprocess.run(["cp", "-a", f"{kept}/.", str(folder)], check=True)
        else:
            subprocess.run(["debootstrap", "--variant=minbase", "bookworm", str(folder)], check=True,
                           stdout=subprocess.DEVNULL)
            if kept:
                subprocess.run(["cp", "-a", str(folder), str(kept)], check=True)
        shutil.copy("/etc/resolv.conf", folder / "etc/resolv.conf")

    def command(self, *words: str, settings: tuple[str, ...] = (), proc: bool = True) -> list[str]:
        """The command line that runs these words in there, with or without the kernel's view of the processes."""
        mount = 'mount -t proc proc "$0/proc" && ' if proc else ""
        return ["unshare", "--mount", "sh", "-c", f'{mount}exec chroot "$0" "$@"',
                str(self.folder), *_ENVIRONMENT, *settings, *words]

    def run(self, *words: str) -> str:
        """Runs these words in there, and answers what they say."""
        result = subprocess.run(self.command(*words), check=False, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if result.returncode:
            raise SystemExit(f"{' '.join(words)} ended with {result.returncode}:\n{result.stdout}")
        return result.stdout

    def files_of_package(self) -> list[str]:
        """What the package has put there, without folders."""
        return [name for name in self.run("dpkg", "--listfiles", "velmora").splitlines()
                if (self.folder / name.lstrip("/")).is_file()]


class Installed:
    """The installed program, running on a desktop."""

    def __init__(self, root: BareRoot, desktop: Desktop, *words: str, proc: bool = True):
        self.desktop = desktop
        self._errors = desktop.folder / "velmora.stderr"
        with open(self._errors, "wb") as stream:
            self.process = desktop.processes.start(
                "velmora", root.command(*words, settings=(f"DISPLAY={desktop.display_server.name}",), proc=proc),
                stderr=stream)

    def wait_for_look(self, palette: str) -> None:
        """Waits until the orb is seen in this palette."""
        def worn() -> bool:
            squares = [window for window in self.desktop.x11.windows() if window.override_redirect
                       and window.pid == self.process.pid and window.place.width >= 48]
            return any(palette_worn(self.desktop.x11.pixels(window.place)) == palette for window in squares)
        wait_for(worn, 30, f"the orb in its palette of {palette}")

    def stop(self) -> None:
        """Ends it the polite way, and sees that it had nothing to say."""
        self.process.terminate()
        assert self.process.wait(10) == 0
        assert self._errors.read_text() == "", "nothing is said on standard error"


@contextmanager
def _running(root: BareRoot, *words: str, proc: bool = True):
    with Desktop(sound="none", tray="none") as desktop:
        yield Installed(root, desktop, *words, proc=proc)


def _see_a_reminder(root: BareRoot, picture: Path) -> None:
    """Runs the installed program until its reminder is seen: as everywhere, and where it cannot see itself."""
    with _running(root, "velmora", "--preview") as program:
        try:
            program.wait_for_look("reminding")
        finally:
            program.desktop.screenshot(picture)
        program.stop()
    with _running(root, "velmora", "--preview", proc=False) as program:
        program.wait_for_look("reminding")
        program.stop()


def _build_next(folder: Path) -> tuple[Path, str]:
    """Builds the package once more, as the version after this one; answers it and its version."""
    sources = folder / "sources"
    files = subprocess.run(["git", "ls-files", "-z"], cwd=_SOURCE, check=True, text=True,
                           stdout=subprocess.PIPE).stdout.split("\0")
    for name in filter(None, files):
        (sources / name).parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(_SOURCE / name, sources / name)
    project = sources / "CMakeLists.txt"
    number = re.search(r"project\(Velmora VERSION ([0-9.]+)", project.read_text()).group(1)
    front, _, last = number.rpartition(".")
    following = f"{front}.{int(last) + 1}"
    project.write_text(project.read_text().replace(f"VERSION {number}", f"VERSION {following}", 1))
    for words in (["cmake", "--workflow", "--preset", "release"],
                  ["cpack", "--config", "build/release/CPackConfig.cmake", "-B", str(folder)]):
        subprocess.run(words, cwd=sources, check=True, stdout=subprocess.DEVNULL)
    return next(folder.glob("velmora_*.deb")), following


def _entry_at_login(root: BareRoot) -> dict[str, str]:
    """What the session is told to start: the keys of the autostart entry."""
    lines = (root.folder / "root/.config/autostart/com.local.velmora.desktop").read_text().splitlines()
    return dict(line.split("=", 1) for line in lines if "=" in line)


def _upgrade(root: BareRoot, settings: Path, package: Path, version: str) -> None:
    """Installs another version over the one that runs, and logs in again."""
    text = settings.read_text()
    for key, value in (("openAtLogin", "true"), ("intervalMinutes", "37"), ("paused", "true")):
        text, replaced = re.subn(rf"(?m)^{key} = .*$", f"{key} = {value}", text)
        assert replaced == 1, f"{key} is among the settings"
    settings.write_text(text)
    shutil.copy(package, root.folder / "next.deb")

    with _running(root, "velmora") as program:
        program.wait_for_look("paused")
        entry = _entry_at_login(root)
        root.run("apt-get", "install", "--yes", "./next.deb")
        assert program.process.poll() is None, "the one that runs goes on"
        assert root.run("velmora") == "Velmora: already running — bringing it forward.\n"
        program.stop()
    assert _entry_at_login(root) == entry, "the entry at login stays as it was"
    said = root.run("velmora", "--version")
    assert said == f"Velmora {version}\n", said

    kept = [line for line in settings.read_text().splitlines() if not line.startswith("heldRemaining")]
    with _running(root, "sh", "-c", f"exec {entry['Exec']}") as program:
        program.wait_for_look("paused")
        assert _entry_at_login(root) == entry, "the new one finds the entry right"
        program.stop()
    assert (root.folder / entry["TryExec"].lstrip("/")).is_file(), "the entry names the program"
    again = [line for line in settings.read_text().splitlines() if not line.startswith("heldRemaining")]
    assert again == kept and "intervalMinutes = 37" in kept, "the settings are kept"


def _main() -> None:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("package", type=Path)
    parser.add_argument("--keep-root", type=Path)
    parser.add_argument("--picture", type=Path, default=_SOURCE / "build/package-screenshot.png")
    chosen = parser.parse_args()
    subprocess.run(["lintian", "--allow-root", "--fail-on", "error", str(chosen.package)], check=True)
    with tempfile.TemporaryDirectory(prefix="vr-", dir="/tmp") as folder:
        root = BareRoot(Path(folder), chosen.keep_root)
        shutil.copy(chosen.package, root.folder / "velmora.deb")
        root.run("apt-get", "update")
        root.run("apt-get", "install", "--yes", "--no-install-recommends", "./velmora.deb")
        print("installed:", root.run("velmora", "--version").strip())
        files = root.files_of_package()
        _see_a_reminder(root, chosen.picture)
        print("seen in a reminder:", chosen.picture)

        settings = root.folder / "root/.config/com.local.velmora/defaults.toml"
        before = settings.read_bytes()
        root.run("apt-get", "install", "--yes", "--reinstall", "./velmora.deb")
        assert settings.read_bytes() == before, "installing again keeps the settings"
        with tempfile.TemporaryDirectory(prefix="vn-", dir="/tmp") as build:
            package, version = _build_next(Path(build))
            _upgrade(root, settings, package, version)
        print(f"upgraded to {version} while it ran; settings and the entry at login are kept")
        before = settings.read_bytes()
        files = root.files_of_package()
        root.run("apt-get", "purge", "--yes", "velmora")
        left = [name for name in files if (root.folder / name.lstrip("/")).exists()]
        assert not left, f"left behind: {left}"
        assert settings.read_bytes() == before, "the user's settings are the user's"
        print(f"removed, with all of its {len(files)} files; the settings stay")


if __name__ == "__main__":
    _main()
