"""The chime: heard as loud as it should be, once, whatever the sound server does."""

import shutil
import signal
import subprocess
import time
from pathlib import Path

import pytest

from harness import Desktop, program_path, wait_for, watch

MISSING = "Velmora: chime.wav is missing from the app.\n"
# Seconds that an answer may take on a busy machine, and far fewer than a sound server's time-outs.
PROMPT = 5.0
CHIME_SECONDS = 1.8
CHIME = Path(__file__).resolve().parents[2] / "resources" / "chime.wav"


@pytest.fixture
def plain() -> Desktop:
    with Desktop() as desktop:
        yield desktop


def chimed(ear, number: int, bound: float = 6.0) -> None:
    wait_for(lambda: len(ear.sounds()) >= number, bound, f"chime {number}")


def faded(ear) -> bool:
    return ear.peak(since=time.monotonic() - 0.5) < -60


def answers_at_once(program) -> None:
    """The main thread does its work: the menu answers, and not when something else has."""
    start = time.monotonic()
    program.item.open_menu()
    program.item.close_menu()
    assert time.monotonic() - start < PROMPT


@pytest.fixture
def own_copy(plain) -> Path:
    """The program in a folder of its own, with nothing beside it."""
    folder = plain.folder / "bin"
    folder.mkdir()
    return Path(shutil.copy(program_path(), folder))


def test_the_volume_is_linear_in_amplitude(plain):
    peaks = []
    for volume in (1.0, 0.55, 0.1):
        plain.settings.write(soundVolume=volume)
        with plain.sound.listen() as ear:
            program = plain.run("--preview")
            chimed(ear, 1)
            watch(lambda: len(ear.sounds()) == 1, 2.5, "one chime")
            peaks.append(ear.peak())
        assert program.stop() == 0
    assert peaks[0] == pytest.approx(-9.0, abs=1.0)
    assert peaks[1] - peaks[0] == pytest.approx(-5.2, abs=1.0)
    assert peaks[2] - peaks[0] == pytest.approx(-20.0, abs=1.0)


def test_sound_switched_off_is_silence(plain):
    plain.settings.write(soundEnabled=False)
    with plain.sound.listen() as ear:
        program = plain.run("--preview")
        program.wait_for_status("Velmora", 5)
        watch(lambda: not ear.sounds(), 1.5, "silence")


def test_a_second_chime_restarts_the_first(plain):
    program = plain.run()
    program.item
    # A busy machine may be late with the second stroke, but one that waits for the first is never early.
    after = [second_stroke(plain, program)]
    while after[-1] > CHIME_SECONDS - 0.1 and len(after) < 4:
        after.append(second_stroke(plain, program))
    assert after[-1] < CHIME_SECONDS - 0.1, after


def second_stroke(desktop, program) -> float:
    """Strikes twice, the second time while the first fades, and answers how long after the first it came."""
    with desktop.sound.listen() as ear:
        program.item.click("Velmora Now")
        wait_for(lambda: ear.sounds() and len(ear.sounds()[0]) > 35, 3, "a third of a second of the chime")
        struck, first, start = time.monotonic(), ear.peak(), ear.sounds()[0][0].when
        assert ear.peak(since=struck - 0.05) < first - 3, "the first stroke fades"
        program.item.click("Velmora Now")

        def strokes() -> list[float]:
            return [moment.when for moment in ear.moments(start + 0.25) if moment.peak > first - 1]

        wait_for(strokes, 5, "a second stroke, as loud as the first")
        wait_for(lambda: faded(ear), 5, "the chime to fade")
        assert ear.peak() == pytest.approx(first, abs=1.0), "one stroke at a time"
        return strokes()[0] - start


def test_a_missing_chime_is_said_once_and_one_put_back_is_played(plain, own_copy):
    program = plain.run("--preview", path=own_copy)
    program.wait_for_status("Velmora", 5)
    for _ in range(3):
        program.item.click("Velmora Now")
    wait_for(lambda: program.errors == MISSING, 3, "the message")
    shutil.copy(CHIME, own_copy.parent)
    with plain.sound.listen() as ear:
        program.item.click("Velmora Now")
        chimed(ear, 1)
        wait_for(lambda: faded(ear), 5, "the chime to fade")
        # Held from now on.
        (own_copy.parent / "chime.wav").unlink()
        program.item.click("Velmora Now")
        chimed(ear, 2)
    assert program.errors == MISSING


