// The texts of the page in its two languages.

class Words {
    // texts: { en: { key: text }, ru: … }
    constructor(texts, language) {
        this.texts = texts;
        this.language = language in texts ? language : 'en';
    }

    static ofBrowser() {
        const preferred = navigator.languages?.[0] ?? navigator.language ?? 'en';
        return preferred.toLowerCase().startsWith('ru') ? 'ru' : 'en';
    }

    // %1, %2 … in the text are replaced.
    text(key, ...values) {
        const text = this.texts[this.language][key] ?? key;
        return text.replace(/%(\d)/g, (mark, number) => String(values[number - 1] ?? mark));
    }

    get other() {
        return this.language === 'en' ? 'ru' : 'en';
    }

    switch() {
        this.language = this.other;
    }

    number(value) {
        return value.toLocaleString(this.language, { maximumSignificantDigits: 3 });
    }

    speed(percent) {
        return `${this.number(percent / 100)}\u00a0×`;
    }

    times(times) {
        if (times === Rules.endless || times === 1) {
            return this.text(times === 1 ? 'practice.times.once' : 'practice.times.endless');
        }
        const isFew = times % 10 >= 2 && times % 10 <= 4 && Math.floor(times / 10) % 10 !== 1;
        return this.text(isFew ? 'practice.times.few' : 'practice.times.many', times);
    }

    wait(wait, seconds) {
        switch (wait) {
        case Rules.noWait:
            return this.text('practice.wait.none');
        case Rules.waitForKey:
            return this.text('practice.wait.key');
        case Rules.waitForSeconds:
            return this.text('practice.wait.seconds', seconds);
        case 100:
            return this.text('practice.wait.once');
        default:
            return this.text('practice.wait.length', this.number(wait / 100));
        }
    }

    waitChip({ wait, seconds }) {
        if (wait === Rules.waitForKey) {
            return this.text('practice.chip.wait.key');
        }
        return wait === Rules.waitForSeconds ? this.text('practice.chip.wait.seconds', seconds)
            : this.text('practice.chip.wait', this.number(wait / 100));
    }

    round(round, times) {
        return times === Rules.endless ? this.text('practice.round.endless', round)
            : this.text('practice.round', round, times);
    }

    // To all elements below: data-text is the text, data-tip the tool tip and the name.
    apply(root) {
        for (const element of root.querySelectorAll('[data-text]')) {
            element.textContent = this.text(element.dataset.text);
        }
        for (const element of root.querySelectorAll('[data-tip]')) {
            element.title = this.text(element.dataset.tip);
            element.setAttribute('aria-label', element.title);
        }
        for (const element of root.querySelectorAll('[data-hint]')) {
            element.placeholder = this.text(element.dataset.hint);
        }
    }
}

// Seconds as "1:04"; with hours from the first one on.
function clockText(seconds) {
    const whole = Number.isFinite(seconds) ? Math.max(Math.floor(seconds), 0) : 0;
    const two = (value) => String(value).padStart(2, '0');
    const hours = Math.floor(whole / 3600);
    const minutes = Math.floor(whole / 60) % 60;
    return hours > 0 ? `${hours}:${two(minutes)}:${two(whole % 60)}`
        : `${minutes}:${two(whole % 60)}`;
}
