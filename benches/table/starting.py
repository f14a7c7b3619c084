"""Rows about launches and rest: start, first picture, hand-over, what an idle player costs."""

import time

from table import clips, machine
from table.desk import Eye
from table.players import Running
from table.playing import Nothing, first_picture

SEPARATE = ("mpv", "VLC")
IDLE = {"mpv": ["--idle", "--force-window"]}


def first(desk, player, settings):
    """From the launch with a clip to its first picture on the screen."""
    path = clips.make(clips.PLAYED[0], settings.cache)
    with Eye(desk) as eye, Running(desk, player, [path]) as running:
        seen = first_picture(eye, running)
        return {("launch to first picture", "ms", False): 1000 * (seen[0] - running.launched)}


def hand_over(desk, player, settings):
    """From a second launch with another clip to that one's first picture, the program running.

    A peer that starts beside itself has two windows, and hands nothing over.
    """
    if player.name in SEPARATE:
        raise Nothing("starts beside itself")
    path = clips.make(clips.PLAYED[0], settings.cache)
    other = clips.make(clips.SECOND, settings.cache)
    with Eye(desk) as eye, Running(desk, player, [path]) as running:
        first_picture(eye, running)
        time.sleep(0.5)  # the launch's own work is over
        begun = time.monotonic()
        later = running.launch([str(other)])
        try:
            seen = eye.first(lambda line: line[1] >= clips.SECOND.first, 10, begun)
        finally:
            machine.end(later)
    if seen is None:
        raise Nothing("the second clip is not seen")
    return {("second launch to its clip's picture", "ms", False): 1000 * (seen[0] - begun)}


def shown(desk, player):
    """An idle player whose window is on the screen; the caller ends it. With the time it took."""
    before = {window[0] for window in desk.windows()}
    running = Running(desk, player, IDLE.get(player.name, []))
    if not machine.wait_for(lambda: {w[0] for w in desk.windows()} - before, 10, 0.005):
        machine.end(running.process)
        raise Nothing("shows no window without a clip")
    return running, time.monotonic() - running.launched


def rest(desk, player, settings):
    """The start until a window is there, and what is used from two seconds after it."""
    running, started = shown(desk, player)
    with running:
        time.sleep(2)  # what a start leaves to be done
        begin = time.monotonic()
        used = machine.processor_seconds(running.pid)
        woken = machine.wake_ups(running.pid)
        time.sleep(settings.rest)
        seconds = time.monotonic() - begin
        return {
            ("start to a window", "ms", False): 1000 * started,
            ("rest: processor", "%", False): 100
            * (machine.processor_seconds(running.pid) - used)
            / seconds,
            ("rest: wake-ups a second", "", False): (machine.wake_ups(running.pid) - woken) / seconds,
            ("rest: memory", "MB", False): machine.megabytes(running.pid),
        }


def rows():
    return [("first-picture", first), ("hand-over", hand_over), ("rest", rest)]
