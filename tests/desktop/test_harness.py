"""The desktop itself, before any program of ours runs on it."""

import math
import os
import shutil
import struct
import subprocess
import sys
import time
import wave
from pathlib import Path

import pytest
from gi.repository import GLib

from harness import Desktop, Head, NotInTime, Rectangle, in_time, wait_for, watch
from harness import display_server
from harness.bus import connect
from harness.processes import ProcessId
from harness.screenshots import palette_worn, share_wearing
from harness.tray import WATCHER, WATCHER_PATH
from harness.waiting import PATIENCE
from orb_hand import OrbHand


@pytest.fixture(scope="module")
def shared() -> Desktop:
    with Desktop() as desktop:
        yield desktop


def test_it_is_up_in_under_three_seconds():
    if os.getloadavg()[0] > 2 * os.cpu_count():
        pytest.skip("the machine is too busy to tell")
    # The best of a few, since other tests may run beside this one.
    took = []
    while not took or (took[-1] >= 3.0 and len(took) < 5):
        start = time.monotonic()
        with Desktop():
            took.append(time.monotonic() - start)
    assert min(took) < 3.0, took


@pytest.mark.skipif(not shutil.which("Xvfb"), reason="Xvfb is not installed")
def test_without_the_dummy_driver_a_desktop_comes_up_all_the_same(monkeypatch: pytest.MonkeyPatch):
    monkeypatch.setattr(display_server, "_DUMMY_DRIVER", Path("/nowhere"))
    with Desktop() as desktop:
        assert not desktop.display_server.pluggable and not desktop.has_touchpad
        assert "Xvfb" in Path(f"/proc/{desktop.display_server.process.pid}/cmdline").read_text()
        program = desktop.run("--preview")
        program.wait_for_status("Velmora", 10)
        desktop.pointer.click(*OrbHand(desktop, program).at(0, -20))
        program.wait_for_status("Next in 15m", 5)
        assert program.stop() == 0


def test_everything_that_was_started_is_ended_and_nothing_else():
    stranger = subprocess.Popen(["sleep", "60"])
    try:
        with Desktop() as desktop:
            desktop.window("Letter", Rectangle(100, 100, 300, 200))
            started = desktop.processes.living()
            assert len(started) > 8
            folder = desktop.folder
        assert [process for process in started if process.alive()] == []
        assert not folder.exists()
        assert stranger.poll() is None
    finally:
        stranger.kill()
        stranger.wait()


def test_a_display_server_that_was_killed_leaves_no_socket():
    with Desktop() as desktop:
        desktop.display_server.process.kill()
        desktop.display_server.process.wait()
        socket = desktop.display_server.socket
        assert socket.exists()
    assert not socket.exists()


def test_a_process_number_that_was_given_anew_is_not_the_same_process():
    me = ProcessId.of(os.getpid())
    assert me.alive()
    assert not ProcessId(me.pid, me.start_time - 1).alive()


def test_nothing_stays_behind_when_the_test_run_is_killed():
    script = ("import sys, time; sys.path.insert(0, sys.argv[1])\n"
              "from harness import Desktop\n"
              "with Desktop() as desktop:\n"
              "    print(desktop.folder, flush=True)\n"
              "    time.sleep(60)\n")
    run = subprocess.Popen([sys.executable, "-c", script, str(Path(__file__).parent)],
                           stdout=subprocess.PIPE, text=True)
    folder = run.stdout.readline().strip()
    run.kill()
    run.wait()
    mark = f"VELMORA_DESKTOP={folder}".encode()
    wait_for(lambda: not _marked(mark), 5, "the processes of a killed run to end")
    subprocess.run(["rm", "-r", folder], check=True)


def test_several_desktops_run_side_by_side():
    with Desktop() as first, Desktop(window_manager="openbox", tray="none") as second:
        assert first.display_server.name != second.display_server.name
        letter = first.window("Letter", Rectangle(100, 100, 300, 200))
        assert second.x11.selection_owner("_NET_WM_CM_S0") == 0
        assert letter.window() and not [w for w in second.x11.windows() if w.title == "Letter"]
        first.pointer.move(11, 12)
        second.pointer.move(21, 22)
        assert (first.x11.pointer(), second.x11.pointer()) == ((11, 12), (21, 22))


def test_the_compositor_owns_its_selection_and_loses_it_when_it_ends(shared: Desktop):
    assert shared.x11.selection_owner("_NET_WM_CM_S0") != 0
    shared.window_manager.stop()
    wait_for(lambda: not shared.x11.selection_owner("_NET_WM_CM_S0"), 3, "no compositor")
    shared.window_manager.start()
    shared.window_manager.wait(shared.x11)


def test_compositing_comes_and_goes_while_windows_are_open(shared: Desktop):
    shared.window_manager.composite(False, shared.x11)
    assert shared.x11.selection_owner("_NET_WM_CM_S0") == 0
    shared.window_manager.composite(True, shared.x11)
    assert shared.x11.selection_owner("_NET_WM_CM_S0") != 0


