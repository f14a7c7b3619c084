// The picture and the sound: one media element, and what a clip without a picture shows.

const onItsWay = 'on its way';

class Stage {
    // media: the element. shapes: called with 'picture' or 'sound' as soon as it is known what there
    // is to be seen.
    constructor(media) {
        this.media = media;
        this.sources = [];
        this.key = '';
        this.wanted = null; // seconds, as soon as the clip is open
        this.whole = ''; // the address of the whole file, where it had to be taken first
        this.events = {};
        this.isWantedRunning = false;
        this.listen();
        this.watchFrames();
    }

    // names: ended, failed, moved, changed, refused, opened.
    on(name, action) {
        this.events[name] = action;
    }

    tell(name, ...values) {
        this.events[name]?.(...values);
    }

    listen() {
        const when = (name, action) => this.media.addEventListener(name, action);
        when('ended', () => {
            this.isWantedRunning = false;
            this.tell('ended');
        });
        when('error', () => this.nextSource());
        when('loadedmetadata', () => this.opened());
        for (const name of ['timeupdate', 'seeked', 'playing']) {
            when(name, () => this.tell('moved'));
        }
        for (const name of ['play', 'pause', 'emptied', 'durationchange', 'waiting', 'playing']) {
            when(name, () => this.tell('changed'));
        }
    }

    // Where the browser says so, each picture that is shown is a sign that time has passed.
    watchFrames() {
        if (!('requestVideoFrameCallback' in this.media)) {
            return;
        }
        const frame = () => {
            this.tell('moved');
            this.media.requestVideoFrameCallback(frame);
        };
        this.media.requestVideoFrameCallback(frame);
    }

    // What the browser says it can play comes first; the last word has the clip itself.
    ordered(sources) {
        const doubt = (source) => source.type !== ''
            && this.media.canPlayType(source.type) === '' ? 1 : 0;
        return [...sources].sort((a, b) => doubt(a) - doubt(b));
    }

    // clip: { sources: [{ url, type }], hasPicture }. key: what is loaded, for isLoaded.
    load(clip, key, seconds) {
        this.empty();
        this.key = key;
        this.clip = clip;
        this.wanted = seconds;
        this.sources = this.ordered(clip.sources);
        if (this.sources.length === 0) {
            setTimeout(() => this.failed(key));
        } else {
            this.open(this.sources.shift());
        }
    }

    open(source) {
        this.media.src = source.url;
        this.media.load();
        if (this.isWantedRunning) {
            this.play();
        }
    }

    nextSource() {
        if (this.key === '' || !this.media.hasAttribute('src')) {
            return;
        }
        if (this.sources.length > 0) {
            this.open(this.sources.shift());
        } else {
            this.failed(this.key);
        }
    }

    failed(key) {
        if (key === this.key) {
            this.empty();
            this.tell('failed');
        }
    }

    opened() {
        const seconds = this.wanted ?? 0;
        this.wanted = null;
        if (seconds > 0) {
            this.seek(seconds);
        }
        this.tell('opened', this.media.videoWidth > 0);
    }

    isLoaded(key) {
        return this.key === key && key !== '';
    }

    get isEmpty() {
        return this.key === '';
    }

    empty() {
        this.key = '';
        this.sources = [];
        this.isWantedRunning = false;
        this.wanted = null;
        this.forgetWhole();
        this.media.pause();
        if (this.media.hasAttribute('src')) {
            this.media.removeAttribute('src');
            this.media.load();
        }
    }

    play() {
        this.isWantedRunning = true;
        if (this.whole === onItsWay) {
            return; // what is there so far is not where the clip is to begin
        }
        this.media.play()?.catch((error) => {
            if (error.name === 'NotAllowedError') {
                this.isWantedRunning = false;
                this.tell('refused');
            }
        });
    }

    pause() {
        this.isWantedRunning = false;
        this.media.pause();
    }

    get isRunning() {
        return this.isWantedRunning && !this.isEmpty;
    }

    get isOpen() {
        return this.media.readyState >= HTMLMediaElement.HAVE_METADATA && this.wanted === null;
    }

    get isBusy() {
        return this.isRunning && this.media.readyState < HTMLMediaElement.HAVE_FUTURE_DATA;
    }

    get hasEnded() {
        return this.media.ended;
    }

    // Servers that send a file only from its beginning let nobody go anywhere else in it.
    canReach(seconds) {
        const { seekable } = this.media;
        for (let i = 0; i < seekable.length; ++i) {
            if (seconds >= seekable.start(i) && seconds <= seekable.end(i) + 0.5) {
                return true;
            }
        }
        return seconds === 0;
    }

    get mayFetchWhole() {
        return this.whole === '' && location.protocol.startsWith('http');
    }

    // Takes the whole file first and goes on at this second of it.
    async fetchWhole(seconds) {
        const { key } = this;
        const address = this.media.currentSrc;
        this.wanted = seconds;
        this.media.pause();
        this.whole = onItsWay;
        this.tell('changed');
        try {
            const answer = await fetch(address);
            const file = await answer.blob();
            if (key === this.key && this.whole !== '') {
                this.whole = URL.createObjectURL(file);
                this.open({ url: this.whole });
            }
        } catch {
            this.failed(key);
        }
    }

    forgetWhole() {
        if (this.whole !== '') {
            URL.revokeObjectURL(this.whole);
            this.whole = '';
        }
    }

    // Seconds; where the clip will begin as long as it is not open.
    get time() {
        return this.wanted ?? this.media.currentTime;
    }

    // Seconds; 0 as long as it is not known.
    get duration() {
        return Number.isFinite(this.media.duration) ? this.media.duration : 0;
    }

    seek(seconds) {
        const wanted = Math.max(seconds, 0);
        const target = this.duration > 0 ? Math.min(wanted, this.duration) : wanted;
        if (this.wanted !== null || this.media.readyState < HTMLMediaElement.HAVE_METADATA) {
            this.wanted = wanted;
        } else if (!this.canReach(target) && this.mayFetchWhole) {
            this.fetchWhole(target);
        } else {
            this.media.currentTime = target;
        }
    }

    // 1: as recorded. Loading would set it back.
    setSpeed(speed) {
        this.media.defaultPlaybackRate = speed;
        this.media.playbackRate = speed;
    }

    get speed() {
        return this.media.playbackRate;
    }
}
