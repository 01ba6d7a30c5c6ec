"""The settings file, fault by fault, under the running program."""

import os
import random
import stat
import subprocess
import tomllib
from collections.abc import Iterator
from pathlib import Path

import pytest

from confinement import mortal, mounted, needs_root, seen_by
from harness import Desktop, Program, wait_for, watch

KEYS = {"intervalMinutes", "startMinutes", "endMinutes", "allDay", "soundEnabled", "soundVolume",
        "paused", "openAtLogin", "widgetSize", "widgetOriginX", "widgetOriginY", "hasSavedOrigin",
        "heldRemaining"}


@pytest.fixture
def plain() -> Iterator[Desktop]:
    with Desktop() as desktop:
        yield desktop


def press(program: Program, pausing: bool) -> None:
    """Chooses the menu's row, whose text is decided when the menu opens."""
    program.item.open_menu()
    program.item.click("Pause Reminders" if pausing else "Resume Reminders")
    program.item.close_menu()


def toggle(program: Program) -> bool:
    """Pauses or resumes, and answers whether it is paused now."""
    pausing = program.status_line != "Paused"
    press(program, pausing)
    program.wait_for_status("Paused" if pausing else "Next in", 3)
    return pausing


def toggle_and_find(program: Program, path: Path) -> None:
    """Pauses or resumes, and waits until the file tells of it."""
    paused = toggle(program)
    wait_for(lambda: stored(path).get("paused") is paused, 3, f"{path} with paused = {paused}")


def stored(path: Path) -> dict:
    """What a person's editor would find there; nothing where there is no such text."""
    try:
        if not path.is_file():
            return {}
        return tomllib.loads(path.read_text())
    except (OSError, UnicodeDecodeError, tomllib.TOMLDecodeError):
        return {}


def aside(path: Path) -> list[Path]:
    """What was set aside, oldest first."""
    return sorted(path.parent.glob(f"{path.name}.unreadable-*"), 
                  key=lambda each: int(each.name.rpartition("-")[2]))


def killed_while_saving(desktop: Desktop, chance: random.Random, paused: bool) -> bool:
    """Kills the program at some instant around a save, and answers what the file says then."""
    program = desktop.run()
    program.wait_for_status("Paused" if paused else "Next in", 5)
    program.item.open_menu()
    program.item.click("Resume Reminders" if paused else "Pause Reminders")
    # The instant of the kill is the experiment: a save takes some milliseconds from here.
    instant = chance.uniform(0, 0.02)
    with pytest.raises(subprocess.TimeoutExpired):
        program.wait(instant)
    program.kill()
    text = desktop.settings.path.read_text()
    values = tomllib.loads(text)
    assert set(values) == KEYS and values["intervalMinutes"] == 45, f"after {instant} s: {text}"
    assert not aside(desktop.settings.path)
    assert len(list(desktop.settings.path.parent.iterdir())) <= 2
    return values["paused"]


@pytest.mark.parametrize("kills", [20, pytest.param(500, marks=pytest.mark.long)])
def test_killed_while_saving_it_leaves_the_values_before_or_after(plain, kills):
    seed = random.randrange(2**32)
    chance = random.Random(seed)
    plain.settings.write(intervalMinutes=45)
    program = plain.run()
    program.wait_for_orb()
    assert program.stop() == 0
    paused, seen = False, set()
    for number in range(kills):
        after = killed_while_saving(plain, chance, paused)
        seen.add(after == paused)
        paused = after
    print(f"{kills} kills, seed {seed}; found: {seen}")
    # Had none of many kills come before a save, or none after one, they would show nothing. Few of them
    # may all come after one, on a machine that is too busy to be quick at killing.
    assert seen == {True, False} or kills < 100


@needs_root
def test_on_a_full_disk_it_goes_on_and_saves_when_there_is_room(plain):
    folder = plain.settings.path.parent
    folder.mkdir(parents=True)
    program = plain.run(path=mounted(plain, f"mount -t tmpfs -o size=64k,mode=700 tmpfs {folder}"))
    program.wait_for_orb()
    path = seen_by(program.pid, plain.settings.path)
    toggle_and_find(program, path)
    before = path.read_text()
    filling = path.parent / "filling"
    with filling.open("wb", buffering=0) as file, pytest.raises(OSError):
        while True:
            file.write(bytes(4096))
    # An even number, so that the last toggle says something else than the file.
    for _ in range(4):
        toggle(program)
    # Long enough for a save to be tried, and to fail.
    watch(lambda: path.read_text() == before and not aside(path), 2.5, "the file as it was")
    assert sorted(each.name for each in path.parent.iterdir()) == ["defaults.toml", "filling"]
    filling.unlink()
    toggle_and_find(program, path)
    assert program.errors == "" and program.stop() == 0


def test_in_a_folder_that_may_only_be_read_it_goes_on_and_saves_when_it_may(plain):
    program = plain.run(path=mortal(plain))
    program.wait_for_orb()
    path = plain.settings.path
    toggle_and_find(program, path)
    before = path.read_text()
    path.parent.chmod(0o500)
    # An even number, so that the last toggle says something else than the file.
    for _ in range(4):
        toggle(program)
    # Long enough for a save to be tried, and to fail.
    watch(lambda: path.read_text() == before, 2.5, "the file as it was")
    path.parent.chmod(0o700)
    toggle_and_find(program, path)
    assert not aside(path)
    assert program.errors == "" and program.stop() == 0


