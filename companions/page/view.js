// What the page shows of the lesson at work.

const element = (id) => document.getElementById(id);

const noticeTime = 6000; // milliseconds

class View {
    constructor(lesson, words, list) {
        this.lesson = lesson;
        this.words = words;
        this.list = list;
        this.stage = null; // set with the engine
        this.engine = null;
        this.isHeld = false; // the position is being dragged
        this.notice = 0;
    }

    say(text) {
        clearTimeout(this.notice);
        element('notice').textContent = text;
        this.notice = setTimeout(() => {
            element('notice').textContent = '';
        }, noticeTime);
    }

    showPicture(url) {
        const picture = element('picture');
        if (url === '') {
            picture.removeAttribute('src');
        } else if (picture.getAttribute('src') !== url) {
            picture.src = url;
        }
    }

    // hasPicture: whether the clip itself moves.
    showMedia(hasPicture) {
        element('media').hidden = !hasPicture;
        element('picture').hidden = hasPicture || !element('picture').hasAttribute('src');
        element('stage').classList.toggle('still', !hasPicture);
        if (!hasPicture && this.stage.clip?.hasPicture) {
            this.say(this.words.text('noPicture'));
        }
    }

    showChecks(place) {
        this.list.showCheck(this.list.rowOf(place));
        this.list.actions.checksChanged();
    }

    showCurrent(place, text) {
        element('text').textContent = text;
        this.list.showCurrent(place);
        this.showRound(0);
        this.showState();
        this.showPosition();
        this.onCurrent?.(place, text);
    }

    get state() {
        return this.stage.isRunning ? 'running' : this.stage.isEmpty ? 'empty' : 'paused';
    }

    showState() {
        const { state } = this;
        document.body.dataset.state = state;
        element('playSign').setAttribute('href', `#sign-${state === 'running' ? 'pause' : 'play'}`);
        const name = this.words.text(state === 'running' ? 'pause' : 'play');
        element('play').title = name;
        element('play').setAttribute('aria-label', name);
        element('begin').hidden = state === 'running' || this.engine.wait !== null;
        element('stage').classList.toggle('busy', this.stage.isBusy);
        this.list.showState(state);
        this.onState?.(state);
    }

    showOver() {
        this.list.showCurrent(Rules.place(0, 0));
        this.showState();
        this.showPosition();
        this.say(this.words.text('over'));
    }

    sayUnplayable(name) {
        this.say(this.words.text('unplayable', name));
    }

    // Within the line, as the player's slider.
    showPosition() {
        const { begin, end } = this.engine.span;
        const isKnown = !this.stage.isEmpty && end > begin;
        const seconds = Math.min(Math.max(this.stage.time - begin, 0), Math.max(end - begin, 0));
        element('time').textContent = clockText(isKnown ? seconds : 0);
        element('length').textContent = clockText(isKnown ? end - begin : 0);
        const slider = element('position');
        slider.disabled = !isKnown;
        if (!this.isHeld) {
            slider.value = isKnown ? Math.round(seconds / (end - begin) * 1000) : 0;
        }
        slider.setAttribute('aria-valuetext', element('time').textContent);
        slider.style.setProperty('--part', `${slider.value / 10}%`);
        this.onPosition?.();
    }

    sayRound(round) {
        this.showRound(round);
        this.say(this.words.round(round, this.engine.practice.times));
    }

    showRound(round) {
        this.round = round;
        this.showChips();
    }

    // What is not as usual, beside the text; the speed has its box.
    showChips() {
        const { practice } = this.engine;
        const chips = [];
        if (practice.times !== 1) {
            chips.push(this.round > 1 ? this.words.round(this.round, practice.times)
                : this.words.times(practice.times));
        }
        if (practice.wait !== Rules.noWait) {
            chips.push(this.words.waitChip(practice));
        }
        element('chips').replaceChildren(...chips.map((text) => {
            const chip = document.createElement('span');
            chip.textContent = text;
            return chip;
        }));
    }

    // seconds: null until a key.
    showWait(seconds) {
        element('wait').hidden = false;
        element('waitText').textContent = this.words.text('waiting');
        const ring = element('ring');
        ring.getAnimations?.().forEach((animation) => animation.cancel());
        if (seconds !== null) {
            ring.animate?.([{ strokeDashoffset: 0 }, { strokeDashoffset: 100 }],
                { duration: seconds * 1000, fill: 'forwards' });
        }
        this.showState();
    }

    hideWait() {
        element('wait').hidden = true;
        element('waitText').textContent = '';
        element('ring').getAnimations?.().forEach((animation) => animation.cancel());
        this.showState();
    }
}
