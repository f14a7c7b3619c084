// The page: everything together, and what a person does with it.

const keyStep = 5; // seconds
const minute = 60; // seconds
const quietAfter = 3000; // milliseconds without a sign of life in full screen
const sizes = ['normal', 'large', 'larger'];

class Page {
    constructor(data) {
        this.data = data;
        this.store = new Store(data.id);
        this.words = new Words(data.texts,
            this.store.get('language', data.language || Words.ofBrowser()));
        this.settings = {
            practice: { ...data.practice, ...this.store.get('practice', {}) },
            options: { ...data.options, ...this.store.get('options', {}) },
        };
        this.keys = new Keys(data.keys);
        this.lastFind = '';
        this.lastFound = -1;
        this.savedAt = 0;
        this.restoreChecks();
        this.assemble();
        this.listen();
        this.showLanguage();
        this.resume();
    }

    assemble() {
        element('title').textContent = this.data.title;
        element('page').hidden = false;
        this.stage = new Stage(element('media'));
        this.list = new List(element('list'), this.data, {
            start: (place) => this.engine.start(place, 'hand'),
            checksChanged: () => this.saveChecks(),
        });
        this.view = new View(this.data, this.words, this.list);
        this.engine = new Engine(this.data, this.stage, this.view, this.settings);
        this.view.stage = this.stage;
        this.view.engine = this.engine;
        this.sheets = new Sheets(this.words, this.settings, (before) => this.applied(before));
        this.stage.on('changed', () => this.view.showState());
        this.stage.on('opened', (hasPicture) => this.opened(hasPicture));
        this.stage.on('refused', () => this.view.say(this.words.text('refused')));
        this.view.onPosition = () => this.savePlace(false);
        this.view.onState = (state) => this.stateChanged(state);
        this.view.onCurrent = (place, text) => this.tellSystem(text);
    }

    opened(hasPicture) {
        this.view.showMedia(hasPicture);
        this.view.showPosition();
    }

    applied(before) {
        this.store.set(this.settings);
        this.engine.practiceChanged(before);
        this.view.showChips();
    }

    // --- Language ---

    showLanguage() {
        document.documentElement.lang = this.words.language;
        this.words.apply(document);
        element('language').textContent = this.words.text('language');
        element('language').lang = this.words.other;
        this.list.showMissing(this.words.text('missing'));
        element('text').dataset.empty = this.words.text('empty');
        this.sheets.show();
        this.sheets.showKeys(this.keys.list(this.words));
        this.showResume();
        this.view.showChips();
        this.view.showState();
        this.showSize(this.store.get('size', sizes[0]));
    }

    switchLanguage() {
        this.words.switch();
        this.store.set({ language: this.words.language });
        this.showLanguage();
    }

    // --- What is kept ---

    restoreChecks() {
        const clear = new Set(this.store.get('clear', []));
        const marks = this.store.get('clear', null) !== null;
        this.data.packets.forEach((packet, p) => {
            packet.checked = marks ? !clear.has(`${p + 1}`) : packet.checked;
            packet.lines.forEach((line, q) => {
                line.checked = marks ? !clear.has(`${p + 1}:${q + 1}`) : line.checked;
            });
        });
    }

    saveChecks() {
        const clear = [];
        this.data.packets.forEach((packet, p) => {
            if (!packet.checked) {
                clear.push(`${p + 1}`);
            }
            packet.lines.forEach((line, q) => {
                if (!line.checked) {
                    clear.push(`${p + 1}:${q + 1}`);
                }
            });
        });
        this.store.set({ clear });
    }

    savePlace(isLast) {
        const now = performance.now();
        if (this.engine.isOver) {
            return this.store.set({ place: null });
        }
        if (this.stage.isEmpty || !this.stage.isOpen || (!isLast && now - this.savedAt < 1000)) {
            return undefined;
        }
        this.savedAt = now;
        return this.store.set({ place: { ...this.engine.cursor, seconds: this.stage.time } });
    }

    isPlace(place) {
        const packet = this.data.packets[place?.packet - 1];
        return packet !== undefined && place.clip >= 1 && place.clip <= packet.lines.length
            && Number.isFinite(place.seconds);
    }

    resume() {
        const place = this.store.get('place', null);
        if (!this.isPlace(place)) {
            return;
        }
        this.resumed = place;
        this.showResume();
        element('resume').hidden = false;
        this.engine.stand(Rules.place(place.packet, place.clip), place.seconds);
    }

    showResume() {
        const seconds = clockText(this.resumed?.seconds ?? 0);
        element('resumeText').textContent = this.words.text('resume', seconds);
    }

