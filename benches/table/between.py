"""Rows about the change from one clip to the next: black and silence."""

import subprocess

from table import clips, figures, machine
from table.desk import Eye
from table.players import Running
from table.playing import Nothing, first_picture

RATE = 48000
TONES = 3
TONE = 3  # seconds; of tones of one second next to nothing was heard from VLC
LEAST = 0.8 * TONES * TONE  # seconds of sound without which the tones are not heard


def of_clip(number):
    clip = clips.SHORT[number]
    return lambda seen: clip.first <= seen < clip.first + clip.rate * clip.seconds + 2


def black(desk, player, settings):
    """The longer one of two changes between clips of one size, in a window."""
    paths = [clips.make(clip, settings.cache) for clip in clips.SHORT]
    with Eye(desk, 1) as eye, Running(desk, player, paths) as running:
        first_picture(eye, running)
        third = of_clip(2)
        if not eye.first(lambda seen: third(seen[1]), 15, running.launched):
            raise Nothing("does not reach the third clip")
        seen = eye.seen()
    lost = [figures.lost_between(seen, of_clip(k), of_clip(k + 1)) for k in range(2)]
    if None in lost:
        raise Nothing("a clip was not seen")
    return {("without a picture between two clips", "ms", False): max(lost)}


def silence(desk, player, settings):
    """The longest silence between three tones, from what the sound card gets."""
    paths = [clips.make_tone(settings.cache, f"tone-{TONE}s-{k}", TONE) for k in range(TONES)]
    output = desk.folder / "heard"
    with open(output, "wb") as heard:
        recorder = subprocess.Popen(
            ["parec", "-d", "speaker.monitor", "--raw", "--format=s16le", "--channels=1"]
            + [f"--rate={RATE}", "--latency-msec=20"],
            env=desk.environment,
            stdout=heard,
            stderr=subprocess.DEVNULL,
        )
        try:
            machine.wait_for(lambda: output.stat().st_size > 0, 5)
            with Running(desk, player, paths):
                # the tones, and then half a second without any
                machine.wait_for(lambda: is_over(output), TONES * TONE + 10, 0.2)
        finally:
            machine.end(recorder)
    samples = figures.samples_of(output.read_bytes())
    if sum(abs(value) > 200 for value in samples) < LEAST * RATE:
        raise Nothing("the tones are not heard")
    gaps = figures.silences(samples, RATE)
    return {("silence between two tones", "ms", False): max(gaps, default=0)}


def is_over(output):
    samples = figures.samples_of(output.read_bytes())
    heard = sum(abs(value) > 200 for value in samples)
    return heard > LEAST * RATE and max(map(abs, samples[-RATE // 2 :])) < 200


def rows():
    return [("black", black), ("silence", silence)]
