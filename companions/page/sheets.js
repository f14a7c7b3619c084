// The choices: speed, repeats, waiting, what follows by itself; and the sheet of keys.

class Sheets {
    // settings: { practice, options }; changed(before): stores and applies it.
    constructor(words, settings, changed) {
        this.words = words;
        this.settings = settings;
        this.changed = changed;
        this.timesBefore = 1; // before endless repeats
        this.listen();
    }

    get practice() {
        return this.settings.practice;
    }

    set(values) {
        const before = this.practice;
        if (before.times !== Rules.endless) {
            this.timesBefore = before.times;
        }
        this.settings.practice = { ...before, ...values };
        this.show();
        this.changed(before);
    }

    setOption(name, isOn) {
        this.settings.options = { ...this.settings.options, [name]: isOn };
        this.changed(this.practice);
    }

    toggleRepeat() {
        const { times } = this.practice;
        this.set({ times: times === Rules.endless ? this.timesBefore : Rules.endless });
    }

    nextWait() {
        this.set({ wait: Rules.waitBehind(this.practice.wait) });
    }

    normal() {
        this.set({ speed: 100, times: 1, wait: Rules.noWait, from: 100, step: 0, mirror: false });
    }

    listen() {
        const choice = (id, name) => element(id).addEventListener('change', (event) =>
            this.set({ [name]: Number(event.target.value) }));
        choice('speed', 'speed');
        choice('sheetSpeed', 'speed');
        choice('times', 'times');
        choice('from', 'from');
        choice('step', 'step');
        element('waitChoice').addEventListener('change', (event) => this.chooseWait(event));
        element('mirror').addEventListener('change', (event) =>
            this.set({ mirror: event.target.checked }));
        for (const name of ['nextClip', 'nextPacket', 'replay']) {
            element(name).addEventListener('change', (event) =>
                this.setOption(name, event.target.checked));
        }
        element('normal').addEventListener('click', () => this.normal());
        element('practice').addEventListener('click', () => this.open('practiceSheet'));
        element('helpButton').addEventListener('click', () => this.open('keySheet'));
    }

    // "s5" is a wait of five seconds.
    chooseWait({ target: { value } }) {
        this.set(value.startsWith('s')
            ? { wait: Rules.waitForSeconds, seconds: Number(value.slice(1)) }
            : { wait: Number(value) });
    }

    open(id) {
        if (!element(id).open) {
            element(id).showModal();
        }
    }

    // choices: [[value, text]]; a value that is in none of them gets a line of its own.
    fill(id, choices, value, textOf) {
        const select = element(id);
        const isKnown = choices.some(([choice]) => String(choice) === String(value));
        const all = isKnown ? choices : [...choices, [value, textOf(value)]];
        select.replaceChildren(...all.map(([choice, text]) => new Option(text, choice)));
        select.value = String(value);
    }

    show() {
        const { speed, times, wait, seconds, from, step, mirror } = this.practice;
        const { words } = this;
        const list = (values, text) => values.map((value) => [value, text(value)]);
        const speedText = (value) => words.speed(value);
        const speeds = list([25, 50, 60, 70, 75, 80, 90, 100, 110, 120, 150, 200], speedText);
        this.fill('speed', speeds, speed, speedText);
        this.fill('sheetSpeed', speeds, speed, speedText);
        const timesText = (value) => words.times(value);
        this.fill('times', list([1, 2, 3, 4, 5, 10, 0], timesText), times, timesText);
        const isSeconds = wait === Rules.waitForSeconds;
        const waitText = (value) => (String(value).startsWith('s')
            ? words.wait(Rules.waitForSeconds, String(value).slice(1)) : words.wait(value, 0));
        this.fill('waitChoice', list([0, -1, 50, 100, 150, 200, 's2', 's5', 's10'], waitText),
            isSeconds ? `s${seconds}` : wait, waitText);
        const fromText = (value) => words.text(value === 100 ? 'practice.from.normal' : 'practice.from', value);
        this.fill('from', list([100, 90, 80, 70, 60, 50], fromText), from, fromText);
        const stepText = (value) => words.text('practice.step', value);
        this.fill('step', list([0, 5, 10, 20], stepText), step, stepText);
        element('step').disabled = from === 100;
        element('mirror').checked = mirror;
        this.showSwitches();
    }

    showSwitches() {
        const { times, wait, mirror } = this.practice;
        const press = (id, isOn) => element(id).setAttribute('aria-pressed', String(isOn));
        press('repeat', times === Rules.endless);
        press('waiting', wait !== Rules.noWait);
        element('media').classList.toggle('mirrored', mirror);
        for (const [name, isOn] of Object.entries(this.settings.options)) {
            element(name).checked = isOn;
        }
    }

    showKeys(rows) {
        element('keyRows').replaceChildren(...rows.map(({ keys, name }) => {
            const row = document.createElement('tr');
            const cell = row.insertCell();
            for (const key of keys) {
                const kbd = document.createElement('kbd');
                kbd.textContent = key;
                cell.append(kbd, ' ');
            }
            row.insertCell().textContent = name;
            return row;
        }));
    }
}
