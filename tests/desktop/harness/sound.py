"""A sound server without a sound card, and an ear on its output."""

import math
import shutil
import signal
import subprocess
import threading
import time
from dataclasses import dataclass
from pathlib import Path

import numpy

from .processes import Processes
from .waiting import COMING_UP, listens, wait_for

RATE = 48000
_SILENCE = -120.0
# The sink's own, of which the left one is heard: servers differ in how they make one channel of two.
_CHANNELS = 2


class SoundServer:
    """PulseAudio with a single sink that plays into nothing, in real time."""

    def __init__(self, processes: Processes):
        """Starts the server. Use `wait` before the first sound."""
        self._processes = processes
        self._socket = Path(processes.environment["XDG_RUNTIME_DIR"]) / "pulse" / "native"
        self.process: subprocess.Popen | None = None
        self.start()

    def start(self) -> None:
        """Starts the server, anew after a `stop`."""
        # Without norewinds the sink renders two seconds at a time, and no timing is right.
        self.process = self._processes.start("sound", [
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--disable-shm=yes",
            "--realtime=no", "--high-priority=no", "--use-pid-file=no",
            "-L", f"module-native-protocol-unix auth-anonymous=1 socket={self._socket}",
            "-L", f"module-null-sink sink_name=null norewinds=1 rate={RATE}",
            # As on a user's desktop, where a server remembers the volume of a kind of sound.
            "-L", "module-stream-restore"])

    def wait(self) -> None:
        """Returns when the server takes connections."""
        wait_for(lambda: listens(self._socket), COMING_UP, "the sound server")

    def stop(self) -> None:
        """Ends the server; programs lose their connection."""
        self._processes.end(self.process)
        self._socket.unlink(missing_ok=True)

    def hang(self) -> None:
        """The server stops answering, and keeps its socket open."""
        self.process.send_signal(signal.SIGSTOP)

    def resume(self) -> None:
        """Ends a `hang`."""
        self.process.send_signal(signal.SIGCONT)

    def listen(self) -> "SoundProbe":
        """Starts to record what the sink plays."""
        return SoundProbe(self._processes)


class PipeWire(SoundServer):
    """PipeWire in the place of PulseAudio, whose language it speaks, with one sink of the same kind."""

    _PARTS = ("pipewire", "wireplumber", "pipewire-pulse")

    @staticmethod
    def installed() -> bool:
        """Whether this machine has it."""
        return all(shutil.which(part) for part in PipeWire._PARTS)

    def start(self) -> None:
        """Starts the server, anew after a `stop`."""
        self._keep_from_hardware()
        self._parts = []
        for part in self._PARTS:
            self._parts.append(self._processes.start(
                part, [part], environment={"PIPEWIRE_RUNTIME_DIR": str(self._own_socket.parent)}))
            # The other parts come to the first, and end where it does not listen yet.
            wait_for(lambda: listens(self._own_socket), COMING_UP, "PipeWire")
        self.process = self._parts[-1]
        self._has_sink = False

    def wait(self) -> None:
        """Returns when the server takes connections and plays into its own sink."""
        super().wait()
        if not self._has_sink:
            self._processes.run(["pactl", "load-module", "module-null-sink", "sink_name=null", f"rate={RATE}"])
            self._has_sink = True
        wait_for(self._plays_into_the_sink, COMING_UP, "the sink to be the default one")

    def stop(self) -> None:
        """Ends the server; programs lose their connection."""
        for part in reversed(self._parts):
            self._processes.end(part)
        for socket in (self._socket, self._own_socket):
            socket.unlink(missing_ok=True)

    def hang(self) -> None:
        """The server stops answering, and keeps its socket open."""
        for part in self._parts:
            part.send_signal(signal.SIGSTOP)

    def resume(self) -> None:
        """Ends a `hang`."""
        for part in self._parts:
            part.send_signal(signal.SIGCONT)

    @property
    def _own_socket(self) -> Path:
        return self._socket.parents[1] / "pipewire-0"

    def _plays_into_the_sink(self) -> bool:
        try:
            self._processes.run(["pactl", "set-default-sink", "null"])
        except RuntimeError:
            # The part that keeps the choice is still coming up.
            return False
        return self._processes.run(["pactl", "get-default-sink"]).strip() == "null"

    def _keep_from_hardware(self) -> None:
        # The machine's own sound cards and cameras are none of a test's business.
        folder = Path(self._processes.environment["XDG_CONFIG_HOME"]) / "wireplumber/main.lua.d"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "60-no-hardware.lua").write_text("".join(
            f"{kind}_monitor.enabled = false\n" for kind in ("alsa", "v4l2", "libcamera")))


