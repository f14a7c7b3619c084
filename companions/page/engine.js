// The lesson at work: what plays, what follows, waits and repeats. Decisions are the rules' alone.

const soonAfterBrake = 0.5; // seconds; a brake passed less than this ago is reached without a seek
const beforeBrake = 0.05; // seconds by which a seek may come out too early

class Engine {
    // lesson: the data; packets, lines and their marks. stage: a Stage. view: what shows it all.
    // options, practice: read each time.
    constructor(lesson, stage, view, settings) {
        this.lesson = lesson;
        this.stage = stage;
        this.view = view;
        this.settings = settings;
        this.cursor = Rules.place(0, 0);
        this.failures = new Set();
        this.way = 'itself';
        this.rounds = 0;
        this.line = '';
        this.wait = null; // { goOn, timer, practice }
        this.due = 0; // timer
        this.starts = 0;
        this.isOver = false;
        stage.on('ended', () => this.clipEnded());
        stage.on('failed', () => this.failed());
        stage.on('moved', () => this.look());
    }

    get options() {
        return this.settings.options;
    }

    get practice() {
        return this.settings.practice;
    }

    packet(p) {
        return this.lesson.packets[p - 1];
    }

    entry(place) {
        return this.packet(place.packet)?.lines[place.clip - 1];
    }

    get shape() {
        return {
            packetCount: this.lesson.packets.length,
            clipCount: (p) => this.packet(p).lines.length,
            packetChecked: (p) => this.packet(p).checked,
            clipChecked: (p, q) => this.packet(p).lines[q - 1].checked,
        };
    }

    times(p) {
        return this.packet(p).lines.map((line) => line.time);
    }

    lineCount(p) {
        return this.packet(p).hasBrakes ? Rules.spansOf(this.times(p))
            : this.packet(p).lines.length;
    }

    get isBraked() {
        return this.cursor.packet >= 1 && this.packet(this.cursor.packet).hasBrakes;
    }

    keyOf(place) {
        return this.packet(place.packet).hasBrakes ? `${place.packet}`
            : `${place.packet}:${place.clip}`;
    }

    get areBrakesLoaded() {
        return this.isBraked && this.stage.isLoaded(this.keyOf(this.cursor));
    }

    // --- Starting ---

    // way: 'itself', 'hand' (nothing else starts when this fails), 'playing' (a brake was reached).
    start(place, way, failures = new Set()) {
        this.giveUpWait();
        this.failures = failures;
        this.way = way;
        this.isOver = false;
        ++this.starts;
        this.view.showPicture(this.packet(place.packet).picture);
        this.startMedia(place, way);
        this.makeCurrent(place, way);
    }

    startMedia(place, way) {
        const packet = this.packet(place.packet);
        const seconds = packet.hasBrakes ? this.entry(place).time ?? 0 : 0;
        if (!this.stage.isLoaded(this.keyOf(place))) {
            const clip = packet.hasBrakes ? packet.media : this.entry(place).media;
            this.stage.load(clip, this.keyOf(place), seconds);
        } else if (way !== 'playing' || !this.isSoonAfter(seconds)) {
            this.stage.seek(seconds);
        }
        if (!this.stage.isEmpty) {
            this.stage.play();
        }
    }

    isSoonAfter(seconds) {
        const since = this.stage.time - seconds;
        return since >= -beforeBrake && since < soonAfterBrake;
    }

    makeCurrent(place, way) {
        this.setCursor(place);
        if (way !== 'playing' && !this.entry(place).checked) {
            this.entry(place).checked = true;
            this.view.showChecks(place);
        }
    }

    setCursor(place) {
        this.cursor = place;
        this.beginLine();
        this.view.showCurrent(place, this.entry(place)?.text ?? '');
    }

    // --- Ends ---

    clipEnded() {
        clearTimeout(this.due);
        const next = () => (this.isBraked ? this.brakedClipEnded() : this.advance());
        if (!this.practise(next)) {
            next();
        }
    }

    brakedClipEnded() {
        const ends = Rules.endPassesLastBrake(this.times(this.cursor.packet), this.stage.duration);
        if (ends) {
            this.leavePacket();
        } else {
            this.stage.pause();
            this.view.showState();
        }
    }

    advance() {
        this.apply(Rules.nextAfterClip(this.options, this.shape, this.cursor));
    }

    apply(decision, failures) {
        if (decision.what === 'start') {
            return this.start(decision.place, 'itself', failures);
        }
        if (decision.what === 'over') {
            this.stage.empty();
            this.cursor = decision.place;
            return this.listIsOver();
        }
        this.stage.empty();
        this.view.showState();
    }

    listIsOver() {
        this.isOver = true;
        this.giveUpWait();
        this.line = '';
        this.view.showOver();
    }

