// What the player's hands do becomes the handheld's buttons, stylus and text.
import {pads} from './gamepads.js';
import {tremble} from './hands.js';

/** What host::Event::Kind counts. */
const KEY_DOWN = 0, KEY_UP = 1, TEXT = 2, STYLUS_DOWN = 3, STYLUS_MOVE = 4, STYLUS_UP = 5, HELP = 11;
const CONTROL = 1, SHIFT = 2, ESCAPE = 4;

/** The handheld's buttons. */
const LEFT = 37, UP = 38, RIGHT = 39, DOWN = 40, CENTRE = 13, A = 193, B = 194, C = 195, D = 196;

const KEYS = {
  ArrowLeft: LEFT, ArrowUp: UP, ArrowRight: RIGHT, ArrowDown: DOWN, Enter: CENTRE, Escape: A, p: A, c: B, z: C, x: D,
  ' ': D, Backspace: 8, Tab: 9, End: 35, Home: 36, Delete: 46,
};
const CODES = {ShiftLeft: B, ControlLeft: C};
/** A controller's buttons in the order of the standard mapping. */
const PADS = [D, C, B, B, B, B, , , CENTRE, A, , , UP, DOWN, LEFT, RIGHT];
const STICK_PRESSED = 0.49, STICK_RELEASED = 0.34;

/** The handheld's code for a key of the keyboard; 0 when it has none, or the browser needs it. */
function virtualKey(event) {
  const letter = /^Key[A-Z]$/.test(event.code) && !/^[ -~]$/.test(event.key);
  const name = letter ? event.code.slice(3).toLowerCase() : event.key.length === 1 ? event.key.toLowerCase() : event.key;
  const known = CODES[event.code] ?? KEYS[name] ?? 0;
  if (known !== 0 || ((event.ctrlKey || event.metaKey || event.altKey) && name !== 'q')) {
    return event.metaKey || event.altKey ? 0 : known;
  }
  const number = /^F([2346789]|10)$/.exec(name);
  return number ? 111 + Number(number[1]) : /^[a-z0-9]$/.test(name) ? name.toUpperCase().charCodeAt(0) : 0;
}

export class Controls {
  wantsText = false;
  held = new Map();   // what is pressed, each with the button it stands for: several may be one
  fingers = new Map();
  stylus = null;

  constructor(post, screen, isAway, sound) {
    Object.assign(this, {post, screen, isAway, sound});
    for (const gesture of ['pointerup', 'touchend', 'mousedown', 'keydown']) {
      addEventListener(gesture, () => isAway() || sound.wake(), true);
    }
    addEventListener('keydown', (event) => this.keyDown(event));
    addEventListener('keyup', (event) => this.release(event.code));
    this.watchStylus(screen.canvas);
    for (const control of document.querySelectorAll('.control')) {
      this.watchFingers(control);
    }
    addEventListener('gamepadconnected', () => this.watchControllers());
    addEventListener('contextmenu', (event) => event.preventDefault());
  }

  // Buttons ------------------------------------------------------------------------------------------

  press(source, key, modifiers = 0) {
    if (key !== 0 && !this.held.has(source) && !this.isAway()) {
      const goesDown = !this.isDown(key);
      this.held.set(source, key);
      if (goesDown) {
        this.post(KEY_DOWN, key, modifiers);
      }
      this.show(key);
    }
  }

  release(source) {
    const key = this.held.get(source);
    if (this.held.delete(source)) {
      if (!this.isDown(key)) {
        this.post(KEY_UP, key);
      }
      this.show(key);
    }
  }

  isDown(key) { return [...this.held.values()].includes(key); }

  show(key) {
    document.querySelector(`.key[data-key="${key}"]`)?.classList.toggle('pressed', this.isDown(key));
  }

  /** What is lifted while the game is away is lifted unseen. */
  releaseAll() {
    for (const source of [...this.held.keys()]) {
      this.release(source);
    }
    this.fingers.clear();
    if (this.stylus) {
      this.moveStylus(STYLUS_UP, this.stylus);
    }
  }

  // The keyboard -------------------------------------------------------------------------------------

