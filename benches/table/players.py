"""The program and its peers: how each is started, and which keys it knows."""

import shutil
import subprocess
from dataclasses import dataclass, field
from pathlib import Path

from table import desk, machine

OURS = "orvanta"


@dataclass
class Player:
    name: str
    command: list
    whole: list  # more words, for the whole screen from the beginning; empty: by its key
    whole_key: str
    seek_key: str = ""
    seek_seconds: float = 0
    environment: dict = field(default_factory=dict)
    prepare: object = None  # called with its new home
    program: str = ""

    def missing(self):
        return "" if shutil.which(self.program or self.command[0]) else "not installed"


def set_options(path, section, values):
    """Changes keys of an INI file, or adds the section."""
    before, own, after = [], [], []
    now = before
    for line in path.read_text().splitlines() if path.exists() else []:
        if line.startswith("["):
            now = own if line == f"[{section}]" else after if own else before
        if line.split("=", 1)[0] not in values or now is not own:
            now.append(line)
    own = own or [f"[{section}]"]
    own[1:1] = [f"{key}={value}" for key, value in values.items()]
    path.write_text("\n".join(before + own + after) + "\n")


def prepare_ours(source):
    def prepare(home):
        settings = home / "orvanta.ini"
        settings.write_text((source / "resources/orvanta.ini").read_text().replace("\r\n", "\n"))
        set_options(settings, "main", {"language": "1"})
        set_options(settings, "options", {"as": "1"})

    return prepare


def prepare_smplayer(home):
    folder = home / ".config/smplayer"
    folder.mkdir(parents=True)
    set_options(
        folder / "smplayer.ini",
        "General",
        {"mplayer_bin": "mpv", "driver\\vo": "x11", "driver\\audio_output": "pulse"},
    )
    set_options(folder / "smplayer.ini", "gui", {"style": ""})
    set_options(
        folder / "smplayer.ini", "update_checker", {"enabled": "false", "last_checked": "29991231"}
    )


def all_players(source, build):
    mpv = "mpv --no-config --no-terminal --vo=x11 --ao=pulse --no-osc --osd-level=0".split()
    vlc = "vlc -I dummy --vout xcb_x11 --aout pulse --no-osd --no-video-title-show".split()
    vlc += ["--no-metadata-network-access", "--play-and-exit", "--avcodec-hw=none"]
    return [
        Player(
            OURS,
            [str(build / "orvanta")],
            [],
            "F11",
            environment={"ORVANTA_UNREGISTERED": "1"},
            prepare=prepare_ours(source),
        ),
        Player("mpv", mpv, ["--fullscreen"], "f", "Right", 5),
        Player("VLC", vlc, ["--fullscreen"], "f", "alt+Right", 10),
        Player("SMPlayer", ["smplayer"], ["-fullscreen"], "f", prepare=prepare_smplayer),
        Player("Celluloid", ["celluloid", "--new-window"], [], "F11"),
        Player("Haruna", ["haruna"], [], "f"),
    ]


class Running:
    """A player with files, from its launch to its end."""

    def __init__(self, desk_, player, files, whole=False):
        self.desk = desk_
        self.player = player
        self.home = desk_.folder / f"home-{player.name}-{machine.time.monotonic_ns()}"
        self.home.mkdir()
        if player.prepare:
            player.prepare(self.home)
        desk.own(self.home)
        self.environment = dict(player.environment)
        if player.name == OURS:
            self.environment["ORVANTA_HOME"] = str(self.home)
        words = player.whole if whole else []
        self.launched = machine.time.monotonic()
        self.process = self.launch([*words, *map(str, files)])

    def launch(self, words):
        return self.desk.launch(
            [*self.player.command, *words], self.environment, self.home, self.player.name
        )

    @property
    def pid(self):
        """setpriv becomes the player: the same process."""
        return self.process.pid

    def __enter__(self):
        return self

    def __exit__(self, *_):
        machine.end(self.process)
        shutil.rmtree(self.home, ignore_errors=True)

    def fit(self, eye, clip, width):
        """Gives the window the size at which the picture is so wide; whether it then is."""
        number, x, y, wide = eye.last()[1:]
        if number is None or abs(wide - width) <= 2:
            return number is not None
        window = self.desk.window_at(x + wide // 2, y + 4)
        if window is None:
            return False
        more = width - wide
        higher = round(more * clip.height / clip.width)
        place = f"0,40,30,{window[3] + more},{window[4] + higher}"
        subprocess.run(
            ["wmctrl", "-i", "-r", window[0], "-b", "remove,maximized_vert,maximized_horz"],
            env=self.desk.environment,
            check=False,
        )
        subprocess.run(
            ["wmctrl", "-i", "-r", window[0], "-e", place], env=self.desk.environment, check=False
        )
        return bool(eye.first(lambda seen: abs(seen[4] - width) <= 40, 2, self.launched))

    def fill(self, eye):
        """The whole screen by the player's key; whether the picture then fills it."""

        def fills(seen):
            return seen[4] >= desk.SIZE[0] - 2

        if fills(eye.last()):
            return True
        _, x, y, wide = eye.last()[1:]
        window = self.desk.window_at(x + wide // 2, y + 4)
        if window:
            self.desk.ask("wmctrl", "-i", "-a", window[0])
            machine.wait_for(
                lambda: int(self.desk.ask("xdotool", "getactivewindow") or 0) == int(window[0], 16), 2
            )
        since = self.desk.press(self.player.whole_key)
        return bool(eye.first(fills, 3, since))