    // Whatever could not be played is not tried twice in one go.
    failed() {
        const from = { ...this.cursor };
        this.view.sayUnplayable(this.entry(from)?.text ?? '');
        if (this.way === 'hand' || from.packet < 1) {
            return this.view.showState();
        }
        const failures = new Set(this.failures).add(this.keyOf(from));
        if (this.isBraked) {
            from.clip = this.packet(from.packet).lines.length;
        }
        let decision = Rules.nextAfterClip(this.options, this.shape, from);
        if (decision.what === 'start' && failures.has(this.keyOf(decision.place))) {
            decision = { what: 'over', place: Rules.place(1, 1) };
        }
        this.apply(decision, failures);
    }

    // --- Brakes ---

    // Time has passed. Until the next brake a timer is set for the moment at which it is due.
    look() {
        clearTimeout(this.due);
        this.view.showPosition();
        if (!this.areBrakesLoaded || !this.stage.isRunning || !this.stage.isOpen) {
            return;
        }
        const time = Rules.timeOfNextBrake(this.times(this.cursor.packet), this.cursor.clip);
        if (time === null || this.stage.media.seeking) {
            return;
        }
        const left = time - this.stage.time;
        if (left < 0) {
            this.brakeReached();
        }
        // The brake behind may be due before anything else tells that time has passed.
        const next = left < 0 ? 0 : Math.max(left / this.stage.speed * 1000, 4);
        clearTimeout(this.due);
        this.due = setTimeout(() => this.look(), next);
    }

    decide(seconds) {
        const { packet, clip } = this.cursor;
        const isChecked = (brake) => this.packet(packet).checked
            && this.packet(packet).lines[brake - 1].checked;
        return Rules.brakeReached(this.times(packet), clip, seconds, isChecked);
    }

    brakeReached() {
        const decision = this.decide(this.stage.time);
        if (decision.what === 'nothing') {
            return;
        }
        if (!this.practise(() => this.goOnFromBrake())) {
            this.follow(decision);
        } else if (this.wait && Rules.nextAfterWait(this.practice) === 'goOn'
            && decision.what === 'reach') {
            this.stage.seek(this.nextTime());
        }
    }

    nextTime() {
        return Rules.timeOfNextBrake(this.times(this.cursor.packet), this.cursor.clip);
    }

    // After a wait what was due then is due still.
    goOnFromBrake() {
        const time = this.nextTime();
        if (time !== null) {
            this.follow(this.decide(time));
        }
    }

    follow(decision) {
        const { packet } = this.cursor;
        switch (decision.what) {
        case 'reach':
            return this.start(Rules.place(packet, decision.brake), 'playing');
        case 'skip':
            return this.start(Rules.place(packet, decision.brake), 'itself');
        case 'leave':
            return this.leavePacket();
        default:
            return undefined;
        }
    }

    leavePacket() {
        const next = Rules.firstPlaceFrom(this.shape, this.cursor.packet + 1)
            ?? (this.options.replay ? Rules.firstPlaceFrom(this.shape, 1) : null);
        this.stage.empty();
        if (next) {
            return this.start(next, 'itself');
        }
        this.cursor = Rules.place(this.cursor.packet, 0);
        return this.listIsOver();
    }

    // --- Practice ---

    get isLine() {
        const { packet, clip } = this.cursor;
        if (packet < 1 || clip < 1) {
            return false;
        }
        return !this.isBraked || clip < Rules.endMark(this.times(packet));
    }

    // The seconds of the media that the line covers.
    get span() {
        const { duration } = this.stage;
        const span = this.isBraked
            ? Rules.brakeSpan(this.times(this.cursor.packet), this.cursor.clip, duration)
            : { begin: 0, end: duration };
        return duration > 0 ? { begin: span.begin, end: Math.min(span.end, duration) } : span;
    }

    beginLine() {
        const line = `${this.starts}:${this.cursor.packet}:${this.cursor.clip}`;
        if (this.line !== line) {
            this.line = line;
            this.rounds = 0;
            this.giveUpWait();
            this.stage.setSpeed(Rules.speedOfRound(this.practice, 1));
        }
    }

    // The line has come to its end; false: nothing to practise, and next is not called.
    practise(next) {
        if (!this.isLine) {
            return false;
        }
        ++this.rounds;
        const { begin, end } = this.span;
        const decision = Rules.nextAfterLine(this.practice, this.rounds, end - begin);
        if (decision === 'again') {
            this.playAgain();
        } else if (decision === 'wait') {
            this.beginWait(next);
        }
        return decision !== 'goOn';
    }

    playAgain() {
        this.stage.setSpeed(Rules.speedOfRound(this.practice, this.rounds + 1));
        this.playFromStart();
        this.view.sayRound(this.rounds + 1);
    }

    playFromStart() {
        this.stage.seek(this.span.begin);
        this.stage.play();
    }

