// The record of this session, and a copy of it in localStorage for recovery.js, if the session is cut off.
const NAME = 'glimra.record', PART = 16384; // characters that are written at a time
const MOST = 2e6;                           // characters of a copy
const INTERVAL = 1000;                      // milliseconds between two writes

const hasGame = (text) => /^# (game|came back) /m.test(text);

export class Session {
  text = '';
  copied = 0;      // characters of the text
  writes = false;  // there is a game to bring back
  last = -INTERVAL;
  name = `${Date.now()} ${Math.random()}`; // in the copy, which another tab may have put its own in place of

  /** Takes more of the record: whole lines. */
  add(lines) {
    this.text += lines;
    if (!this.writes && !this.over && hasGame(lines)) {
      this.keep();
    } else if (this.writes) {
      this.timer ??= setTimeout(() => this.write(), Math.max(0, this.last + INTERVAL - performance.now()));
    }
  }

  /** Begins a copy. */
  keep() {
    if (hasGame(this.text)) {
      this.copied = 0;
      this.writes = true;
      this.write();
    }
  }

  write() {
    this.timer = clearTimeout(this.timer);
    this.last = performance.now();
    try {
      const owner = localStorage.getItem(NAME);
      if (owner !== this.name && (owner !== null || this.copied > 0)) {
        this.writes = false; // another tab goes on
      } else if (this.text.length > MOST) {
        this.drop();
      } else if (this.writes) {
        this.copy();
      }
    } catch {
      this.drop();
    }
  }

  copy() {
    if (this.copied === 0) {
      localStorage.setItem(NAME, this.name);
    }
    for (let part = Math.floor(this.copied / PART); part * PART < this.text.length; ++part) {
      localStorage.setItem(`${NAME}.${part}`, this.text.slice(part * PART, (part + 1) * PART));
    }
    this.copied = this.text.length;
  }

  /** Takes the copy away, until `keep`: the game is stored. Returns whether there was one. */
  drop() {
    this.timer = clearTimeout(this.timer);
    const there = this.writes;
    this.writes = false;
    try {
      return there && localStorage.getItem(NAME) === this.name && Session.take() !== null;
    } catch {
      return false;
    }
  }

  /** It ends: another tab goes on. */
  close() {
    this.drop();
    this.over = true;
  }

  /** Takes a copy that is there out of the storage: its text, or null. */
  static take() {
    if (localStorage.getItem(NAME) === null) {
      return null;
    }
    localStorage.removeItem(NAME);
    let text = '';
    for (let part = 0, more; (more = localStorage.getItem(`${NAME}.${part}`)) !== null; ++part) {
      text += more;
      localStorage.removeItem(`${NAME}.${part}`);
    }
    return text;
  }

  /** The record of a session that was cut off, once, or null. */
  static unfinished() {
    try {
      const text = Session.take();
      return text && hasGame(text) && !text.endsWith('\n# closed\n') ? text : null;
    } catch {
      return null;
    }
  }
}