    hideResume() {
        element('resume').hidden = true;
    }

    // --- The bookmark of a line, kept by its text as the player does it ---

    setBookmark() {
        if (this.stage.isEmpty) {
            return;
        }
        const text = element('text').textContent;
        const bookmarks = { ...this.store.get('bookmarks', {}), [text]: this.stage.time };
        this.store.set({ bookmarks });
        this.view.say(this.words.text('bookmark.set', clockText(this.stage.time)));
    }

    goToBookmark() {
        const seconds = this.store.get('bookmarks', {})[element('text').textContent];
        if (seconds === undefined) {
            this.view.say(this.words.text('bookmark.none'));
        } else {
            this.engine.seek(seconds);
        }
    }

    // --- Sound, size, screen ---

    setVolume(volume) {
        const value = Math.min(Math.max(volume, 0), 100);
        this.stage.media.volume = value / 100;
        element('volume').value = value;
        element('volume').style.setProperty('--part', `${value}%`);
        this.store.set({ volume: value });
    }

    stepVolume(step) {
        this.setVolume(Number(element('volume').value) + step);
    }

    showSize(size) {
        document.body.dataset.size = size;
    }

    nextSize() {
        const size = sizes[(sizes.indexOf(document.body.dataset.size) + 1) % sizes.length];
        this.showSize(size);
        this.store.set({ size });
    }

    get isFullScreen() {
        return document.fullscreenElement !== null && document.fullscreenElement !== undefined;
    }

    fillScreen(isWanted) {
        const player = element('player');
        if (!isWanted) {
            return this.isFullScreen ? document.exitFullscreen() : undefined;
        }
        if (player.requestFullscreen) {
            return player.requestFullscreen().catch(() => undefined);
        }
        return this.stage.media.webkitEnterFullscreen?.(); // telephones
    }

    screenChanged() {
        element('screen').setAttribute('aria-pressed', String(this.isFullScreen));
        this.wake();
    }

    // In full screen the controls hide while nobody stirs.
    wake() {
        clearTimeout(this.quiet);
        element('player').classList.remove('quiet');
        if (this.isFullScreen && this.stage.isRunning) {
            this.quiet = setTimeout(() => element('player').classList.add('quiet'), quietAfter);
        }
    }

    // --- The system's own player controls, where there are any ---

    tellSystem(text) {
        if (!('mediaSession' in navigator) || !('MediaMetadata' in window)) {
            return;
        }
        const packet = this.engine.packet(this.engine.cursor.packet);
        navigator.mediaSession.metadata = new MediaMetadata({
            title: text, album: packet?.title ?? '', artist: this.data.title,
        });
    }

    offerSystem() {
        const actions = {
            play: () => this.engine.play(),
            pause: () => this.engine.pause(),
            stop: () => this.engine.stopAtLine(),
            nexttrack: () => this.engine.nextChecked(),
            previoustrack: () => this.engine.previousChecked(),
        };
        for (const [name, action] of Object.entries(actions)) {
            navigator.mediaSession?.setActionHandler(name, action);
        }
    }

    stateChanged(state) {
        if (state === 'running') {
            this.hideResume();
        } else {
            this.savePlace(true);
        }
        this.wake();
    }

    // --- Find ---

    goToFindBox() {
        element('find').focus();
        element('find').select();
    }

    find(startsIt) {
        const wanted = element('find').value;
        const isNew = wanted !== '' && wanted !== this.lastFind;
        if (!startsIt || isNew) {
            const first = wanted === this.lastFind ? this.lastFound + 1 : 0;
            const row = this.list.find(wanted, first);
            this.lastFind = wanted;
            this.lastFound = row >= 0 ? row : this.lastFound;
            this.showFound(row >= 0 || wanted === '');
            if (row < 0) {
                return;
            }
        }
        if (startsIt) {
            this.list.startCursor();
        }
    }

    showFound(isFound) {
        element('find').classList.toggle('missed', !isFound);
        clearTimeout(this.missed);
        if (!isFound) {
            this.view.say(this.words.text('find.missed'));
            this.missed = setTimeout(() => element('find').classList.remove('missed'), 2000);
        }
    }

    // --- Commands ---

