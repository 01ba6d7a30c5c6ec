"""Checks the .deb, installs it into a bare Debian 12, runs it there, installs it again and removes it.

Run it as root: /usr/bin/python3 packaging/test_package.py velmora_*.deb [--keep-root FOLDER]

The bare system is made by debootstrap with nothing but what Debian calls essential, and apt; what
the package needs comes as its dependencies or not at all. The screen is one of the desktop tests'
own. With --keep-root the bare system is kept in that folder, and copied from there the next time.
Debian's packages debootstrap and lintian have to be there.
"""

import argparse
import shutil
import subprocess
import sys
import tempfile
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

    def command(self, *words: str, settings: tuple[str, ...] = ()) -> list[str]:
        """The command line that runs these words in there, with the kernel's view of the processes."""
        return ["unshare", "--mount", "sh", "-c", 'mount -t proc proc "$0/proc" && exec chroot "$0" "$@"',
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


def _see_a_reminder(root: BareRoot, picture: Path) -> None:
    """Runs the installed program until its reminder is seen, and ends it the polite way."""
    with Desktop(sound="none", tray="none") as desktop:
        errors = desktop.folder / "velmora.stderr"
        with open(errors, "wb") as stream:
            process = desktop.processes.start(
                "velmora", root.command("velmora", "--preview",
                                        settings=(f"DISPLAY={desktop.display_server.name}",)), stderr=stream)

        def reminds() -> bool:
            squares = [window for window in desktop.x11.windows()
                       if window.override_redirect and window.pid == process.pid and window.place.width >= 48]
            return any(palette_worn(desktop.x11.pixels(window.place)) == "reminding" for window in squares)

        try:
            wait_for(reminds, 30, "the orb in its reminding palette")
        finally:
            desktop.screenshot(picture)
            print(errors.read_text(errors="replace"), end="")
        process.terminate()
        assert process.wait(10) == 0
        assert errors.read_text() == "", "nothing is said on standard error"


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
        root.run("apt-get", "purge", "--yes", "velmora")
        left = [name for name in files if (root.folder / name.lstrip("/")).exists()]
        assert not left, f"left behind: {left}"
        assert settings.read_bytes() == before, "the user's settings are the user's"
        print(f"removed, with all of its {len(files)} files; the settings stay")


if __name__ == "__main__":
    _main()
