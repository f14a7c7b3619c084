"""Processes and the machine as /proc tells of them."""

import ctypes
import os
import signal
import time
from pathlib import Path

from table import figures

TICKS = os.sysconf("SC_CLK_TCK")
PR_SET_CHILD_SUBREAPER = 36


def keep_orphans():
    """Processes whose parents end become ours, so that nothing that we started is taken for foreign."""
    ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


def _stat(pid):
    try:
        text = Path(f"/proc/{pid}/stat").read_text()
    except OSError:
        return None
    return text[text.rindex(")") + 2 :].split()  # from the third field on


def tree(root):
    """The process and all that descend from it."""
    children = {}
    for entry in os.listdir("/proc"):
        if entry.isdigit() and (stat := _stat(entry)):
            children.setdefault(int(stat[1]), []).append(int(entry))
    found = [root]
    for pid in found:
        found.extend(children.get(pid, ()))
    return found


def processor_seconds(root):
    """User and system time of a tree, with children that have ended and were waited for."""
    ticks = 0
    for pid in tree(root):
        if stat := _stat(pid):
            ticks += sum(int(value) for value in stat[11:15])
    return ticks / TICKS


def megabytes(root):
    """Proportional set size of a tree."""
    kilobytes = 0
    for pid in tree(root):
        try:
            rollup = Path(f"/proc/{pid}/smaps_rollup").read_text()
        except OSError:
            continue
        kilobytes += sum(int(line.split()[1]) for line in rollup.splitlines() if line[:4] == "Pss:")
    return kilobytes / 1024


def wake_ups(root):
    """Of all threads of a tree: how often they waited."""
    count = 0
    for pid in tree(root):
        for status in Path(f"/proc/{pid}/task").glob("*/status"):
            try:
                lines = status.read_text().splitlines()
            except OSError:
                continue
            count += sum(int(line.split()[1]) for line in lines if line.startswith("voluntary_"))
    return count


def busy_seconds():
    """Of all cores together."""
    words = Path("/proc/stat").read_text().split("\n", 1)[0].split()[1:]
    user, nice, system, _idle, _wait, irq, soft, steal = (int(word) for word in words[:8])
    return (user + nice + system + irq + soft + steal) / TICKS


class LoadGate:
    """Measures, from its making on, what processes load the machine that are not ours."""

    def __init__(self):
        self._begin = self._now()

    @staticmethod
    def _now():
        return time.monotonic(), busy_seconds(), processor_seconds(os.getpid())

    def load(self):
        """In cores."""
        clock, busy, own = (now - then for now, then in zip(self._now(), self._begin))
        return figures.foreign_load(clock, busy, own)


def wait_for(condition, seconds=10, step=0.02):
    """The condition's first true value; its last one at the limit."""
    end = time.monotonic() + seconds
    while not (value := condition()) and time.monotonic() < end:
        time.sleep(step)
    return value


def end(process, patience=3):
    """Ends what we started, with all that descends from it."""
    pids = tree(process.pid)
    for sign in (signal.SIGTERM, signal.SIGKILL):
        for pid in pids:
            try:
                os.kill(pid, sign)
            except ProcessLookupError:
                pass
        wait_for(lambda: process.poll() is not None, patience)
        pids = [pid for pid in pids if (stat := _stat(pid)) and stat[0] != "Z"]
    reap()


def reap():
    """Takes the orphans that have ended; subprocess takes its own, whose status is lost at most."""
    for pid in tree(os.getpid())[1:]:
        stat = _stat(pid)
        if stat and stat[0] == "Z" and int(stat[1]) == os.getpid():
            try:
                os.waitpid(pid, os.WNOHANG)
            except ChildProcessError:
                pass


def description():
    """One line: cores, memory, processor, kernel."""
    cpu = "unknown processor"
    for line in Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            cpu = line.split(":", 1)[1].strip()
    memory = int(Path("/proc/meminfo").read_text().split()[1]) / 1024 / 1024
    system = next(
        line.split("=", 1)[1].strip('"')
        for line in Path("/etc/os-release").read_text().splitlines()
        if line.startswith("PRETTY_NAME=")
    )
    cores = os.sysconf("SC_NPROCESSORS_ONLN")
    return f"{cores} cores ({cpu}), {memory:.0f} GB, {system}, Linux {os.uname().release}, Xvfb"
