"""What is computed from measured values: no process, no file, no clock."""

import array
import math

LOADED = 0.10  # of one core, by processes that are not ours


def median(values):
    """The lower middle one; None for none."""
    ordered = sorted(values)
    return ordered[(len(ordered) - 1) // 2] if ordered else None


def ratio(ours, peers):
    """Ours against the best peer, where less is better; None without either."""
    measured = [value for value in peers if value is not None]
    if ours is None or not measured:
        return None
    best = min(measured)
    if best == 0:
        return 1.0 if ours == 0 else math.inf
    return ours / best


def foreign_load(seconds, busy, own):
    """In cores: the machine's busy time without our processes', over so many seconds."""
    return max(0.0, busy - own) / seconds if seconds > 0 else 0.0


def is_loaded(load):
    return load > LOADED


def code_lines(text):
    """The eye's lines: [(seconds, number or None, x, y, width)]."""
    seen = []
    for line in text.splitlines():
        words = line.split()
        if len(words) == 2:
            seen.append((float(words[0]), None, 0, 0, 0))
        elif len(words) == 5:
            seen.append((float(words[0]), *(int(word) for word in words[1:])))
    return seen


def pictures_seen(seen, begin, end, rate):
    """The different pictures from begin to end, in percent of those that the clip has in it."""
    numbers = {number for time, number, *_ in seen if begin <= time < end and number is not None}
    return 100 * len(numbers) / ((end - begin) * rate)


def jitter(seen, begin, end, rate):
    """How far pictures change from their even moments: root of the mean square, in milliseconds.

    The moments are those of the clip, laid through the mean of what was seen; a picture that is
    left out is counted by pictures_seen, not here.
    """
    late = []
    last = None
    for time, number, *_ in seen:
        if begin <= time < end and number is not None and number != last:
            late.append(time - number / rate)
            last = number
    if len(late) < 2:
        return None
    mean = sum(late) / len(late)
    return 1000 * math.sqrt(sum((value - mean) ** 2 for value in late) / len(late))


def lost_between(seen, before, after):
    """Milliseconds without a picture from the last of one clip to the first of the next.

    before and after say by a number whether it is the clip's. None when the next one never came.
    """
    lost_at = None
    lost = 0.0
    was_before = False
    for time, number, *_ in seen:
        if lost_at is not None and number is not None:
            lost += time - lost_at
            lost_at = None
        if number is None:
            lost_at = time if was_before else None
        elif before(number):
            was_before = True
        elif was_before and after(number):
            return 1000 * lost
    return None


def silences(samples, rate, threshold=200, least=0.0005):
    """Pieces below the threshold between sound, in milliseconds; what is before the first sound and
    after the last is none. samples: signed 16 bit, one channel. A tone crosses zero: what is
    shorter than `least` seconds is none either."""
    gaps = []
    last = None
    for place, value in enumerate(samples):
        if abs(value) > threshold:
            if last is not None and place - last > least * rate:
                gaps.append(1000 * (place - last) / rate)
            last = place
    return gaps


def samples_of(data):
    """Signed 16 bit, little endian, as a recorder writes them."""
    samples = array.array("h")
    samples.frombytes(data[: len(data) // 2 * 2])
    return samples


def words_of(value, unit):
    """A value for the table, with three digits that count."""
    if value is None:
        return "-"
    if value == 0:
        text = "0"
    elif abs(value) >= 100:
        text = f"{value:.0f}"
    elif abs(value) >= 10:
        text = f"{value:.1f}"
    else:
        text = f"{value:.2f}"
    return f"{text} {unit}".strip()


def table(rows, players):
    """Markdown. rows: [(name, unit, {player: value or reason or None}, more_is_better)]."""
    lines = [
        "| | " + " | ".join(players) + " | against the best other |",
        "|---|" + "---|" * (len(players) + 1),
    ]
    for name, unit, values, more in rows:
        numbers = {who: v for who, v in values.items() if isinstance(v, (int, float))}
        cells = []
        for who in players:
            value = values.get(who)
            cells.append(f"- ({value})" if isinstance(value, str) else words_of(value, unit))
        ours = numbers.get(players[0])
        peers = [numbers[who] for who in players[1:] if who in numbers]
        if more:
            against = ratio(*inverted(ours, peers))
        else:
            against = ratio(ours, peers)
        cells.append(ratio_words(against))
        lines.append(f"| {name} | " + " | ".join(cells) + " |")
    return "\n".join(lines)


def ratio_words(against):
    if against is None:
        return "-"
    return "more than nothing" if math.isinf(against) else f"{against:.2f} ×"


def inverted(ours, peers):
    """Where more is better, the ratio is the best peer's against ours: above 1 is behind, as ever."""
    turned = [1 / value for value in peers if value]
    return (1 / ours if ours else None), turned