def test_a_chime_that_is_no_sound_is_said_in_the_same_words(plain, own_copy):
    (own_copy.parent / "chime.wav").write_text("this is no sound")
    program = plain.run("--preview", path=own_copy)
    program.wait_for_status("Velmora", 5)
    wait_for(lambda: program.errors == MISSING, 3, "the message")


def test_a_chime_in_the_share_folder_of_the_prefix_is_found(plain, own_copy):
    share = plain.folder / "share" / "velmora"
    share.mkdir(parents=True)
    shutil.copy(CHIME, share)
    with plain.sound.listen() as ear:
        program = plain.run("--preview", path=own_copy)
        chimed(ear, 1)
    assert program.errors == ""


def test_without_a_sound_server_the_program_is_silent_and_well():
    with Desktop(sound="none") as desktop:
        program = desktop.run("--preview")
        program.wait_for_status("Velmora", 5)
        answers_at_once(program)
        assert program.stop() == 0
        assert program.errors == ""


def test_a_sound_server_that_comes_late_plays_the_next_chime(plain):
    plain.sound.stop()
    program = plain.run("--preview")
    program.wait_for_status("Velmora", 5)
    plain.sound.start()
    plain.sound.wait()
    with plain.sound.listen() as ear:
        program.item.click("Velmora Now")
        chimed(ear, 1)


def test_a_sound_server_that_restarts_in_the_middle_of_a_chime_plays_the_next_one(plain):
    program = plain.run()
    program.item
    with plain.sound.listen() as ear:
        program.item.click("Velmora Now")
        chimed(ear, 1)
    plain.sound.stop()
    plain.sound.start()
    plain.sound.wait()
    with plain.sound.listen() as ear:
        program.item.click("Velmora Now")
        chimed(ear, 1)
    assert program.errors == ""


def test_a_hung_sound_server_holds_up_nothing_and_the_program_can_end(plain):
    program = plain.run()
    program.item
    plain.sound.hang()
    for _ in range(3):
        program.item.click("Velmora Now")
        answers_at_once(program)
    program.wait_for_status("Velmora", 1)
    assert program.stop(signal.SIGTERM, bound=PROMPT) == 0
    assert program.errors == ""
    plain.sound.resume()


def test_a_sound_server_that_hung_plays_the_next_chime(plain):
    program = plain.run()
    program.item
    plain.sound.hang()
    program.item.click("Velmora Now")
    answers_at_once(program)
    plain.sound.resume()
    with plain.sound.listen() as ear:
        program.item.click("Velmora Now")
        chimed(ear, 1)
        # That may have been the one from before, come late.
        wait_for(lambda: faded(ear), 5, "the chime to fade")
        program.item.click("Velmora Now")
        chimed(ear, 2)


def test_a_sound_goes_where_the_default_sink_is_now(plain):
    program = plain.run()
    program.item
    plain.processes.run(["pactl", "load-module", "module-null-sink", "sink_name=other",
                         "norewinds=1", "rate=48000"])
    plain.processes.run(["pactl", "set-default-sink", "other"])
    with plain.sound.listen() as ear:
        program.item.click("Velmora Now")
        program.wait_for_status("Velmora", 2)
        watch(lambda: not ear.sounds(), 1.5, "silence on the old sink")
    plain.processes.run(["pactl", "set-default-sink", "null"])
    with plain.sound.listen() as ear:
        program.item.click("Velmora Now")
        chimed(ear, 1)


def test_a_comma_as_decimal_point_changes_no_volume(plain):
    locales = plain.folder / "locales"
    locales.mkdir()
    # Seconds of work, and a busy machine's many.
    plain.processes.run(["localedef", "-i", "de_DE", "-f", "UTF-8", f"{locales}/de_DE.UTF-8"], bound=180)
    german = {"LOCPATH": str(locales), "LC_ALL": "de_DE.UTF-8"}
    number = subprocess.run(["locale", "decimal_point"], env={**plain.environment, **german},
                            capture_output=True, text=True, check=True).stdout
    assert number.strip() == ","
    plain.settings.write(soundVolume=0.55)
    with plain.sound.listen() as ear:
        plain.run("--preview", environment=german)
        chimed(ear, 1)
        wait_for(lambda: faded(ear), 5, "the chime to fade")
        assert ear.peak() == pytest.approx(-14.2, abs=1.0)
