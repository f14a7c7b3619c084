// What the page keeps between two visits. A browser may refuse (files from a stick, private
// windows): then nothing is kept, and nothing else suffers.

class Store {
    constructor(id) {
        this.key = `orvanta.${id}`;
        this.kept = this.read();
    }

    read() {
        try {
            const kept = JSON.parse(localStorage.getItem(this.key));
            return kept !== null && typeof kept === 'object' ? kept : {};
        } catch {
            return {};
        }
    }

    get(name, usual) {
        return this.kept[name] ?? usual;
    }

    // values: what changes, by name.
    set(values) {
        Object.assign(this.kept, values);
        try {
            localStorage.setItem(this.key, JSON.stringify(this.kept));
        } catch {
            // Kept until the page is closed.
        }
    }
}
