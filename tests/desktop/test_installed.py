"""The program installed into a prefix of the user's own, and run from there."""

import os
import shutil
import subprocess
from pathlib import Path

import pytest
from gi.repository import GLib

from harness.desktop import Desktop
from harness.program import Program, program_path
from harness.waiting import wait_for

_ENTRY = "share/applications/com.local.velmora.desktop"


def _install(prefix: Path) -> Path:
    """Installs what has been built and answers the program's path there."""
    build = program_path().parent
    subprocess.run(["cmake", "--install", str(build), "--prefix", str(prefix)], check=True,
                   stdout=subprocess.DEVNULL)
    return prefix / "bin/velmora"


def _values(entry: Path) -> dict[str, str]:
    """The keys of an entry's first group."""
    group = entry.read_text().split("\n\n[")[0]
    return dict(line.split("=", 1) for line in group.splitlines() if "=" in line)


@pytest.fixture
def desktop():
    with Desktop() as brought_up:
        yield brought_up


def _environment(desktop: Desktop, language: str) -> dict[str, str]:
    data = desktop.home / ".local/share"
    return {"LANGUAGE": language, "XDG_DATA_DIRS": f"{data}:/usr/local/share:/usr/share"}


def test_everything_that_comes_with_the_program_is_in_the_prefix(desktop):
    prefix = desktop.home / ".local"
    _install(prefix)
    icons = [f"{size}x{size}/apps/com.local.velmora.png" for size in (16, 22, 24, 32, 48, 64, 128, 256, 512)]
    icons += ["scalable/apps/com.local.velmora.svg", "symbolic/apps/com.local.velmora-symbolic.svg"]
    for file in [f"share/icons/hicolor/{icon}" for icon in icons] + [
            "bin/velmora", "share/velmora/chime.wav", "share/velmora/translations/velmora_de.qm", _ENTRY,
            "share/metainfo/com.local.velmora.metainfo.xml", "share/man/man1/velmora.1.gz",
            "share/bash-completion/completions/velmora", "share/zsh/vendor-completions/_velmora",
            "share/fish/vendor_completions.d/velmora.fish", "share/doc/velmora/copyright"]:
        assert (prefix / file).is_file(), file
    metadata = prefix / "share/metainfo/com.local.velmora.metainfo.xml"
    subprocess.run(["appstreamcli", "validate", "--no-net", str(metadata)], check=True)


@pytest.mark.parametrize("folder", [".local", "my programs/50 % \"off\" $HOME"])
def test_the_entry_starts_the_installed_program(desktop, folder):
    program = _install(desktop.home / folder)
    entry = program.parent.parent / _ENTRY
    subprocess.run(["desktop-file-validate", str(entry)], check=True)
    # The entry's own escapes, then its quoting, then its codes.
    _, command = GLib.shell_parse_argv(_values(entry)["Exec"].replace("\\\\", "\\"))
    assert [part.replace("%%", "%") for part in command] == [str(program)]


def test_it_runs_from_there_in_the_users_language_with_its_sound(desktop):
    program = Program(desktop, "--preview", environment=_environment(desktop, "de"),
                      path=_install(desktop.home / ".local"))
    program.wait_for_status("Velmora", 15)
    assert program.item.rows()[-1].text == "Velmora beenden"
    program.item.click("Erinnerungen pausieren")
    program.wait_for_status("Pausiert", 10)
    assert program.errors == ""
    assert program.stop() == 0


def test_the_desktop_finds_name_and_icon_of_the_settings_window(desktop):
    prefix = desktop.home / ".local"
    program = Program(desktop, "--settings", environment=_environment(desktop, "en"), path=_install(prefix))
    entry = _values(prefix / _ENTRY)
    window = wait_for(lambda: next((window for window in program.windows() if window.title.startswith("Velmora")
                                    and not window.override_redirect), None), 10, "the settings window")
    classes = bytes(desktop.x11.property(window.id, "WM_CLASS")).decode().split("\0")
    assert entry["StartupWMClass"] in classes
    assert entry["Icon"] + ".desktop" == (prefix / _ENTRY).name
    sizes = _icon_sizes(list(desktop.x11.property(window.id, "_NET_WM_ICON")))
    assert {16, 32, 48, 64, 128} <= set(sizes)


def _icon_sizes(values: list[int]) -> list[int]:
    sizes = []
    while values:
        sizes.append(values[0])
        values = values[2 + values[0] * values[1]:]
    return sizes


def test_opening_at_login_follows_the_program_to_its_new_place_and_keeps_the_settings(desktop):
    desktop.settings.write(openAtLogin=True, intervalMinutes=37)
    first = Program(desktop, path=_install(desktop.home / "first"))
    autostart = desktop.home / ".config/autostart/com.local.velmora.desktop"
    wait_for(lambda: autostart.is_file(), 10, "the autostart entry")
    assert _values(autostart)["TryExec"] == str(desktop.home / "first/bin/velmora")
    first.wait_for_orb()
    assert first.stop() == 0

    # The new version goes elsewhere, and the old one is gone.
    second_path = _install(desktop.home / "second")
    shutil.rmtree(desktop.home / "first")
    second = Program(desktop, path=second_path)
    wait_for(lambda: _values(autostart)["TryExec"] == str(second_path), 10, "the entry of the new program")
    second.wait_for_orb()
    assert second.settings.read()["intervalMinutes"] == 37
    assert os.access(second_path, os.X_OK)
    assert second.stop() == 0
