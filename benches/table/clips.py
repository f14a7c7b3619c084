"""Clips with their pictures' numbers in them, made once into a cache folder."""

import subprocess
from dataclasses import dataclass

CELLS = 20
BITS = 16


@dataclass(frozen=True)
class Clip:
    name: str
    width: int
    height: int
    rate: int
    codec: str = "libx264"
    seconds: float = 12
    first: int = 0  # the number of its first picture
    suffix: str = "mp4"

    @property
    def file(self):
        return f"{self.name}.{self.suffix}"


PLAYED = (
    Clip("720p25", 1280, 720, 25),
    Clip("1080p25", 1920, 1080, 25),
    Clip("1080p60", 1920, 1080, 60),
    Clip("2160p30", 3840, 2160, 30),
    Clip("hevc1080p25", 1920, 1080, 25, codec="libx265"),
)
SECOND = Clip("second", 1280, 720, 25, first=20000)
SHORT = (
    Clip("short1", 1280, 720, 25, seconds=2),
    Clip("short2", 1280, 720, 25, seconds=2, first=10000),
    Clip("short3", 1280, 720, 25, seconds=2, first=20000),
)
LONG = Clip("long", 1280, 720, 25, seconds=120)


def box(clip, cell, colour, enable=None):
    left = cell * clip.width // CELLS // 2 * 2
    right = (cell + 1) * clip.width // CELLS // 2 * 2
    text = f"drawbox=x={left}:y={clip.height // 6}:w={right - left}:h={clip.height // 12}"
    text += f":color={colour}:t=fill"
    return text if enable is None else f"{text}:enable='{enable}'"


def code_filter(clip):
    """What bar_code.h reads, as filters of ffmpeg."""

    def bit(place):
        return f"mod(floor((n+{clip.first})/{2**place}),2)"

    boxes = [box(clip, 0, "0xff0000"), box(clip, 1, "0x00ff00"), box(clip, 19, "0x0000ff")]
    boxes += [box(clip, cell, "black") for cell in range(2, 19)]
    boxes += [box(clip, 17 - place, "white", bit(place)) for place in range(BITS)]
    boxes.append(box(clip, 18, "white", f"mod({'+'.join(bit(k) for k in range(BITS))},2)"))
    return ",".join(boxes)


def make(clip, folder):
    """Returns the clip's path."""
    path = folder / clip.file
    if path.exists():
        return path
    source = f"testsrc2=size={clip.width}x{clip.height}:rate={clip.rate},{code_filter(clip)}"
    part = folder / f"part-{clip.file}"
    command = ["ffmpeg", "-nostdin", "-v", "error", "-y", "-f", "lavfi", "-i", source]
    command += ["-f", "lavfi", "-i", "sine=440:sample_rate=48000", "-t", str(clip.seconds)]
    command += ["-c:v", clip.codec, "-preset", "ultrafast", "-g", "250", "-pix_fmt", "yuv420p"]
    if clip.codec == "libx265":
        command += ["-x265-params", "log-level=error"]
    subprocess.run([*command, "-c:a", "aac", "-b:a", "160k", str(part)], check=True)
    part.rename(path)
    return path


def make_tone(folder, name, seconds):
    path = folder / f"{name}.wav"
    if not path.exists():
        source = f"sine=1000:sample_rate=48000:duration={seconds}"
        subprocess.run(
            ["ffmpeg", "-nostdin", "-v", "error", "-y", "-f", "lavfi", "-i", source, str(path)],
            check=True,
        )
    return path
