// Reports what the player's hands do: keys, fingers, the stylus, controllers. What they mean is
// decided in the program's host, the same as in its window.
import {pads} from './gamepads.js';
import {tremble} from './hands.js';
import {isViewersTab} from './watch.js';

/** Milliseconds between two looks at the controllers: fewer than a tick of the game, and than anyone holds a button. */
const IN_PLAY = 16, AT_REST = 64;

export class Controls {
  wantsText = false;
  fingers = new Map(); // each with the name of the button it is on
  stylus = null;       // the pointer that is it, and where it was last
  seen = new Map();    // controllers as they were reported

  /** `send(name, ...values)` calls the program; it returns the answer, or 0 while there is no program. */
  constructor(send, screen, sound, isAway, isRunning) {
    Object.assign(this, {send, screen, isAway, isRunning});
    for (const gesture of ['pointerup', 'touchend', 'mousedown', 'keydown']) {
      addEventListener(gesture, () => isAway() || sound.wake(), true);
    }
    addEventListener('keydown', (event) => this.keyDown(event));
    addEventListener('keyup', (event) => send('keyUp', event.code, event.key));
    this.watchStylus(screen.canvas);
    for (const control of document.querySelectorAll('.control')) {
      this.watchFingers(control);
    }
    addEventListener('gamepadconnected', () => this.watchControllers());
    addEventListener('contextmenu', (event) => event.target.id !== 'answer' && event.preventDefault()); // there it pastes
  }

  /** Lights a button up while something holds it down. */
  showButton(name, down) {
    document.querySelector(`.key[data-button="${name}"]`)?.classList.toggle('pressed', down);
  }

  /** The program has released everything. */
  forget() {
    this.fingers.clear();
    this.seen.clear();
    this.stylus = null;
    document.querySelectorAll('.pressed').forEach((button) => button.classList.remove('pressed'));
  }

  keyDown(event) {
    const inDialog = document.querySelector('dialog[open]') !== null;
    const onButton = event.target.closest?.('button') && ['Enter', ' '].includes(event.key);
    const browsers = /^F(5|11|12)$/.test(event.key) || (event.key === 'Tab' && !this.wantsText && !isViewersTab(event));
    if (inDialog || onButton || browsers || event.isComposing) {
      return; // that is the page's own
    }
    if (this.send('keyDown', event.code, event.key, event.ctrlKey, event.shiftKey, event.altKey, event.metaKey,
                  event.getModifierState('AltGraph'), event.repeat)) {
      event.preventDefault();
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
      this.send('moveFinger', event.pointerId, '');
    };
  }

  moveFinger(control, event, lands) {
    const before = this.fingers.get(event.pointerId) ?? '';
    const button = control.id === 'pad' ? this.padButton(control, event, lands, before) : this.buttonUnder(event);
    this.fingers.set(event.pointerId, button);
    if (button !== before) {
      this.send('moveFinger', event.pointerId, button);
      if (button && event.pointerType === 'touch') {
        tremble();
      }
    }
  }

  /** The nearest direction; a finger that slides across the centre keeps what it has. */
  padButton(pad, event, lands, before) {
    const box = pad.getBoundingClientRect();
    const x = (event.clientX - box.left) / box.width - 0.5, y = (event.clientY - box.top) / box.height - 0.5;
    if (Math.hypot(x, y) < 0.165) {
      return lands ? 'Centre' : before;
    }
    return Math.abs(x) > Math.abs(y) ? (x < 0 ? 'Left' : 'Right') : (y < 0 ? 'Up' : 'Down');
  }

  buttonUnder(event) {
    const under = document.elementFromPoint(event.clientX, event.clientY)?.closest('#buttons .key');
    return under?.dataset.button ?? '';
  }

  // The stylus ------------------------------------------------------------------------------------------

  watchStylus(canvas) {
    canvas.onpointerdown = (event) => {
      event.preventDefault();
      canvas.focus({focusVisible: false});
      if (this.stylus === null && event.button === 0 && !this.isAway()) {
        canvas.setPointerCapture(event.pointerId);
        this.stylus = event.pointerId;
        this.sendPoint('stylusDown', event);
      }
    };
    canvas.onpointermove = (event) => {
      if (this.stylus === event.pointerId) {
        this.sendPoint('stylusMove', event);
      }
    };
    // It has no point of its own in every browser; the program knows the last one.
    canvas.onlostpointercapture = (event) => {
      if (this.stylus === event.pointerId) {
        this.stylus = null;
        this.send('stylusUp');
      }
    };
  }

  sendPoint(name, event) {
    const {x, y} = this.screen.pixelAt(event.clientX, event.clientY);
    this.send(name, x, y);
  }

  // Game controllers: looked at while there is one and the game is in front -------------------------------

  watchControllers() {
    clearTimeout(this.watching);
    if (this.isAway()) {
      return;
    }
    const present = pads();
    present.forEach((pad) => this.report(pad));
    for (const index of this.seen.keys()) {
      if (!present.some((pad) => pad.index === index)) {
        this.seen.delete(index);
        this.send('controllerGone', index);
      }
    }
    if (present.length > 0) {
      this.watching = setTimeout(() => this.watchControllers(), this.isRunning() ? IN_PLAY : AT_REST);
    }
  }

  /** Reports what has changed of a controller since it was last looked at. */
  report(pad) {
    const before = this.seen.get(pad.index) ?? {buttons: [], axes: []};
    const now = {buttons: pad.buttons.map(({pressed}) => pressed), axes: pad.axes.slice(0, 4)};
    now.buttons.forEach((pressed, i) => {
      if (pressed !== (before.buttons[i] ?? false) && this.send('controllerButton', pad.index, i, pressed)) {
        document.documentElement.requestFullscreen?.().catch(() => {});
      }
    });
    now.axes.forEach((value, i) => {
      if (value !== (before.axes[i] ?? 0)) {
        this.send('controllerAxis', pad.index, i, value);
      }
    });
    this.seen.set(pad.index, now);
  }
}
