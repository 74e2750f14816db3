// The program's surroundings: what its host asks of the page, and how it comes and goes with the page and the tab.
import {letGameGo, takeGameOver} from './turns.js';
import {stayAwake} from './awake.js';
import {Controls} from './controls.js';
import {keepForLong, settings} from './hands.js';
import {Screen} from './screen.js';
import {Session} from './session.js';
import {Sound} from './sound.js';
import {Store} from './store.js';
import {ask, element, notice, say} from './talk.js';

/** What all of the page goes by. */
export const state = {
  program: null,   // the instance that plays the player's own game
  viewing: null,   // of a record, while one is shown
  away: false,     // the one on the screen is not in front
  blurred: false,  // the window is not
  changing: false, // from the one to the other
  over: false,     // the player's own has ended for good
  runs: false,     // a game does
};
const starting = element('starting');
let clockZero;

/** Calls a function that the host of the program on the screen has for the page; texts are the host's to free. */
export function send(name, ...values) {
  const shown = state.viewing ? state.viewing.program : state.program;
  if (!shown || state.over) {
    return 0;
  }
  const answer = shown[`_${name}`](...values.map((value) =>
    typeof value === 'string' ? shown.allocateUTF8(value) : value));
  shown.wake();
  return answer;
}

export const store = new Store({
  warn: notice,
  lost: () => setTimeout(loseTurn), // the program is just saving
  kept: () => keepForLong(notice),
  makeRoom: () => session.drop(),
});
export const session = new Session();
export const sound = new Sound();
export const screen = new Screen(element('screen'), settings);
export const controls = new Controls(send, screen, sound, () => state.away, () => state.runs);

export const page = {
  screen, sound, store,
  now() {
    const passed = performance.now();
    clockZero ??= Date.now() - passed;
    return Math.max(0, Math.floor(clockZero + passed + 0.001));
  },
  draw(...frame) {
    starting.remove();
    screen.draw(...frame);
  },
  title: (title) => { document.title = title || document.title; },
  showButton: (name, down) => controls.showButton(name, down),
  wantText: (wanted) => { controls.wantsText = wanted; },
  /** What the program is at: title, game, level, paused, over, name or dialog; `text` says it to who cannot see. */
  state(kind, text) {
    state.runs = kind === 'game' || kind === 'level';
    stayAwake(state.runs && !state.away);
    element('state').textContent = text;
  },
  report: notice,
  keepRecord: (lines) => session.add(lines),
  watchKeys: (text) => say(`${text}\nShift+Tab: to the buttons`),
  help(address) {
    const shown = window.open(address, '_blank') !== null;
    if (!shown) {
      notice('The browser did not let the help page open. Its address is ' + new URL(address, location.href));
    }
    return shown;
  },
  ended() {
    stop();
    ask('The game was closed. It is kept.', {Play: () => location.reload()});
  },
};

/** Coming and going, as when another program is in front. Returns when the program is at rest. */
export function lookAround() {
  const gone = document.hidden || state.blurred || state.changing || document.querySelector('dialog[open]') !== null;
  if (gone === state.away || state.over) {
    return;
  }
  if (gone) {
    state.viewing?.rest();
    controls.forget();
  }
  state.away = gone;
  stayAwake(state.runs && !state.away);
  send('setAway', gone);
  if (gone) {
    sound.rest(); // only now: what was just due may have sounded
  }
  controls.watchControllers();
}

export function leave() {
  state.blurred = true;
  lookAround();
}

/** The program rests for good, its game saved; not before it has shown that it is paused. */
export function stop() {
  leave();
  state.over = true;
  session.close();
  store.close();
  setTimeout(() => state.program?.halt?.(), 100);
  letGameGo();
}

export function offerTurn(text) {
  ask(text, {'Go on here': async () => {
    await takeGameOver();
    location.reload();
  }});
}

export function loseTurn() {
  if (!state.over) {
    stop();
    offerTurn('The game goes on in another tab.');
  }
}
