// The keys: the program's own table, as the page's data brings it.

class Keys {
    // rows: [{ command, keys: [{ key, ctrl, shift, alt, list }], letter }].
    constructor(rows) {
        this.rows = rows;
    }

    static isTyped(target) {
        return target.matches('input[type=search], input[type=text], textarea');
    }

    // What such a control does with keys itself.
    static isKept(event) {
        const { target, key } = event;
        if (target.matches('button, summary, input[type=checkbox]')) {
            return key === ' ' || key === 'Enter';
        }
        if (target.matches('select')) {
            return key.length === 1 || key === 'Enter' || key.startsWith('Arrow')
                || key.startsWith('Page');
        }
        return target.matches('input[type=range]')
            && (key.startsWith('Arrow') || key.startsWith('Page'));
    }

    static isSame(event, key) {
        return event.key === key.key && (event.ctrlKey || event.metaKey) === key.ctrl
            && event.shiftKey === key.shift && event.altKey === key.alt;
    }

    // Upper case acts like lower case; under other layouts the key that bears the letter counts.
    static isLetter(event, letter) {
        if (letter === '' || event.ctrlKey || event.altKey || event.metaKey) {
            return false;
        }
        const typed = event.key.toLowerCase();
        const isLatin = /^[a-z]$/.test(typed);
        return typed === letter || (!isLatin && event.key.length === 1
            && event.code === `Key${letter.toUpperCase()}`);
    }

    // The command of a key; empty for none. inList: the list has the focus.
    commandOf(event, inList) {
        const isTyped = Keys.isTyped(event.target);
        const row = this.rows.find(({ keys, letter }) =>
            keys.some((key) => (!key.list || inList)
                && (!isTyped || key.ctrl || /^F\d/.test(key.key) || key.key.startsWith('Media'))
                && Keys.isSame(event, key))
            || (!isTyped && Keys.isLetter(event, letter)));
        return row?.command ?? '';
    }

    // "Shift+F7", "Ctrl+F", "k"
    static shown({ key, ctrl, shift, alt }, words) {
        const names = { ' ': words.text('key.Space'), ArrowLeft: '←', ArrowRight: '→',
            PageDown: 'Page Down', PageUp: 'Page Up', Escape: 'Esc' };
        const name = names[key] ?? (key.length === 1 ? key.toUpperCase() : key);
        return `${ctrl ? 'Ctrl+' : ''}${alt ? 'Alt+' : ''}${shift ? 'Shift+' : ''}${name}`;
    }

    // [{ keys: [text], name }] for the sheet of keys; media keys are not on every keyboard.
    list(words) {
        return this.rows.map((row) => ({
            name: row.command === 'Help' ? words.text('keys') : words.text(`command.${row.command}`),
            keys: [...row.keys.filter(({ key }) => !key.startsWith('Media'))
                .map((key) => Keys.shown(key, words)), ...(row.letter ? [row.letter] : [])],
        })).filter(({ keys }) => keys.length > 0);
    }
}