def test_a_plain_window_manager_does_not_composite():
    for name in ("xfwm4-plain", "openbox"):
        with Desktop(window_manager=name, tray="none", sound="none") as desktop:
            watch(lambda: not desktop.x11.selection_owner("_NET_WM_CM_S0"), 0.3, f"{name} is plain")


def test_the_panel_hosts_status_items(shared: Desktop):
    assert shared.tray.takes_status_items()
    item = connect(shared.session_bus.address)
    item.call_sync(WATCHER, WATCHER_PATH, WATCHER, "RegisterStatusNotifierItem",
                   GLib.Variant("(s)", (item.get_unique_name(),)), None, 0, int(PATIENCE * 1000), None)

    def items():
        return shared.session_bus.get(WATCHER, WATCHER_PATH, WATCHER, "RegisteredStatusNotifierItems")
    wait_for(lambda: [name for name in items() if item.get_unique_name() in name], 3, "the item")
    item.close_sync(None)
    wait_for(lambda: not [name for name in items() if item.get_unique_name() in name], 3, "its end")


def test_a_panel_that_ends_and_returns_hosts_again(shared: Desktop):
    shared.tray.stop()
    wait_for(lambda: not shared.tray.takes_status_items(), 3, "no host")
    shared.tray.start("panel")
    shared.tray.wait(shared.x11)
    assert shared.tray.takes_status_items()


def test_an_xembed_tray_takes_no_status_items():
    with Desktop(tray="xembed", sound="none") as desktop:
        assert desktop.x11.selection_owner("_NET_SYSTEM_TRAY_S0") != 0
        assert not desktop.tray.takes_status_items()


def test_the_panel_takes_its_rows_from_the_work_area(shared: Desktop):
    area = wait_for(lambda: shared.x11.work_area() if shared.x11.work_area().y > 0 else None, 3,
                    "the panel's rows")
    assert area.y + area.height == 800 and area.width == 1280


def test_a_tone_is_heard_at_its_level_and_for_its_length(shared: Desktop, tmp_path: Path):
    _write_tone(tmp_path / "tone.wav", seconds=0.5, level=0.25)
    with shared.sound.listen() as ear:
        before = ear.peak()
        shared.processes.run(["paplay", str(tmp_path / "tone.wav")])
        wait_for(lambda: ear.sounds() and ear.peak(since=time.monotonic() - 0.2) < -60, 3,
                 "the tone to be over")
        tones = ear.sounds(gap=1.0)
    assert before < -90
    assert len(tones) == 1
    assert ear.peak() == pytest.approx(20 * math.log10(0.25), abs=0.3)
    assert max(m.rms for m in tones[0]) == pytest.approx(20 * math.log10(0.25 / math.sqrt(2)), abs=0.3)
    assert len(tones[0]) / 100 == pytest.approx(0.5, abs=0.1)


def test_a_sound_server_can_hang_go_and_return(tmp_path: Path):
    _write_tone(tmp_path / "tone.wav", seconds=0.2, level=0.5)
    with Desktop(window_manager="none", tray="none") as desktop:
        desktop.sound.hang()
        with pytest.raises(subprocess.TimeoutExpired):
            desktop.processes.run(["paplay", str(tmp_path / "tone.wav")], bound=0.7)
        desktop.sound.resume()
        desktop.sound.stop()
        with pytest.raises(RuntimeError):
            desktop.processes.run(["paplay", str(tmp_path / "tone.wav")])
        desktop.sound.start()
        desktop.sound.wait()
        with desktop.sound.listen() as ear:
            desktop.processes.run(["paplay", str(tmp_path / "tone.wav")])
            wait_for(lambda: ear.peak() > -10, 3, "the tone")


def test_the_login_manager_announces_sleep_and_waking(shared: Desktop):
    heard = []
    shared.system_bus.listen("org.freedesktop.login1.Manager", "PrepareForSleep",
                             lambda path, arguments: heard.append((path, *arguments)))
    shared.logind.going_to_sleep()
    shared.logind.woke_up()
    wait_for(lambda: len(heard) == 2, 3, "both signals")
    assert heard == [("/org/freedesktop/login1", True), ("/org/freedesktop/login1", False)]


def test_an_accessible_window_is_found_by_name_and_role():
    with Desktop(environment={"NO_AT_BRIDGE": "0"}) as desktop:
        letter = desktop.window("Letter", Rectangle(100, 100, 400, 300))
        application = desktop.accessibility.application(letter.process.pid)
        assert application.role == "application"
        frame = application.find(name="Letter", role="frame")
        assert frame and application.find(name="Nobody") is None
        text = application.find(role="label")
        assert text.text.startswith("Dear Ada,")


