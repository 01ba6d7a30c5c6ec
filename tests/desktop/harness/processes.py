"""The processes of one desktop: started with a mark, ended exactly."""

import ctypes
import os
import signal
import subprocess
from dataclasses import dataclass
from pathlib import Path

from .waiting import PATIENCE, NotInTime, in_time

# Every process of a desktop inherits this variable, so that those which other programs started
# for themselves (a bus starting a service, a panel its plugins) are known as well.
MARK = "VELMORA_DESKTOP"

_PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None, use_errno=True)


@dataclass(frozen=True)
class ProcessId:
    """A process that cannot be mistaken for a later one with the same number."""

    pid: int
    start_time: int

    @staticmethod
    def of(pid: int) -> "ProcessId | None":
        """The living process with this number; none when there is no such process."""
        fields = _stat(pid)
        return ProcessId(pid, int(fields[19])) if fields else None

    def alive(self) -> bool:
        """Whether the process still runs; one that only waits to be reaped does not."""
        fields = _stat(self.pid)
        return bool(fields) and int(fields[19]) == self.start_time and fields[0] not in "ZX"

    def send(self, number: int) -> None:
        """Sends a signal; nothing happens when the process is gone."""
        try:
            handle = os.pidfd_open(self.pid)
        except ProcessLookupError:
            return
        try:
            if self.alive():
                signal.pidfd_send_signal(handle, number)
        except ProcessLookupError:
            pass
        finally:
            os.close(handle)


class Processes:
    """Starts programs in one environment, keeps a log of each and ends all of them."""

    def __init__(self, folder: Path, environment: dict[str, str]):
        self.folder = folder
        self.environment = {**environment, MARK: str(folder)}
        self.logs = folder / "logs"
        self.logs.mkdir(parents=True)
        self._started: list[subprocess.Popen] = []

    def start(self, name: str, command: list[str], environment: dict[str, str] | None = None,
              **options) -> subprocess.Popen:
        """Starts a program; what it prints goes to the log of that name unless `stdout` is given."""
        with open(self.log(name), "ab") as log:
            options.setdefault("stdout", log)
            options.setdefault("stderr", log)
            process = subprocess.Popen(
                command, stdin=subprocess.DEVNULL, env={**self.environment, **(environment or {})},
                cwd=self.folder, preexec_fn=_end_with_parent, **options)
        self._started.append(process)
        return process

    def run(self, command: list[str], bound: float = PATIENCE) -> str:
        """Runs a program to its end and answers what it printed; raises when it fails."""
        done = subprocess.run(command, stdin=subprocess.DEVNULL, env=self.environment,
                              cwd=self.folder, capture_output=True, text=True, timeout=bound)
        if done.returncode != 0:
            raise RuntimeError(f"{' '.join(command)}: {done.stderr.strip() or done.stdout.strip()}")
        return done.stdout

    def log(self, name: str) -> Path:
        """The file that holds what the program of that name printed."""
        return self.logs / f"{name}.log"

    def end(self, process: subprocess.Popen, bound: float = 3.0) -> None:
        """Asks a started program to end, and ends it when it does not within the bound."""
        if process.poll() is None:
            process.send_signal(signal.SIGCONT)
            process.terminate()
            try:
                process.wait(bound)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        if process in self._started:
            self._started.remove(process)

    def end_all(self) -> None:
        """Ends every started program, latest first, then whatever those had started themselves."""
        for process in reversed(list(self._started)):
            self.end(process)
        for number in (signal.SIGTERM, signal.SIGKILL):
            for process in self.living():
                process.send(number)
            try:
                in_time(lambda: not self.living(), 5.0, "the desktop's processes to end")
                return
            except NotInTime:
                if number == signal.SIGKILL:
                    raise

    def living(self) -> list[ProcessId]:
        """Every process that carries this desktop's mark and has not ended."""
        mark = f"{MARK}={self.folder}".encode()
        found = []
        for entry in os.listdir("/proc"):
            if not entry.isdigit():
                continue
            process = ProcessId.of(int(entry))
            if process and process.alive() and mark in _environment_of(process.pid):
                found.append(process)
        return found


def _end_with_parent() -> None:
    # When a test run is killed outright, nothing of its desktops stays behind.
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGTERM)


def _stat(pid: int) -> list[str]:
    # The fields after the program's name, which may itself hold spaces and brackets.
    try:
        return Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    except (FileNotFoundError, ProcessLookupError):
        return []


def _environment_of(pid: int) -> list[bytes]:
    try:
        return Path(f"/proc/{pid}/environ").read_bytes().split(b"\0")
    except OSError:
        return []
