"""Homes of every kind: the program starts, saves where it can, and stays the only copy."""

import shlex
from collections.abc import Iterator
from pathlib import Path

import pytest

from confinement import mounted, needs_root, seen_by
from harness import Desktop, Program, wait_for
from harness.settings import Settings

GIVES_WAY = "Velmora: already running — bringing it forward.\n"
LOCK = Path("Library/Application Support/Velmora/instance.lock")


@pytest.fixture
def plain() -> Iterator[Desktop]:
    with Desktop() as desktop:
        yield desktop


def pause(program: Program) -> None:
    program.wait_for_orb()
    program.item.open_menu()
    program.item.click("Pause Reminders")
    program.wait_for_status("Paused", 3)


def second_launch(desktop: Desktop, home: dict[str, str], *arguments: str,
                  path: Path | None = None) -> None:
    """Starts a second copy, which has to find the first one and to say so."""
    second = desktop.run(*arguments, environment=home, path=path)
    assert second.wait(20) == 0 and second.errors == GIVES_WAY


@pytest.mark.parametrize("name", ["with spaces in it", "quote\"s 'and' `ticks`", "line\nfeed",
                                  "dollar $HOME", "back\\slash", "ünïcödé 家 🏠", "-dash", "per%cent"])
def test_a_home_of_any_name_is_a_home(plain, name):
    home = plain.folder / name
    home.mkdir()
    environment = {"HOME": str(home), "XDG_CONFIG_HOME": str(home / ".config")}
    first = plain.run(environment=environment)
    pause(first)
    second_launch(plain, environment, "--settings")
    wait_for(lambda: len(first.windows()) == 2, 5, "the settings of the first copy")
    assert (home / LOCK).read_text() == f"{first.pid}\n"
    assert first.stop() == 0 and first.errors == ""
    assert Settings(home / ".config").read()["paused"] is True
    again = plain.run(environment=environment)
    again.wait_for_status("Paused", 5)
    assert again.stop() == 0


def user_of_the_database(desktop: Desktop, home: Path) -> str:
    """A command after which the users' database names that home for whoever asks."""
    users = desktop.folder / "passwd"
    users.write_text(f"root:x:0:0::{home}:/bin/sh\n")
    return f"mount --bind {shlex.quote(str(users))} /etc/passwd"


@needs_root
@pytest.mark.parametrize("variable", ["unset", "empty", "relative"])
def test_without_a_home_of_its_own_the_environment_is_that_of_the_database(plain, variable):
    home = plain.folder / "of the database"
    home.mkdir()
    setting = {"unset": "unset HOME", "empty": "export HOME=", "relative": "export HOME=some/where"}
    path = mounted(plain, user_of_the_database(plain, home), setting[variable], "unset XDG_CONFIG_HOME")
    first = plain.run(path=path)
    pause(first)
    second_launch(plain, {}, path=path)
    assert (home / LOCK).read_text() == f"{first.pid}\n"
    assert first.stop() == 0 and first.errors == ""
    assert Settings(home / ".config").read()["paused"] is True


@needs_root
@pytest.mark.parametrize("options", ["ro", "nr_inodes=1"], ids=["read-only", "full"])
def test_a_home_that_cannot_hold_the_lock_makes_it_give_way(plain, options):
    program = plain.run(path=mounted(plain, f"mount -t tmpfs -o {options} tmpfs {plain.home}"))
    assert program.wait(20) == 0 and program.errors == GIVES_WAY


@needs_root
def test_a_home_that_fills_up_later_costs_no_more_than_the_saves(plain):
    path = mounted(plain, f"mount -t tmpfs -o size=256k tmpfs {plain.home}")
    program = plain.run(path=path, environment={"XDG_CONFIG_HOME": str(plain.home / ".config")})
    program.wait_for_orb()
    home = seen_by(program.pid, plain.home)
    with (home / "filling").open("wb", buffering=0) as file, pytest.raises(OSError):
        while True:
            file.write(bytes(4096))
    pause(program)
    assert (home / LOCK).read_text() == f"{program.pid}\n"
    (home / "filling").unlink()
    program.item.open_menu()
    program.item.click("Resume Reminders")
    wait_for(lambda: Settings(home / ".config").read().get("paused") is False, 5, "the save")
    assert program.errors == "" and program.stop() == 0


@pytest.mark.parametrize("launches", [100])
def test_a_hundred_second_launches_during_a_reminder_leave_it_as_it_was(plain, launches):
    with plain.sound.listen() as ear:
        first = plain.run("--preview")
        first.wait_for_status("Velmora", 5)
        before = len(list(Path(f"/proc/{first.pid}/fd").iterdir()))
        asked = 0
        while asked < launches:
            # A few at a time, as an impatient hand would.
            batch = [plain.run() for _ in range(10)]
            asked += len(batch)
            for second in batch:
                assert second.wait(60) == 0 and second.errors == GIVES_WAY
        heard = [moment.when for sound in ear.sounds() for moment in sound]
    # Started over by each launch, the chime would have sounded all the while.
    assert heard and heard[-1] - heard[0] < 4
    first.wait_for_status("Next in", 40)
    assert len([w for w in plain.x11.windows() if w.title == "Velmora"]) == 1
    wait_for(lambda: len(list(Path(f"/proc/{first.pid}/fd").iterdir())) <= before, 20,
             "no more descriptors than before")
    assert first.errors == "" and first.stop() == 0