def test_the_assistive_library_sees_the_same_window():
    with Desktop(environment={"NO_AT_BRIDGE": "0"}) as desktop:
        letter = desktop.window("Letter", Rectangle(100, 100, 400, 300))
        desktop.accessibility.application(letter.process.pid)
        seen = desktop.processes.run(["/usr/bin/python3", "-c", (
            "import pyatspi\n"
            "for app in pyatspi.Registry.getDesktop(0):\n"
            "    for window in app: print(window.getRoleName(), window.name)\n")])
        assert "frame Letter" in seen.splitlines()


def test_displays_are_plugged_resized_and_unplugged():
    heads = [Head(1280, 800), Head(1024, 768, x=1280)]
    with Desktop(heads=heads, sound="none") as desktop:
        server = desktop.display_server
        assert server.plugged() == {0: heads[0], 1: heads[1]}
        assert desktop.x11.size() == (2304, 800)
        server.plug(2, Head(800, 600, x=0, y=800))
        server.plug(0, Head(1600, 900))
        assert server.plugged()[2] == Head(800, 600, 0, 800) and server.plugged()[0].width == 1600
        server.unplug(1)
        server.unplug(2)
        assert server.plugged() == {0: Head(1600, 900)}


@pytest.mark.parametrize("scale", [1, 2])
def test_programs_find_the_scale_as_the_resolution_of_fonts(scale: int):
    with Desktop(scale=scale, sound="none") as desktop:
        resources = desktop.x11.property(desktop.x11.root.id, "RESOURCE_MANAGER").decode()
        assert f"Xft.dpi:\t{96 * scale}\n" in resources
        assert desktop.x11.size() == (1280 * scale, 800 * scale)


def test_clicks_wheel_and_keys_reach_the_window_under_the_pointer(shared: Desktop):
    letter = shared.window("Clicks", Rectangle(300, 200, 400, 300))
    place = letter.window().place
    shared.pointer.click(place.x + 40, place.y + 50)
    shared.pointer.wheel(-1)
    wait_for(lambda: letter.presses() == [(1, 40, 50)] and "scroll" in letter.events(), 3, "both")
    assert shared.x11.pointer() == (place.x + 40, place.y + 50)
    letter.close()


def test_a_touchpad_scrolls_smoothly_and_pinches(shared: Desktop):
    if not shared.has_touchpad:
        pytest.skip("this X server has no test input driver")
    watcher = shared.processes.start("xinput", ["xinput", "test-xi2", "--root"])
    wait_for(lambda: "touchpad" in shared.processes.log("xinput").read_text(), 3, "the listener")
    with shared.touchpad() as touchpad:
        touchpad.scroll(30)
        touchpad.pinch(1.1, 1.2)
    wait_for(lambda: "3: 30.00" in shared.processes.log("xinput").read_text(), 3, "the scroll")
    shared.processes.end(watcher)


def test_pixels_are_those_on_screen_and_black_beyond_its_edge(shared: Desktop):
    letter = shared.window("Picture", Rectangle(600, 300, 300, 200))
    place = letter.window().place
    wait_for(lambda: shared.x11.pixels(Rectangle(place.x + 2, place.y + 2, 10, 10)).mean() > 200, 3,
             "the window's paper on screen")
    beyond = shared.x11.pixels(Rectangle(1270, 400, 20, 10))
    assert beyond.shape == (10, 20, 3) and beyond[:, 10:].max() == 0
    letter.close()


def test_a_palette_is_known_by_its_gradient():
    import numpy
    green = numpy.full((10, 10, 3), (107, 189, 148), numpy.uint8)
    warm = numpy.full((10, 10, 3), (219, 158, 122), numpy.uint8)
    assert palette_worn(green) == "active" and palette_worn(warm) == "reminding"
    assert share_wearing(numpy.full((4, 4, 3), 255, numpy.uint8), "reminding") == 0
    assert palette_worn(numpy.full((4, 4, 3), 255, numpy.uint8)) is None


def test_programs_on_a_desktop_without_buses_find_none():
    with Desktop(session_bus=False, logind=False, sound="none") as desktop:
        assert desktop.session_bus is None and desktop.logind is None and desktop.sound is None
        for name in ("DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS", "PULSE_SERVER"):
            assert not Path(desktop.environment[name].rpartition("=")[2].removeprefix("unix:")).exists()


def test_a_wait_that_is_not_met_says_what_it_waited_for():
    with pytest.raises(NotInTime, match="waited 0.1 s for snow; last seen: 0"):
        in_time(lambda: 0, 0.1, "snow")


def _marked(mark: bytes) -> list[int]:
    found = []
    for entry in Path("/proc").iterdir():
        try:
            if entry.name.isdigit() and mark in (entry / "environ").read_bytes().split(b"\0"):
                found.append(int(entry.name))
        except OSError:
            continue
    return found


def _write_tone(path: Path, seconds: float, level: float) -> None:
    samples = [int(32767 * level * math.sin(2 * math.pi * 1000 * index / 48000))
               for index in range(int(48000 * seconds))]
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(48000)
        file.writeframes(struct.pack(f"<{len(samples)}h", *samples))
