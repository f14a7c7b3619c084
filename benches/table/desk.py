"""A private display with a window manager, a bus, a silent sound card, and the eye on it."""

import os
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

from table import figures, machine

NOBODY = 65534  # players run as an ordinary user: some refuse an administrator
SIZE = (1920, 1080)


def own(path):
    """Gives a folder and what is in it to the players' user."""
    if os.geteuid() == 0:
        for entry in [path, *path.rglob("*")]:
            os.chown(entry, NOBODY, NOBODY, follow_symlinks=False)


class Desk:
    def __init__(self, build):
        self.build = build
        self.folder = Path(tempfile.mkdtemp(prefix="bench-"))
        self.folder.chmod(0o755)
        self.run_folder = self.folder / "run"
        self.run_folder.mkdir(mode=0o700)
        own(self.run_folder)
        self.environment = {
            key: value
            for key, value in os.environ.items()
            if key in ("PATH", "LANG") or key.startswith("LD_")
        }
        self.environment |= {
            "LC_ALL": "C.UTF-8",
            "XDG_RUNTIME_DIR": str(self.run_folder),
            "HOME": str(self.run_folder),
            "ALSA_CONFIG_PATH": "/dev/null",
        }
        self.processes = []
        try:
            self._start_all()
        except BaseException:
            self.close()
            raise

    def _start_all(self):
        self._start_display()
        self._start_bus()
        self._start_sound()
        self._start("openbox", "openbox", "--sm-disable")
        if not machine.wait_for(lambda: "Name:" in self.ask("wmctrl", "-m")):
            raise RuntimeError("openbox does not start")

    def _log(self, name):
        return open(self.folder / f"{name}.log", "ab")

    def _start(self, name, *command, output=None, as_player=False):
        process = subprocess.Popen(
            [*(self.as_player() if as_player else ()), *command],
            env=self.environment,
            cwd=self.folder,
            stdin=subprocess.DEVNULL,
            stdout=output or self._log(name),
            stderr=self._log(name),
        )
        self.processes.append(process)
        return process

    def _start_display(self):
        command = "Xvfb -displayfd 1 -ac -nolisten tcp -noreset -screen 0 1920x1080x24".split()
        server = self._start("xvfb", *command, output=subprocess.PIPE)
        number = server.stdout.readline().decode().strip()
        if not number:
            raise RuntimeError("Xvfb does not start")
        self.environment["DISPLAY"] = f":{number}"

    def _start_bus(self):
        command = ["dbus-daemon", "--session", "--nofork", "--nosyslog", "--print-address=1"]
        command.append(f"--address=unix:path={self.run_folder}/bus")
        bus = self._start("bus", *command, output=subprocess.PIPE, as_player=True)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().decode().strip()

    def _start_sound(self):
        socket = self.run_folder / "sound"
        self._start(
            "pulseaudio",
            *"pulseaudio -n --daemonize=no --use-pid-file=no --exit-idle-time=-1".split(),
            "--disable-shm=yes",
            "--log-target=stderr",
            "--load=module-null-sink sink_name=speaker rate=48000",
            f"--load=module-native-protocol-unix auth-anonymous=1 socket={socket}",
            as_player=True,
        )
        if not machine.wait_for(socket.exists):
            raise RuntimeError("pulseaudio does not start")
        self.environment["PULSE_SERVER"] = f"unix:{socket}"

    @staticmethod
    def as_player():
        if os.geteuid() != 0:
            return []
        return ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]

    def close(self):
        for process in reversed(self.processes):
            machine.end(process)
        shutil.rmtree(self.folder, ignore_errors=True)

    def launch(self, command, environment, home, log):
        """A player, as an ordinary user in a home of its own."""
        return subprocess.Popen(
            [*self.as_player(), *command],
            env=self.environment | environment | {"HOME": str(home)},
            cwd=home,
            stdin=subprocess.DEVNULL,
            stdout=self._log(log),
            stderr=subprocess.STDOUT,
        )

    def ask(self, *command):
        try:
            done = subprocess.run(
                command, env=self.environment, capture_output=True, text=True, timeout=10
            )
        except subprocess.TimeoutExpired:
            return ""
        return done.stdout

    def press(self, key):
        """Returns the moment just before the key."""
        now = time.monotonic()
        self.ask("xdotool", "key", key)
        return now

    def windows(self):
        """[(number, x, y, width, height)] of those that the window manager shows."""
        found = []
        for line in self.ask("wmctrl", "-lG").splitlines():
            words = line.split(None, 7)
            found.append((words[0], *(int(word) for word in words[2:6])))
        return found

    def window_at(self, x, y):
        """The smallest window over a point; None without one."""
        over = [w for w in self.windows() if w[1] <= x < w[1] + w[3] and w[2] <= y < w[2] + w[4]]
        return min(over, key=lambda window: window[3] * window[4], default=None)


class Eye:
    """Writes down which numbers are on the screen, from its making to its end."""

    def __init__(self, desk, interval=2):
        self._path = desk.folder / f"eye-{time.monotonic_ns()}"
        with open(self._path, "wb") as output:
            self._process = subprocess.Popen(
                [desk.build / "bench_eye", str(interval)],
                env=desk.environment,
                stdin=subprocess.PIPE,
                stdout=output,
            )
        if not machine.wait_for(lambda: self._path.stat().st_size, 10, 0.002):
            raise RuntimeError("bench_eye does not look")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.stdin.close()
        self._process.wait(5)
        self._path.unlink()

    def seen(self):
        text = self._path.read_text()
        return figures.code_lines(text[: text.rfind("\n") + 1])

    def last(self):
        return self.seen()[-1]

    def first(self, condition, seconds=15, since=0.0):
        """The first line with a number for which the condition holds; None when it never comes."""

        def found():
            for line in self.seen():
                if line[0] >= since and line[1] is not None and condition(line):
                    return line
            return None

        return machine.wait_for(found, seconds, 0.01)
