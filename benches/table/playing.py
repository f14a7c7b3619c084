"""Rows with a running clip: processor, memory, pictures, jitter."""

import time

from table import clips, figures, machine
from table.desk import SIZE, Eye
from table.players import Running

WINDOW = 1280  # the picture's width in a window, whatever the clip's


class Nothing(Exception):
    """Why a player has no value in a row."""


def first_picture(eye, running, seconds=15):
    seen = eye.first(lambda line: True, seconds, running.launched)
    if seen is None:
        raise Nothing("shows nothing")
    return seen


def playing(clip, whole):
    """The turn that plays this clip in a window or on the whole screen."""
    place = "whole screen" if whole else "window"

    def turn(desk, player, settings):
        path = clips.make(clip, settings.cache)
        with Eye(desk) as eye, Running(desk, player, [path], whole) as running:
            first = first_picture(eye, running)
            width = SIZE[0] if whole else WINDOW
            if not (running.fill(eye) if whole else running.fit(eye, clip, width)):
                raise Nothing(f"not {width} wide" if not whole else "does not fill the screen")
            time.sleep(0.7)  # what the new size leaves to be done
            return watch(eye, running, clip, first[0], settings.seconds, place)

    return turn


def watch(eye, running, clip, started, seconds, place):
    begin = time.monotonic()
    if begin + seconds > started + clip.seconds - 0.3:
        raise Nothing("the clip is over before it is measured")
    before = machine.processor_seconds(running.pid)
    time.sleep(seconds)
    used = machine.processor_seconds(running.pid) - before
    end = time.monotonic()
    memory = machine.megabytes(running.pid)
    seen = eye.seen()
    pictures = figures.pictures_seen(seen, begin, end, clip.rate)
    if pictures == 0:
        raise Nothing("its picture does not move")
    name = f"{clip.name}, {place}"
    return {
        (f"{name}: processor", "%", False): 100 * used / (end - begin),
        (f"{name}: memory", "MB", False): memory,
        (f"{name}: pictures seen", "%", True): pictures,
        (f"{name}: jitter", "ms", False): figures.jitter(seen, begin, end, clip.rate),
    }


def rows():
    return [
        (f"{clip.name}-{'whole' if whole else 'window'}", playing(clip, whole))
        for clip in clips.PLAYED
        for whole in (False, True)
    ]
