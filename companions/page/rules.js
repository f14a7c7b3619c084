// What comes after what: pure rules, the player's own. Packets, clips and brakes count from 1;
// clip 0 stands before the first brake. A shape is the playlist as the rules see it:
// { packetCount, clipCount(p), packetChecked(p), clipChecked(p, q) }.

const Rules = (() => {
    const rounding = 0.01; // seconds; times in packets are hundredths
    const lastSecond = 1;

    const place = (packet, clip) => ({ packet, clip });
    const isSame = (a, b) => a.packet === b.packet && a.clip === b.clip;

    // The first checked clip of the packet from this one on; past the last when there is none.
    function checkedFrom(shape, packet, from) {
        const count = shape.clipCount(packet);
        if (!shape.packetChecked(packet)) {
            return count + 1;
        }
        let clip = from;
        while (clip <= count && !shape.clipChecked(packet, clip)) {
            ++clip;
        }
        return clip;
    }

    function checkedUpTo(shape, packet, upTo) {
        if (!shape.packetChecked(packet)) {
            return 0;
        }
        let clip = upTo;
        while (clip >= 1 && !shape.clipChecked(packet, clip)) {
            --clip;
        }
        return clip;
    }

    function firstPlaceFrom(shape, packet) {
        for (let p = packet; p <= shape.packetCount; ++p) {
            const clip = checkedFrom(shape, p, 1);
            if (clip <= shape.clipCount(p)) {
                return place(p, clip);
            }
        }
        return null;
    }

    function placeToBegin(shape, current) {
        if (current.packet < 1 || current.packet > shape.packetCount) {
            return firstPlaceFrom(shape, 1);
        }
        const clip = checkedFrom(shape, current.packet, Math.max(current.clip, 1));
        if (clip <= shape.clipCount(current.packet)) {
            return place(current.packet, clip);
        }
        return firstPlaceFrom(shape, current.packet + 1) ?? firstPlaceFrom(shape, 1);
    }

    const stay = (at) => ({ what: 'stay', place: at });
    const start = (at) => ({ what: 'start', place: at });
    const over = () => ({ what: 'over', place: place(1, 1) });

    // options: { nextClip, nextPacket, replay }. The playlist is begun again at most once.
    function nextAfterClip(options, shape, ended) {
        if (!options.nextClip) {
            return stay(ended);
        }
        const clip = checkedFrom(shape, ended.packet, ended.clip + 1);
        if (clip <= shape.clipCount(ended.packet)) {
            return start(place(ended.packet, clip));
        }
        if (!options.nextPacket) {
            return stay(ended);
        }
        const next = firstPlaceFrom(shape, ended.packet + 1)
            ?? (options.replay ? firstPlaceFrom(shape, 1) : null);
        return next ? start(next) : over();
    }

    function previousClip(shape, current) {
        let upTo = current.clip - 1;
        for (let p = current.packet; p >= 1; --p) {
            const clip = checkedUpTo(shape, p, upTo);
            if (clip >= 1) {
                return place(p, clip);
            }
            upTo = p > 1 ? shape.clipCount(p - 1) : 0;
        }
        return place(current.packet, Math.max(current.clip, 1));
    }

    // The line behind or before, checked or not. lineCount: of a packet; an end mark is none.
    function lineBehind(packetCount, lineCount, current) {
        let next = current.clip + 1;
        for (let p = Math.max(current.packet, 1); p <= packetCount; ++p) {
            if (next <= lineCount(p)) {
                return place(p, next);
            }
            next = 1;
        }
        return null;
    }

    function lineBefore(lineCount, current) {
        let upTo = current.clip - 1;
        for (let p = current.packet; p >= 1; --p) {
            const last = Math.min(upTo, lineCount(p));
            if (last >= 1) {
                return place(p, last);
            }
            upTo = Infinity;
        }
        return null;
    }

    // Brakes: times is a packet's list of seconds; null where no time can be read.
    function readableUpTo(times, brake) {
        let found = Math.min(brake, times.length);
        while (found >= 1 && times[found - 1] === null) {
            --found;
        }
        return Math.max(found, 0);
    }

    function readableBehind(times, brake) {
        let found = brake + 1;
        while (found <= times.length && times[found - 1] === null) {
            ++found;
        }
        return found;
    }

    const endMark = (times) => readableUpTo(times, times.length);

    const spansOf = (times) => Math.max(endMark(times) - 1, 0);

    // The end mark is its own next one; 0 when no time can be read.
    function brakeToReach(times, current) {
        const next = readableBehind(times, current);
        return next <= times.length ? next : endMark(times);
    }

    function timeOfNextBrake(times, current) {
        const brake = brakeToReach(times, current);
        return brake >= 1 ? times[brake - 1] : null;
    }

    function brakeSpan(times, current, duration) {
        const begin = readableUpTo(times, current);
        const end = readableBehind(times, current);
        return {
            begin: begin >= 1 ? times[begin - 1] : 0,
            end: end <= times.length ? times[end - 1] : duration,
        };
    }

    function passOver(times, unchecked, isChecked) {
        let brake = readableBehind(times, unchecked);
        while (brake <= times.length && !isChecked(brake)) {
            brake = readableBehind(times, brake);
        }
        return brake <= times.length ? { what: 'skip', brake } : { what: 'leave', brake: 0 };
    }

    // What to do at this position. Unchecked brakes are passed over, the end mark never is.
    function brakeReached(times, current, seconds, isChecked) {
        const time = timeOfNextBrake(times, current);
        if (time === null || seconds < time) {
            return { what: 'nothing', brake: 0 };
        }
        const brake = brakeToReach(times, current);
        if (brake <= current) {
            return { what: 'leave', brake: 0 };
        }
        return brake === endMark(times) || isChecked(brake)
            ? { what: 'reach', brake }
            : passOver(times, brake, isChecked);
    }

    // Whether the end mark is so near the end of the clip that the clip's end passes it.
    function endPassesLastBrake(times, duration) {
        const last = endMark(times);
        if (last < 1) {
            return false;
        }
        const left = duration - times[last - 1];
        return left <= lastSecond && left >= -rounding;
    }

    function brakeAt(times, seconds) {
        let brake = endMark(times);
        while (brake >= 1 && times[brake - 1] > seconds) {
            brake = readableUpTo(times, brake - 1);
        }
        return brake;
    }

    // Practice: { speed, times, wait, seconds, from, step, mirror }, as the player stores it:
    // percents; times 0 is endless; wait -1 is until a key, -2 as many seconds as said.
    const endless = 0;
    const noWait = 0;
    const waitForKey = -1;
    const waitForSeconds = -2;
    const slowest = 25;
    const fastest = 200;

    function nextAfterWait(practice) {
        return practice.times === endless ? 'again' : 'goOn';
    }

    function nextAfterLine(practice, roundsPlayed, seconds) {
        if (practice.times !== endless && roundsPlayed < practice.times) {
            return 'again';
        }
        const waits = practice.wait !== noWait && (practice.wait < noWait || seconds > 0);
        return waits ? 'wait' : nextAfterWait(practice);
    }

    // Real seconds; null: until a key.
    function waitAfterLine(practice, seconds, speed) {
        if (practice.wait === waitForKey) {
            return null;
        }
        return practice.wait === waitForSeconds
            ? practice.seconds
            : seconds / speed * practice.wait / 100;
    }

    function speedOfRound(practice, round) {
        const tempo = Math.min(practice.from + practice.step * (round - 1), 100);
        return Math.max(practice.speed * tempo / 100, slowest) / 100;
    }

    // Steps of 5 percent up to the normal speed, of 10 above it.
    function slowerThan(speed) {
        const step = speed > 100 ? 10 : 5;
        return Math.max(Math.floor((speed - 1) / step) * step, slowest);
    }

    function fasterThan(speed) {
        const step = speed >= 100 ? 10 : 5;
        return Math.min((Math.floor(speed / step) + 1) * step, fastest);
    }

    // None, until a key, as long as the line lasted.
    function waitBehind(wait) {
        return wait === noWait ? waitForKey : wait === waitForKey ? 100 : noWait;
    }

    // The next of the texts that holds what is wanted, from this one on; -1 for none.
    function findText(texts, wanted, first) {
        const upper = wanted.toUpperCase();
        if (upper === '') {
            return -1;
        }
        return texts.findIndex((text, i) => i >= first && text.toUpperCase().includes(upper));
    }

    return {
        place, isSame, firstPlaceFrom, placeToBegin, nextAfterClip, previousClip, lineBehind,
        lineBefore, endMark, spansOf, timeOfNextBrake, brakeSpan, brakeReached,
        endPassesLastBrake, brakeAt, nextAfterLine, nextAfterWait, waitAfterLine, speedOfRound,
        slowerThan, fasterThan, waitBehind, findText, endless, noWait, waitForKey,
        waitForSeconds,
    };
})();