@dataclass(frozen=True)
class Moment:
    """Ten milliseconds of sound: when it was heard (monotonic), and how loud (dBFS)."""

    when: float
    rms: float
    peak: float


class SoundProbe:
    """Records the sink's output and tells how loud it was when. Use it in a `with`."""

    def __init__(self, processes: Processes):
        self._processes = processes
        self._samples: list[tuple[float, numpy.ndarray]] = []
        self._lock = threading.Lock()
        self._recorder = processes.start(
            "recorder", ["parec", "-d", "null.monitor", "--latency-msec=20", "--format=s16le",
                         f"--rate={RATE}", f"--channels={_CHANNELS}", "--raw"], stdout=subprocess.PIPE)
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()
        # Before the first samples arrive, a sound could be missed.
        wait_for(self.seconds, COMING_UP, "the recorder to hear the sink")

    def __enter__(self) -> "SoundProbe":
        return self

    def __exit__(self, *_exception) -> None:
        self.close()

    def close(self) -> None:
        """Stops recording; what was heard stays."""
        self._processes.end(self._recorder)
        self._reader.join(5)

    def seconds(self) -> float:
        """How much has been recorded."""
        with self._lock:
            return sum(len(samples) for _, samples in self._samples) / RATE

    def moments(self, since: float = 0.0) -> list[Moment]:
        """Loudness in steps of 10 ms, from the monotonic instant `since` on."""
        with self._lock:
            chunks = list(self._samples)
        if not chunks:
            return []
        # The last chunk arrived when it was read; everything before it lies that much earlier.
        sound = numpy.concatenate([samples for _, samples in chunks]).astype(float) / 32768
        end = chunks[-1][0]
        step = RATE // 100
        rows = sound[:len(sound) // step * step].reshape(-1, step)
        start = end - len(sound) / RATE
        return [Moment(start + index / 100, _decibels(math.sqrt(float(numpy.mean(row ** 2)))),
                       _decibels(float(numpy.max(numpy.abs(row)))))
                for index, row in enumerate(rows) if start + index / 100 >= since]

    def peak(self, since: float = 0.0) -> float:
        """The highest level heard from `since` on, in dBFS."""
        return max((moment.peak for moment in self.moments(since)), default=_SILENCE)

    def sounds(self, above: float = -60.0, gap: float = 0.3, since: float = 0.0) -> list[list[Moment]]:
        """The separate sounds heard: runs of moments above a level, parted by `gap` s of quiet."""
        found: list[list[Moment]] = []
        for moment in self.moments(since):
            if moment.rms < above:
                continue
            if found and moment.when - found[-1][-1].when <= gap:
                found[-1].append(moment)
            else:
                found.append([moment])
        return found

    def _read(self) -> None:
        left_over = b""
        frame = 2 * _CHANNELS
        while block := self._recorder.stdout.read1(RATE // 50 * frame):
            block = left_over + block
            whole = len(block) // frame * frame
            left_over = block[whole:]
            samples = numpy.frombuffer(block[:whole], "<i2").reshape(-1, _CHANNELS)
            with self._lock:
                self._samples.append((time.monotonic(), samples[:, 0]))


def _decibels(level: float) -> float:
    return max(20 * math.log10(level), _SILENCE) if level > 0 else _SILENCE
