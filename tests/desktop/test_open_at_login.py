"""Opening at login: the autostart entry, what the user did to it, and the notes."""

import shlex
import shutil
import subprocess
from pathlib import Path

import pytest

from harness import Desktop, program_path, wait_for, watch
from harness.waiting import PATIENCE

AGENT = "Library/LaunchAgents/com.local.velmora.plist"


@pytest.fixture
def plain() -> Desktop:
    with Desktop() as desktop:
        yield desktop


def entry(desktop) -> Path:
    return desktop.home / ".config/autostart/com.local.velmora.desktop"


def start_and_end(desktop, **options) -> None:
    program = desktop.run(**options)
    program.wait_for_orb()
    assert program.stop() == 0
    assert program.errors == ""


def value(desktop, key: str) -> str:
    lines = entry(desktop).read_text().splitlines()
    return next(line.partition("=")[2] for line in lines if line.startswith(f"{key}="))


def test_it_is_off_at_first_and_nothing_is_written(plain):
    start_and_end(plain)
    assert not entry(plain).parent.exists()


def test_switched_on_it_writes_an_entry_that_desktops_understand(plain):
    plain.settings.write(openAtLogin=True)
    start_and_end(plain)
    done = subprocess.run(["desktop-file-validate", entry(plain)], capture_output=True, text=True)
    assert done.returncode == 0 and done.stdout == "", done.stdout
    assert value(plain, "TryExec") == str(program_path())
    assert shlex.split(value(plain, "Exec")) == [str(program_path())]


def test_switched_off_it_removes_the_entry(plain):
    plain.settings.write(openAtLogin=True)
    start_and_end(plain)
    plain.settings.write(openAtLogin=False)
    start_and_end(plain)
    assert not entry(plain).exists()


@pytest.mark.parametrize("switch", ["Hidden=true", "X-GNOME-Autostart-enabled=false"])
def test_an_entry_that_the_user_switched_off_stays_off(plain, switch):
    plain.settings.write(openAtLogin=True)
    start_and_end(plain)
    text = entry(plain).read_text().replace("X-GNOME-Autostart-enabled=true\n", "")
    entry(plain).write_text(text + switch + "\n")
    start_and_end(plain)
    assert switch in entry(plain).read_text()
    assert plain.settings.read()["openAtLogin"] is True


def test_the_user_is_told_about_an_entry_that_is_switched_off(plain):
    entry(plain).parent.mkdir(parents=True)
    entry(plain).write_text("[Desktop Entry]\nType=Application\nName=Velmora\nHidden=true\n")
    plain.settings.write(openAtLogin=True)
    program = plain.run("--settings")
    wait_for(lambda: program.accessible.find(
        name="Allow Velmora in System Settings → General → Login Items."), 5, "the note")


def test_a_folder_that_cannot_be_written_is_told_and_tried_again_next_time(plain):
    entry(plain).parent.parent.mkdir(parents=True, exist_ok=True)
    entry(plain).parent.write_text("a file in the way")
    plain.settings.write(openAtLogin=True)
    program = plain.run("--settings")
    wait_for(lambda: program.accessible.find(
        name="Couldn't turn on open at login. Move Velmora into Applications and try again."), 5,
        "the note")
    assert program.stop() == 0
    assert (plain.home / AGENT).exists()
    entry(plain).parent.unlink()
    start_and_end(plain)
    assert entry(plain).exists()
    assert not (plain.home / AGENT).exists()


@pytest.mark.parametrize("name", ["a b", "quote\"s 'and' `ticks`", "dollar $HOME", "back\\slash",
                                  "per%cent", "is=equal", "ünïcode", "semi;colon&(x)"])
def test_the_entry_starts_the_program_from_any_path(plain, name):
    folder = plain.folder / name
    folder.mkdir()
    program = Path(shutil.copy(program_path(), folder))
    shutil.copy(program_path().parent / "chime.wav", folder)
    plain.settings.write(openAtLogin=True)
    start_and_end(plain, path=program)
    # The library that most desktops start their entries with.
    launcher = plain.processes.start("launcher", [
        "/usr/bin/python3", "-c",
        "import sys, gi\nfrom gi.repository import Gio\n"
        "entry = Gio.DesktopAppInfo.new_from_filename(sys.argv[1])\n"
        "assert entry, 'TryExec names no program'\nassert entry.launch([], None)\n",
        str(entry(plain))])
    assert launcher.wait(PATIENCE) == 0
    orb = wait_for(lambda: next((w for w in plain.x11.windows() if w.title == "Velmora"), None), 10,
                   "the orb of the program that was started by its entry")
    assert Path(f"/proc/{orb.pid}/exe").resolve() == program.resolve()
    assert plain.run().wait() == 0


def test_a_program_that_moved_repairs_its_entry(plain):
    plain.settings.write(openAtLogin=True)
    folder = plain.folder / "elsewhere"
    folder.mkdir()
    moved = Path(shutil.copy(program_path(), folder))
    shutil.copy(program_path().parent / "chime.wav", folder)
    start_and_end(plain)
    entry(plain).write_text(entry(plain).read_text() + "X-Mine=kept\n")
    start_and_end(plain, path=moved)
    assert value(plain, "TryExec") == str(moved)
    assert value(plain, "X-Mine") == "kept"


def test_the_switch_in_the_settings_turns_it_on_and_off(plain):
    program = plain.run("--settings")
    switch = wait_for(lambda: program.accessible.find(name="Open at login"), 5, "the switch")
    switch.act(switch.actions()[0])
    wait_for(lambda: entry(plain).exists(), 3, "the entry")
    watch(lambda: entry(plain).exists(), 0.5, "the entry")
    switch.act(switch.actions()[0])
    wait_for(lambda: not entry(plain).exists(), 3, "the entry removed")
