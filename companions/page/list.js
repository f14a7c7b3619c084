// The list of packets and lines: a tree with check marks, one line of it in the order of Tab.

class List {
    // actions: start(place), checksChanged().
    constructor(root, lesson, actions) {
        this.root = root;
        this.lesson = lesson;
        this.actions = actions;
        this.rows = []; // { place, element, text }
        this.firstRow = []; // of each packet: its header's
        this.current = -1;
        this.cursor = 0;
        this.build();
        this.listen();
    }

    build() {
        const all = document.createDocumentFragment();
        this.lesson.packets.forEach((packet, p) => {
            this.firstRow.push(this.rows.length);
            all.append(this.addRow(Rules.place(p + 1, 0), packet.title, {
                level: 1, position: p + 1, count: this.lesson.packets.length,
            }));
            packet.lines.forEach((line, q) => all.append(this.addRow(
                Rules.place(p + 1, q + 1), line.text,
                { level: 2, position: q + 1, count: packet.lines.length },
            )));
        });
        this.root.append(all);
        this.moveCursor(0);
    }

    addRow(place, text, { level, position, count }) {
        const element = document.createElement('div');
        const said = document.createElement('span');
        said.className = 'said';
        said.dir = 'auto';
        said.textContent = text;
        const box = document.createElement('span');
        box.className = 'box';
        element.append(box, said);
        element.setAttribute('role', 'treeitem');
        element.setAttribute('aria-level', level);
        element.setAttribute('aria-posinset', position);
        element.setAttribute('aria-setsize', count);
        element.tabIndex = -1;
        element.dataset.row = this.rows.length;
        this.rows.push({ place, element, text });
        this.showCheck(this.rows.length - 1);
        return element;
    }

    listen() {
        this.root.addEventListener('click', (event) => {
            const element = event.target.closest('[role=treeitem]');
            if (element) {
                this.clicked(Number(element.dataset.row), event.target.className === 'box');
            }
        });
        this.root.addEventListener('focusin', (event) => {
            const element = event.target.closest('[role=treeitem]');
            if (element) {
                this.moveCursor(Number(element.dataset.row));
            }
        });
    }

    clicked(row, onBox) {
        this.focusRow(row);
        if (onBox) {
            this.toggle(row);
        } else {
            this.startRow(row);
        }
    }

    // On a packet's own line nothing starts.
    startRow(row) {
        if (this.rows[row].place.clip >= 1) {
            this.actions.start(this.rows[row].place);
        }
    }

    startCursor() {
        this.startRow(this.cursor);
    }

    rowOf({ packet, clip }) {
        return packet >= 1 ? this.firstRow[packet - 1] + clip : -1;
    }

    marked(row) {
        const { packet, clip } = this.rows[row].place;
        const entry = this.lesson.packets[packet - 1];
        return clip === 0 ? entry : entry.lines[clip - 1];
    }

    toggle(row = this.cursor) {
        const marked = this.marked(row);
        marked.checked = !marked.checked;
        this.showCheck(row);
        this.actions.checksChanged();
    }

    showCheck(row) {
        this.rows[row].element.setAttribute('aria-checked', String(this.marked(row).checked));
    }

    showChecks() {
        this.rows.forEach((unused, row) => this.showCheck(row));
    }

    // Keys of the list alone; true when it was one.
    press(key) {
        const to = {
            ArrowDown: this.cursor + 1,
            ArrowUp: this.cursor - 1,
            Home: 0,
            End: this.rows.length - 1,
        }[key];
        if (to === undefined) {
            return false;
        }
        this.focusRow(Math.min(Math.max(to, 0), this.rows.length - 1));
        return true;
    }

    moveCursor(row) {
        if (this.rows.length === 0) {
            return;
        }
        this.rows[this.cursor].element.tabIndex = -1;
        this.rows[this.cursor].element.classList.remove('cursor');
        this.cursor = row;
        this.rows[row].element.tabIndex = 0;
        this.rows[row].element.classList.add('cursor');
    }

    focusRow(row) {
        this.moveCursor(row);
        this.rows[row]?.element.focus({ preventScroll: true });
        this.reveal(row);
    }

    // Scrolls the list, in which the rows count from its top, and nothing else: the page stays where
    // it is.
    reveal(row) {
        const { offsetTop, offsetHeight } = this.rows[row].element;
        const { scrollTop, clientHeight } = this.root;
        if (offsetTop < scrollTop) {
            this.root.scrollTop = offsetTop - offsetHeight;
        } else if (offsetTop + offsetHeight > scrollTop + clientHeight) {
            this.root.scrollTop = offsetTop + 2 * offsetHeight - clientHeight;
        }
    }

    // place: none with packet 0, and before the first brake.
    showCurrent(place) {
        this.rows[this.current]?.element.removeAttribute('aria-current');
        this.current = place.clip >= 1 ? this.rowOf(place) : -1;
        if (this.current >= 0) {
            this.rows[this.current].element.setAttribute('aria-current', 'true');
            if (!this.root.contains(document.activeElement)) {
                this.moveCursor(this.current);
            }
            this.reveal(this.current);
        }
    }

    showState(state) {
        this.root.dataset.state = state;
    }

    // media: of a line; what has nothing that could be played is quieter.
    showMissing(reason) {
        for (const { place, element } of this.rows) {
            const packet = this.lesson.packets[place.packet - 1];
            const media = packet.hasBrakes ? packet.media : packet.lines[place.clip - 1]?.media;
            const isMissing = place.clip >= 1 && media?.sources.length === 0;
            element.classList.toggle('missing', isMissing);
            if (isMissing) {
                element.title = reason;
                element.setAttribute('aria-description', reason);
            }
        }
    }

    // The next line that holds the text, from this row on; false when there is none.
    find(wanted, first) {
        const row = Rules.findText(this.rows.map(({ text }) => text), wanted, first);
        if (row >= 0) {
            this.moveCursor(row);
            this.reveal(row);
        }
        return row;
    }
}
