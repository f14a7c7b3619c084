"""The table of ./bench: the program beside other players, in interleaved rounds."""

import argparse
import sys
import time
from dataclasses import dataclass
from pathlib import Path

from table import figures, machine
from table.desk import Desk
from table.players import OURS, all_players
from table.playing import Nothing
from table.row_list import all_rows

QUICK_PEERS = ("mpv", "VLC")


@dataclass
class Settings:
    cache: Path
    seconds: float  # of a clip that are measured
    rest: float  # seconds of rest that are measured
    build: Path


class Results:
    """Values of the rounds that are kept, reasons, and how many rounds were dropped."""

    def __init__(self):
        self.values = {}  # (name, unit, more) -> player -> [values]
        self.reasons = {}  # (row, player) -> reason
        self.dropped = 0
        self.kept = 0
        self.names = {}  # row -> its lines' keys

    def keep(self, row, one_round):
        self.kept += 1
        for player, outcome in one_round.items():
            if isinstance(outcome, str):
                self.reasons[row, player] = outcome
                continue
            for key, value in outcome.items():
                if key not in self.names.setdefault(row, []):
                    self.names[row].append(key)
                if value is not None:
                    self.values.setdefault(key, {}).setdefault(player, []).append(value)

    def lines(self, players):
        lines = []
        for row, keys in self.names.items():
            for key in keys:
                cells = {}
                for player in players:
                    values = self.values.get(key, {}).get(player)
                    cells[player] = figures.median(values) if values else self.reasons.get(
                        (row, player)
                    )
                lines.append((key[0], key[1], cells, key[2]))
        return lines


def say(text):
    print(text, file=sys.stderr, flush=True)


def one_turn(turn, desk, player, settings):
    try:
        if reason := player.missing():
            raise Nothing(reason)
        return turn(desk, player, settings)
    except Nothing as nothing:
        return str(nothing)
    finally:
        machine.reap()


def measure_row(row, turn, desk, players, settings, options, results):
    """Rounds until enough are kept, or as many again were dropped."""
    kept = 0
    for number in range(2 * options.rounds):
        gate = machine.LoadGate()
        outcomes = {p.name: one_turn(turn, desk, p, settings) for p in players}
        load = gate.load()
        loaded = figures.is_loaded(load)
        reasons = "; ".join(f"{who}: {why}" for who, why in outcomes.items() if isinstance(why, str))
        say(
            f"{row}, round {number + 1}: foreign load {load:.2f}"
            + (" - kept all the same" if loaded and options.any_load else " - dropped" * loaded)
            + (f" ({reasons})" if reasons else "")
        )
        if loaded and not options.any_load:
            results.dropped += 1
            continue
        results.dropped += loaded
        results.keep(row, outcomes)
        kept += 1
        if kept == options.rounds:
            return
    if kept == 0:
        say(f"{row}: no round without foreign load; --any-load would print it")


def options_of(arguments, names):
    parser = argparse.ArgumentParser(prog="./bench", description=__doc__)
    parser.add_argument("rows", nargs="*", metavar="ROW", help="(part of) a row's name: " + ", ".join(names))
    parser.add_argument("--rounds", type=int, default=0, help="of each row, 3 unless given")
    parser.add_argument("--quick", action="store_true", help="one round, short, beside mpv and VLC only")
    parser.add_argument("--any-load", action="store_true", help="rounds with foreign load count, too")
    parser.add_argument("--build", type=Path, required=True, help=argparse.SUPPRESS)
    parser.add_argument("--source", type=Path, required=True, help=argparse.SUPPRESS)
    parser.add_argument("--cache", type=Path, required=True, help=argparse.SUPPRESS)
    options = parser.parse_args(arguments)
    options.rounds = max(1, options.rounds or (1 if options.quick else 3))
    return options


def print_table(results, players, options, begun):
    loaded = " **Loaded: not for comparing.**" if options.any_load and results.dropped else ""
    print(f"{time.strftime('%-d %B %Y')}; {machine.description()}.{loaded}")
    print(
        f"Medians of {options.rounds} rounds in turns; {results.kept} rounds of rows kept, "
        f"{results.dropped} {'loaded' if options.any_load else 'dropped'} "
        f"(foreign load over {figures.LOADED:.2f} cores); {time.monotonic() - begun:.0f} s.\n"
    )
    print(figures.table(results.lines(players), players))


def main(arguments):
    rows = all_rows()
    options = options_of(arguments, [name for name, _ in rows])
    wanted = [r for r in rows if not options.rows or any(word in r[0] for word in options.rows)]
    if not wanted:
        say(f"no row of that name; there are {', '.join(name for name, _ in rows)}")
        return 2
    begun = time.monotonic()
    machine.keep_orphans()
    options.cache.mkdir(parents=True, exist_ok=True)
    settings = Settings(options.cache, 2 if options.quick else 3, 5 if options.quick else 10, options.build)
    players = [
        player
        for player in all_players(options.source, options.build)
        if not options.quick or player.name in (OURS, *QUICK_PEERS)
    ]
    results = Results()
    desk = Desk(options.build)
    try:
        for row, turn in wanted:
            measure_row(row, turn, desk, players, settings, options, results)
    except KeyboardInterrupt:
        say("interrupted; what was measured until now:")
    finally:
        desk.close()
    print_table(results, [player.name for player in players], options, begun)
    return 0 if results.kept else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