    beginWait(goOn) {
        this.stage.pause();
        this.wait = { goOn, timer: 0 };
        this.startWait();
    }

    startWait() {
        const { begin, end } = this.span;
        const speed = Rules.speedOfRound(this.practice, this.rounds);
        const seconds = Rules.waitAfterLine(this.practice, end - begin, speed);
        clearTimeout(this.wait.timer);
        if (seconds !== null) {
            this.wait.timer = setTimeout(() => this.goOn(), seconds * 1000);
        }
        this.view.showWait(seconds);
    }

    // Ends the wait as its time would.
    goOn() {
        if (!this.wait) {
            return;
        }
        const next = this.wait.goOn;
        this.giveUpWait();
        if (Rules.nextAfterWait(this.practice) === 'again') {
            this.playAgain();
        } else {
            next();
        }
    }

    giveUpWait() {
        if (this.wait) {
            clearTimeout(this.wait.timer);
            this.wait = null;
            this.view.hideWait();
        }
    }

    // before: the practice as it was.
    practiceChanged(before) {
        const now = this.practice;
        this.stage.setSpeed(Rules.speedOfRound(now, this.rounds + 1));
        if (this.wait && now.wait === Rules.noWait) {
            this.goOn();
        } else if (this.wait && (now.wait !== before.wait || now.seconds !== before.seconds)) {
            this.startWait();
        }
        this.look();
    }

    // --- What a person asks for ---

    play() {
        if (this.wait) {
            return this.goOn();
        }
        if (this.stage.isEmpty || this.stage.hasEnded) {
            return this.begin();
        }
        this.stage.play();
        return this.look();
    }

    begin() {
        const next = Rules.placeToBegin(this.shape, this.cursor);
        if (next) {
            this.start(next, 'itself');
        }
    }

    // Opens a place without playing it, for who goes on where somebody stopped.
    stand(place, seconds) {
        const packet = this.packet(place.packet);
        this.view.showPicture(packet.picture);
        const clip = packet.hasBrakes ? packet.media : this.entry(place).media;
        this.way = 'hand';
        this.stage.load(clip, this.keyOf(place), seconds);
        this.setCursor(place);
    }

    pause() {
        this.stage.pause();
    }

    toggle() {
        if (this.stage.isRunning) {
            this.pause();
        } else {
            this.play();
        }
    }

    // To the beginning of the clip.
    stop() {
        this.stage.pause();
        this.giveUpWait();
        this.seek(0);
    }

    // To the beginning of the line.
    stopAtLine() {
        this.giveUpWait();
        this.stage.pause();
        if (!this.stage.isEmpty) {
            this.stage.seek(this.span.begin);
        }
    }

    step(direction) {
        if (direction > 0 && this.wait && this.practice.times !== Rules.endless) {
            return this.goOn();
        }
        const lines = (p) => this.lineCount(p);
        const next = direction > 0
            ? Rules.lineBehind(this.lesson.packets.length, lines, this.cursor)
            : Rules.lineBefore(lines, this.cursor) ?? this.cursor;
        if (next && next.packet >= 1 && next.clip >= 1) {
            this.start(next, 'hand');
        }
        return undefined;
    }

    again() {
        if (this.cursor.packet < 1) {
            return;
        }
        this.giveUpWait();
        if (this.stage.isLoaded(this.keyOf(this.cursor))) {
            this.playFromStart();
        } else if (this.cursor.clip >= 1) {
            this.start(this.cursor, 'hand');
        }
    }

    nextChecked() {
        if (this.cursor.packet < 1) {
            return this.begin();
        }
        const asked = { nextClip: true, nextPacket: true, replay: false };
        const next = Rules.nextAfterClip(asked, this.shape, this.cursor);
        // Behind the clip's end nothing is to be heard.
        return this.apply(this.stage.isEmpty && this.leadsToEndMark(next)
            ? Rules.nextAfterClip(asked, this.shape, next.place) : next);
    }

    leadsToEndMark({ what, place }) {
        return what === 'start' && place.clip > 1 && this.packet(place.packet).hasBrakes
            && place.clip === Rules.endMark(this.times(place.packet));
    }

    previousChecked() {
        if (this.cursor.packet >= 1) {
            this.start(Rules.previousClip(this.shape, this.cursor), 'itself');
        }
    }

    // Outside the line the last brake before the new place becomes current.
    seek(seconds) {
        if (this.stage.isEmpty) {
            return;
        }
        this.giveUpWait();
        const { begin, end } = this.span;
        this.stage.seek(seconds);
        if (this.areBrakesLoaded && (seconds < begin || seconds >= end)) {
            const brake = Rules.brakeAt(this.times(this.cursor.packet), seconds);
            this.setCursor(Rules.place(this.cursor.packet, brake));
        }
        this.look();
    }
}