def test_a_folder_that_is_removed_is_made_again(plain):
    program = plain.run()
    program.wait_for_orb()
    path = plain.settings.path
    for number in range(3):
        toggle_and_find(program, path)
        # At one stroke, because a save may be under way.
        path.parent.rename(plain.folder / f"removed-{number}")
    toggle_and_find(program, path)
    assert set(stored(path)) == KEYS
    assert program.stop() == 0


def moved(made: Path, path: Path) -> bool:
    """Puts it in the file's place at one stroke; fails where a folder would have to replace a save."""
    if made.is_dir():
        path.unlink(missing_ok=True)
    try:
        made.rename(path)
    except NotADirectoryError:
        return False
    return True


def put_folder(path: Path) -> None:
    path.mkdir()
    (path / "something").write_text("of somebody's")


def put_link_to_nothing(path: Path) -> None:
    path.symlink_to(path.parent / "nothing")


def put_link_to_noise(path: Path) -> None:
    noise = path.parent / "noise"
    noise.write_bytes(os.urandom(1000))
    path.symlink_to(noise)


def put_noise(path: Path) -> None:
    with path.open("wb") as file:
        for _ in range(100):
            file.write(os.urandom(1 << 20))


def put_pipe(path: Path) -> None:
    os.mkfifo(path)


@pytest.mark.parametrize("running", [True, False], ids=["while it runs", "before it starts"])
@pytest.mark.parametrize("put", [put_folder, put_link_to_nothing, put_noise, put_pipe])
def test_what_stands_in_the_files_place_is_kept_aside(plain, put, running):
    path = plain.settings.path
    if running:
        program = plain.run()
        program.wait_for_orb()
        toggle_and_find(program, path)
    else:
        path.parent.mkdir(parents=True)
    made = path.parent / "made"
    put(made)
    before = made.lstat()
    wait_for(lambda: moved(made, path), 3, "the settings file out of the way")
    if not running:
        program = plain.run()
        program.wait_for_orb()
        assert path.lstat().st_ino == before.st_ino
    toggle_and_find(program, path)
    assert path.is_file() and not path.is_symlink() and set(stored(path)) == KEYS
    kept = aside(path)
    assert [(each.lstat().st_ino, stat.S_IFMT(each.lstat().st_mode), each.lstat().st_size)
            for each in kept] == [(before.st_ino, stat.S_IFMT(before.st_mode), before.st_size)]
    assert program.errors == "" and program.stop() == 0


def test_the_users_own_link_to_noise_stays_and_the_noise_is_kept_aside(plain):
    path = plain.settings.path
    path.parent.mkdir(parents=True)
    put_link_to_noise(path)
    noise = (path.parent / "noise").read_bytes()
    program = plain.run()
    program.wait_for_orb()
    toggle_and_find(program, path)
    assert path.is_symlink() and set(stored(path)) == KEYS
    assert [each.read_bytes() for each in aside(path.parent / "noise")] == [noise]
    assert program.stop() == 0


@pytest.mark.parametrize("step", [40, pytest.param(1, marks=pytest.mark.long)])
def test_a_file_cut_at_any_byte_is_read_or_kept(plain, step):
    path = plain.settings.path
    program = plain.run()
    program.wait_for_orb()
    toggle_and_find(program, path)
    assert program.stop() == 0
    whole = path.read_bytes()
    kept = 0
    for length in range(0, len(whole), step):
        path.write_bytes(whole[:length])
        program = plain.run()
        program.wait_for_orb()
        assert program.stop() == 0 and program.errors == ""
        assert set(stored(path)) == KEYS, f"cut at {length}"
        found = aside(path)
        if len(found) > kept:
            assert found[-1].read_bytes() == whole[:length]
            kept = len(found)
        else:
            tomllib.loads(whole[:length].decode())
    print(f"cut at {len(range(0, len(whole), step))} of {len(whole)} bytes; {kept} kept aside")
    assert kept > 0


def test_a_file_whose_permissions_were_taken_away_is_kept_aside(plain):
    path = plain.settings.path
    plain.settings.write(intervalMinutes=45)
    path.chmod(0)
    program = plain.run(path=mortal(plain))
    program.wait_for_orb()
    toggle_and_find(program, path)
    assert stored(path)["intervalMinutes"] == 15
    kept = aside(path)
    assert [each.stat().st_mode & 0o777 for each in kept] == [0]
    kept[0].chmod(0o600)
    assert stored(kept[0]) == {"intervalMinutes": 45}
    assert program.stop() == 0


def test_two_writers_leave_a_whole_file_at_every_instant(plain):
    # Two copies that share their configuration, and each have a home of their own.
    second_home = plain.folder / "second home"
    second_home.mkdir()
    first, second = plain.run(), plain.run(environment={"HOME": str(second_home)})
    for program in (first, second):
        program.wait_for_orb()
        program.item
    path = plain.settings.path
    toggle_and_find(first, path)
    for _ in range(20):
        for program in (first, second):
            toggle(program)
            # For as long as a save may be put off, as often as can be.
            watch(lambda: set(stored(path)) == KEYS, 0.3, "a whole file", every=0.0005)
    toggle_and_find(second, path)
    assert not aside(path)
    assert first.stop() == 0 and second.stop() == 0
    assert set(stored(path)) == KEYS
    assert [each.name for each in path.parent.iterdir()] == [path.name]


def test_file_and_folder_are_the_users_alone(plain):
    program = plain.run()
    program.wait_for_orb()
    path = plain.settings.path
    toggle_and_find(program, path)
    assert path.stat().st_mode & 0o7777 == 0o600
    assert path.parent.stat().st_mode & 0o7777 == 0o700
    lock = plain.home / "Library/Application Support/Velmora/instance.lock"
    assert lock.stat().st_mode & 0o7777 == 0o644
    assert program.stop() == 0