  keyDown(event) {
    const inDialog = document.querySelector('dialog[open]') !== null;
    const onButton = event.target.closest?.('button') && ['Enter', ' '].includes(event.key);
    if (inDialog || onButton || event.isComposing || (event.key === 'Tab' && !this.wantsText)) {
      return; // that is the page's own
    }
    if (event.key === 'F1') {
      event.preventDefault();
      this.post(HELP);
      return;
    }
    const key = virtualKey(event);
    const modifiers = (event.ctrlKey ? CONTROL : 0) | (event.shiftKey ? SHIFT : 0) | (event.key === 'Escape' ? ESCAPE : 0);
    if (key !== 0) {
      event.preventDefault();
    }
    if (!event.repeat) {
      this.press(event.code, key, modifiers);
    } else if (this.wantsText && key !== 0) {
      this.post(KEY_DOWN, key, modifiers);
    }
    const alone = !event.metaKey && (event.getModifierState('AltGraph') || !(event.ctrlKey || event.altKey));
    if (this.wantsText && alone && [...event.key].length === 1) {
      event.preventDefault();
      for (let i = 0; i < event.key.length; ++i) {
        this.post(TEXT, event.key.charCodeAt(i));
      }
    }
  }

  // Fingers on the handheld's face: each has its button, and changes it as it slides --------------------

  watchFingers(control) {
    control.onpointerdown = (event) => {
      event.preventDefault();
      control.setPointerCapture(event.pointerId);
      this.moveFinger(control, event, true);
    };
    control.onpointermove = (event) => {
      if (this.fingers.has(event.pointerId)) {
        this.moveFinger(control, event, false);
      }
    };
    control.onlostpointercapture = (event) => {
      this.fingers.delete(event.pointerId);
      this.release(event.pointerId);
    };
  }

  moveFinger(control, event, lands) {
    const before = this.fingers.get(event.pointerId) ?? 0;
    const key = control.id === 'pad' ? this.padKey(control, event, lands, before) : this.buttonKey(event);
    this.fingers.set(event.pointerId, key);
    if (key !== before) {
      this.release(event.pointerId);
      this.press(event.pointerId, key);
      if (key !== 0 && event.pointerType === 'touch') {
        tremble();
      }
    }
  }

  /** The nearest direction; a finger that slides across the centre keeps what it has. */
  padKey(pad, event, lands, before) {
    const box = pad.getBoundingClientRect();
    const x = (event.clientX - box.left) / box.width - 0.5, y = (event.clientY - box.top) / box.height - 0.5;
    if (Math.hypot(x, y) < 0.165) {
      return lands ? CENTRE : before;
    }
    return Math.abs(x) > Math.abs(y) ? (x < 0 ? LEFT : RIGHT) : (y < 0 ? UP : DOWN);
  }

  buttonKey(event) {
    const under = document.elementFromPoint(event.clientX, event.clientY)?.closest('#buttons .key');
    return under ? Number(under.dataset.key) : 0;
  }

  // The stylus ------------------------------------------------------------------------------------------

  watchStylus(canvas) {
    canvas.onpointerdown = (event) => {
      event.preventDefault();
      canvas.focus();
      if (!this.stylus && event.button === 0 && !this.isAway()) {
        canvas.setPointerCapture(event.pointerId);
        this.moveStylus(STYLUS_DOWN, {id: event.pointerId, ...this.screen.pixelAt(event.clientX, event.clientY)});
      }
    };
    canvas.onpointermove = (event) => {
      const point = this.screen.pixelAt(event.clientX, event.clientY);
      if (this.stylus?.id === event.pointerId && (point.x !== this.stylus.x || point.y !== this.stylus.y)) {
        this.moveStylus(STYLUS_MOVE, {id: event.pointerId, ...point});
      }
    };
    canvas.onlostpointercapture = (event) => { // it has no point of its own in every browser
      if (this.stylus?.id === event.pointerId) {
        this.moveStylus(STYLUS_UP, this.stylus);
      }
    };
  }

  moveStylus(kind, point) {
    this.stylus = kind === STYLUS_UP ? null : point;
    this.post(kind, point.x, point.y);
  }

  // Game controllers: looked at once a frame while there is one ------------------------------------------

  watchControllers() {
    if (this.watching) {
      return;
    }
    const look = () => {
      const present = pads();
      if (!this.isAway()) {
        present.forEach((pad) => this.lookAt(pad));
      }
      this.watching = present.length > 0 && requestAnimationFrame(look);
      if (!this.watching) {
        this.releaseAll();
      }
    };
    this.watching = requestAnimationFrame(look);
  }

  lookAt(pad) {
    const set = (name, key, down) => {
      const source = `controller ${pad.index} ${name}`;
      down ? this.press(source, key) : this.release(source);
    };
    PADS.forEach((key, i) => set(i, key, pad.buttons[i]?.pressed));
    [[LEFT, RIGHT], [UP, DOWN]].forEach((keys, axis) => keys.forEach((key, side) => {
      const deflection = (side === 0 ? -1 : 1) * pad.axes[axis];
      if (deflection >= STICK_PRESSED || deflection <= STICK_RELEASED) {
        set(`axis ${axis} ${side}`, key, deflection >= STICK_PRESSED);
      }
    }));
  }
}