    get commands() {
        const { engine, sheets } = this;
        return {
            PlayLine: () => (document.activeElement === element('find') ? this.find(true)
                : this.list.startCursor()),
            CheckLine: () => this.list.toggle(),
            TogglePlay: () => engine.toggle(),
            Play: () => engine.play(),
            Pause: () => engine.pause(),
            Stop: () => engine.stop(),
            StopButton: () => engine.stopAtLine(),
            NextLine: () => engine.step(1),
            PreviousLine: () => engine.step(-1),
            LineAgain: () => engine.again(),
            NextClip: () => engine.nextChecked(),
            PreviousClip: () => engine.previousChecked(),
            RepeatLine: () => sheets.toggleRepeat(),
            Slower: () => sheets.set({ speed: Rules.slowerThan(sheets.practice.speed) }),
            Faster: () => sheets.set({ speed: Rules.fasterThan(sheets.practice.speed) }),
            NormalSpeed: () => sheets.set({ speed: 100 }),
            NextWait: () => sheets.nextWait(),
            StepBack: () => engine.seek(this.stage.time - keyStep),
            StepForward: () => engine.seek(this.stage.time + keyStep),
            MinuteBack: () => engine.seek(this.stage.time - minute),
            MinuteForward: () => engine.seek(this.stage.time + minute),
            VolumeUp: () => this.stepVolume(5),
            VolumeDown: () => this.stepVolume(-5),
            SetBookmark: () => this.setBookmark(),
            GoToBookmark: () => this.goToBookmark(),
            FillScreen: () => this.fillScreen(true),
            LeaveScreen: () => this.fillScreen(false),
            ToggleFullScreen: () => this.fillScreen(!this.isFullScreen),
            LeaveFullScreen: () => this.fillScreen(false),
            Find: () => this.goToFindBox(),
            FindAgain: () => this.find(false),
            Help: () => sheets.open('keySheet'),
        };
    }

    // True when it was a key of ours. The second Ctrl+F, in the find box, is the browser's.
    press(event) {
        const inList = element('list').contains(event.target);
        if (document.querySelector('dialog[open]') || event.isComposing || Keys.isKept(event)) {
            return false;
        }
        const command = this.keys.commandOf(event, inList);
        if (command === '') {
            return inList && !event.ctrlKey && !event.altKey && !event.metaKey
                && this.list.press(event.key);
        }
        if (command === 'Find' && event.target === element('find')) {
            return false;
        }
        this.commands[command]?.();
        return command in this.commands;
    }

    listen() {
        document.addEventListener('keydown', (event) => {
            this.wake();
            if (this.press(event)) {
                event.preventDefault();
            }
        });
        const click = (id, action) => element(id).addEventListener('click', action);
        const { engine, sheets } = this;
        click('play', () => engine.toggle());
        click('begin', () => engine.play());
        click('stage', (event) => {
            if (event.target !== element('begin') && !element('begin').contains(event.target)
                && !element('wait').contains(event.target)) {
                engine.toggle();
            }
        });
        element('stage').addEventListener('dblclick', () => this.fillScreen(!this.isFullScreen));
        click('wait', () => engine.goOn());
        click('previous', () => engine.step(-1));
        click('next', () => engine.step(1));
        click('again', () => engine.again());
        click('repeat', () => sheets.toggleRepeat());
        click('waiting', () => sheets.nextWait());
        click('size', () => this.nextSize());
        click('screen', () => this.fillScreen(!this.isFullScreen));
        click('language', () => this.switchLanguage());
        click('resumeGo', () => engine.play());
        click('resumeStart', () => this.startAnew());
        this.listenToBoxes();
        this.offerSystem();
    }

    startAnew() {
        this.hideResume();
        this.engine.cursor = Rules.place(0, 0);
        this.stage.empty();
        this.engine.begin();
    }

    listenToBoxes() {
        element('finder').addEventListener('submit', (event) => {
            event.preventDefault();
            this.find(false);
        });
        const position = element('position');
        position.addEventListener('input', () => {
            this.view.isHeld = true;
            this.seekTo(position.value);
        });
        for (const name of ['change', 'pointerup', 'pointercancel', 'blur']) {
            position.addEventListener(name, () => {
                this.view.isHeld = false;
            });
        }
        element('volume').addEventListener('input', (event) =>
            this.setVolume(Number(event.target.value)));
        this.setVolume(this.store.get('volume', 100));
        document.addEventListener('fullscreenchange', () => this.screenChanged());
        element('player').addEventListener('pointermove', () => this.wake());
        addEventListener('pagehide', () => this.savePlace(true));
        document.addEventListener('visibilitychange', () => this.savePlace(true));
    }

    // value: of the slider, thousandths of the line.
    seekTo(value) {
        const { begin, end } = this.engine.span;
        this.engine.seek(Math.min(begin + value / 1000 * (end - begin), end - 0.01));
    }
}

new Page(JSON.parse(element('lesson').textContent));
