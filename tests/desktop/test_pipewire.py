"""The chime where PipeWire stands in for PulseAudio, as most desktops have it today."""

import signal
import time

import pytest

from harness import Desktop, wait_for, watch
from harness.sound import PipeWire

pytestmark = [pytest.mark.long,
              pytest.mark.skipif(not PipeWire.installed(), reason="PipeWire is not installed")]


@pytest.fixture
def desktop() -> Desktop:
    with Desktop(sound="pipewire", tray="panel") as brought_up:
        yield brought_up


def chimed(ear) -> None:
    wait_for(ear.sounds, 6, "the chime")


def test_the_chime_is_heard_once_and_as_loud_as_it_should_be(desktop: Desktop):
    peaks = []
    for volume in (1.0, 0.1):
        desktop.settings.write(soundVolume=volume)
        with desktop.sound.listen() as ear:
            program = desktop.run("--preview")
            chimed(ear)
            watch(lambda: len(ear.sounds(gap=1.0)) == 1, 2.5, "one chime")
            peaks.append(ear.peak())
        assert program.stop() == 0 and program.errors == ""
    assert peaks[0] == pytest.approx(-9.0, abs=1.0)
    assert peaks[1] - peaks[0] == pytest.approx(-20.0, abs=1.0)


def test_a_second_chime_restarts_the_first(desktop: Desktop):
    program = desktop.run()
    program.item
    with desktop.sound.listen() as ear:
        program.item.click("Velmora Now")
        wait_for(lambda: ear.sounds() and len(ear.sounds()[0]) > 80, 3, "most of a second of the chime")
        first, struck = ear.peak(), time.monotonic()
        program.item.click("Velmora Now")
        wait_for(lambda: ear.peak(since=struck) == pytest.approx(first, abs=1.0), 5, "the second stroke")


def test_a_server_that_restarts_plays_the_next_chime(desktop: Desktop):
    program = desktop.run()
    program.item
    with desktop.sound.listen() as ear:
        program.item.click("Velmora Now")
        chimed(ear)
    desktop.sound.stop()
    program.item.click("Velmora Now")
    desktop.sound.start()
    desktop.sound.wait()
    with desktop.sound.listen() as ear:
        program.item.click("Velmora Now")
        chimed(ear)
    assert program.errors == ""


def test_a_hung_server_holds_up_nothing_and_the_program_can_end(desktop: Desktop):
    program = desktop.run()
    program.item
    desktop.sound.hang()
    for _ in range(3):
        program.item.click("Velmora Now")
        program.wait_for_status("Velmora", 3)
    assert program.stop(signal.SIGTERM, bound=5) == 0
    assert program.errors == ""
    desktop.sound.resume()


def test_a_server_that_hung_plays_the_next_chime(desktop: Desktop):
    program = desktop.run()
    program.item
    desktop.sound.hang()
    program.item.click("Velmora Now")
    program.wait_for_status("Velmora", 3)
    desktop.sound.resume()
    with desktop.sound.listen() as ear:
        program.item.click("Velmora Now")
        chimed(ear)
        # That may have been the one from before, come late.
        wait_for(lambda: ear.peak(since=time.monotonic() - 0.5) < -60, 5, "the chime to fade")
        program.item.click("Velmora Now")
        wait_for(lambda: len(ear.sounds()) >= 2, 6, "the next chime")
