// The store: the text of registry.reg in localStorage, or, where that is refused, for this visit.
import {download} from './talk.js';

const NAME = 'registry.reg', BEFORE = 'registry.reg.before';
/** Bytes of a file that can be opened; the game itself writes 15,000. */
const MOST = 256 * 1024;

export class Store {
  text = null;        // what the program has
  written = null;     // what this tab knows the browser to hold
  closed = false;
  frozen = false;     // what the browser holds is not to be touched
  damaged = false;
  warned = false;

  /**
   * Calls `lost` when another tab has written the store in the meantime, and `kept` after each save; `makeRoom` when
   * the browser refuses one, and tries again if it has.
   */
  constructor({warn, lost, kept, makeRoom}) { Object.assign(this, {warn, lost, kept, makeRoom}); }

  load() {
    this.text = this.written = this.read(NAME);
    return this.text;
  }

  /** Replaces the whole text. When the browser refuses, it has the old one, and the user is warned once. */
  save(text) {
    if (this.closed || this.isTaken()) {
      return false;
    }
    this.text = text;
    if (this.frozen) {
      return false;
    }
    if (this.written !== null && this.written !== text && !this.damaged) {
      this.write(BEFORE, this.written, () => {}); // no harm done where that finds no room
    }
    const done = this.write(NAME, text);
    if (done) {
      this.written = text;
      this.kept();
    }
    return done;
  }

  /** Whether another tab, which could not ask for its turn, has gone on with the game. */
  isTaken() {
    const now = this.warned ? null : this.read(NAME);
    const taken = now !== null && now !== this.written;
    if (taken) {
      this.closed = true;
      this.lost();
    }
    return taken;
  }

  /** Keeps a damaged text under another name; where that is refused it stays in its place. */
  setAside() {
    let name = NAME + '.bad';
    for (let number = 1; this.read(name) !== null; ++number) {
      name = `${NAME}.bad.${number}`;
    }
    this.damaged = true;
    this.frozen = !this.write(name, this.text);
  }

  /** The text before a damaged one, or null. */
  before() { return this.damaged ? this.read(BEFORE) : null; }

  /** From now on the program's writes are ignored: another tab has the game. */
  close() { this.closed = true; }

  /** Puts another text in the place of the program's, which writes no more. */
  replace(text) {
    const done = this.write(NAME, text);
    this.closed ||= done;
    return done;
  }

  /** Takes the text away for a start afresh. It is kept under another name, or where that is refused in a file. */
  clear() {
    this.close();
    this.text ??= this.read(NAME);
    this.setAside();
    if (this.frozen) {
      this.download();
    }
    localStorage.removeItem(NAME);
  }

  read(name) {
    try {
      return localStorage.getItem(name);
    } catch {
      this.complain();
      return null;
    }
  }

  write(name, text, refused = () => this.complain()) {
    try {
      localStorage.setItem(name, text);
      return true;
    } catch {
      if (this.makeRoom()) {
        return this.write(name, text, refused);
      }
      refused();
      return false;
    }
  }

  complain() {
    if (!this.warned) {
      this.warned = true;
      this.warn('This browser does not let the page store anything: the game is kept only while the page is open. ' +
                'The menu saves it to a file.');
    }
  }

  download() { download(this.text ?? this.read(NAME) ?? '', NAME); }

  /** A file's text, UTF-8 or, marked as such, UTF-16; null when it is too big to be a game's. */
  static async decode(file) {
    if (file.size > MOST) {
      return null;
    }
    const bytes = new Uint8Array(await file.arrayBuffer());
    const wide = bytes[0] === 0xFF && bytes[1] === 0xFE;
    return new TextDecoder(wide ? 'utf-16le' : 'utf-8').decode(bytes);
  }
}
