// The store: the text of registry.reg in localStorage, or, where that is refused, for this visit.
const NAME = 'registry.reg';

export class Store {
  text = null;
  closed = false;
  frozen = false; // what the browser holds is not to be touched
  told = false;

  constructor(tell) { this.tell = tell; }

  load() {
    try {
      this.text = localStorage.getItem(NAME);
    } catch {
      this.complain();
    }
    return this.text;
  }

  /** Replaces the whole text. When the browser refuses, it has the old one, and the user is told once. */
  save(text) {
    if (this.closed) {
      return false;
    }
    this.text = text;
    return !this.frozen && this.write(NAME, text);
  }

  /** Keeps a damaged text under another name; where that is refused it stays in its place. */
  setAside() {
    let name = NAME + '.bad';
    for (let number = 1; localStorage.getItem(name) !== null; ++number) {
      name = `${NAME}.bad.${number}`;
    }
    this.frozen = !this.write(name, this.text);
  }

  /** From now on the program's writes are ignored: another page has the game. */
  close() { this.closed = true; }

  /** Puts another text in the place of a closed store's. */
  replace(text) { return this.write(NAME, text); }

  write(name, text) {
    try {
      localStorage.setItem(name, text);
      return true;
    } catch {
      this.complain();
      return false;
    }
  }

  complain() {
    if (!this.told) {
      this.told = true;
      this.tell('This browser does not let the page store anything: the game is kept only while the page is open. ' +
                'The menu saves it to a file.');
    }
  }

  download() {
    const link = document.createElement('a');
    link.href = URL.createObjectURL(new Blob([this.text ?? '']));
    link.download = NAME;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60000);
  }

  /** A file's text, UTF-8 or, marked as such, UTF-16. */
  static async decode(file) {
    const bytes = new Uint8Array(await file.arrayBuffer());
    const wide = bytes[0] === 0xFF && bytes[1] === 0xFE;
    return new TextDecoder(wide ? 'utf-16le' : 'utf-8').decode(bytes);
  }
}
