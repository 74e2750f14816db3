// The page: starts the program, is its host's other half, and comes and goes with it.
import {code, handed} from './program.js';
import {letGameGo, takeGameOver, turn, whenGameGoes} from './turns.js';
import {stayAwake} from './awake.js';
import {Controls} from './controls.js';
import {isKnown, needsLesson, teach} from './gamepads.js';
import createGlimra from './glimra.js';
import {keepForLong, prepareHands, settings} from './hands.js';
import {Screen} from './screen.js';
import {Sound} from './sound.js';
import {Store} from './store.js';

const element = (id) => document.getElementById(id);
const menu = element('menu'), question = element('question'), starting = element('starting');

let program = null;
let away = false, blurred = false, over = false, runs = false;
let clockZero;

function notice(text) {
  element('notice').textContent = text;
  element('notice').hidden = false;
  setTimeout(() => { element('notice').hidden = true; }, 8000);
}

/** Says something that stays until one of its buttons, each with what it does, is pressed. */
function ask(text, acts) {
  element('asked').textContent = text;
  question.querySelector('div').replaceChildren(...Object.entries(acts).map(([label, act]) =>
    Object.assign(document.createElement('button'), {type: 'button', textContent: label, onclick: act})));
  menu.close();
  if (!question.open) {
    question.showModal();
  }
}

const startAgain = () => location.reload();

/** Calls a function that the program's host has for the page; texts are the host's to free. */
function send(name, ...values) {
  if (!program || over) {
    return 0;
  }
  const answer = program[`_${name}`](...values.map((value) =>
    typeof value === 'string' ? program.allocateUTF8(value) : value));
  program.wake();
  return answer;
}

// The program's surroundings ------------------------------------------------------------------------

const store = new Store({
  tell: notice,
  lost: () => setTimeout(loseTurn), // the program is just saving
  kept: () => keepForLong(notice),
});
const sound = new Sound();
const screen = new Screen(element('screen'), settings);
const controls = new Controls(send, screen, sound, () => away, () => runs);

const page = {
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
    runs = kind === 'game' || kind === 'level';
    stayAwake(runs && !away);
    element('state').textContent = text;
  },
  report: notice,
  help(address) {
    const shown = window.open(address, '_blank') !== null;
    if (!shown) {
      notice('The browser did not let the help page open. Its address is ' + new URL(address, location.href));
    }
    return shown;
  },
  ended() {
    stop();
    ask('The game was closed. It is kept.', {Play: startAgain});
  },
};

/** Coming and going, as when another program is in front. Returns when the program is at rest. */
function lookAround() {
  const gone = document.hidden || blurred || menu.open || question.open;
  if (gone === away || over) {
    return;
  }
  if (gone) {
    controls.forget();
    sound.rest();
  }
  away = gone;
  stayAwake(runs && !away);
  send('setAway', gone);
  controls.watchControllers();
}

function leave() {
  blurred = true;
  lookAround();
}

/** The program rests for good, its game saved; not before it has shown that it is paused. */
function stop() {
  leave();
  over = true;
  store.close();
  setTimeout(() => program?.halt?.(), 100);
  letGameGo();
}

// The menu --------------------------------------------------------------------------------------------

/** Why a text cannot be the store, or null. */
function faultIn(text) {
  const reason = program._faultInStore(program.allocateUTF8(text));
  const words = reason && program.UTF8ToString(reason);
  program._free(reason);
  return words || null;
}

async function openFile(file) {
  const text = await Store.decode(file);
  const fault = text === null ? 'it is too big' : faultIn(text);
  if (fault) {
    notice(`${file.name} cannot be used: ${fault}`);
  } else if (store.replace(text)) {
    stop();
    location.reload();
  } else {
    notice(`${file.name} cannot be opened: this browser does not let the page store anything.`);
  }
}

async function teachController() {
  await teach((text, skip) => {
    let goesOn = true;
    ask(text, {Skip: skip, Stop: () => { goesOn = false; }});
    return () => goesOn;
  });
  question.close();
  lookAround();
}

const items = {
  back: () => {},
  full: () => document.fullscreenElement ? document.exitFullscreen() : document.documentElement.requestFullscreen(),
  help: () => send('askForHelp'),
  save: () => store.download(),
  open: () => element('file').click(),
  teach: teachController,
};

function prepareMenu() {
  menu.querySelector('[data-do=full]').hidden = !document.fullscreenEnabled;
  element('menu-button').onclick = () => {
    menu.querySelector('[data-do=teach]').hidden = !needsLesson();
    menu.showModal();
    lookAround();
  };
  menu.onclick = (event) => {
    const act = event.target === menu ? items.back : items[event.target.dataset.do];
    if (act) {
      menu.close();
      lookAround();
      act();
    }
  };
  menu.onclose = () => {
    screen.canvas.focus(); // the space bar is the game's again, not the menu button's
    lookAround();
  };
  question.oncancel = (event) => event.preventDefault();
  prepareHands(() => screen.fit());
  element('file').onchange = (event) => {
    const [file] = event.target.files;
    if (file) {
      openFile(file);
    }
    event.target.value = '';
  };
}

// Start ------------------------------------------------------------------------------------------------

function watch() {
  addEventListener('blur', leave);
  addEventListener('focus', () => { blurred = false; lookAround(); });
  document.addEventListener('visibilitychange', lookAround);
  document.addEventListener('freeze', leave);
  addEventListener('pagehide', leave);
  addEventListener('pageshow', () => { blurred = false; lookAround(); });
}

function offerTurn(text) {
  ask(text, {'Go on here': async () => {
    await takeGameOver();
    location.reload();
  }});
}

function loseTurn() {
  if (!over) {
    stop();
    offerTurn('The game goes on in another tab.');
  }
}

/** Whatever has stopped the program. */
function fail(reason) {
  if (!over) {
    over = true;
    ask(`The game has stopped: ${reason.message ?? reason}`, {
      'Start it again': startAgain,
      'Save the game to a file': () => store.download(),
      'Start afresh': () => {
        store.clear();
        location.reload();
      },
    });
  }
}

/** Where what was kept is damaged, what was kept before it may be whole. */
function offerEarlier() {
  const earlier = store.before();
  if (earlier !== null && !faultIn(earlier)) {
    ask('The game that was kept is damaged. The one kept before it is whole.', {
      'Take that one': () => {
        store.replace(earlier);
        location.reload();
      },
      'Begin anew': () => {
        question.close();
        lookAround();
      },
    });
  }
}

function welcomeController({gamepad}) {
  if (gamepad && !isKnown(gamepad)) {
    notice('This browser does not know the buttons of the controller. The menu teaches them.');
  }
}

async function start() {
  if (!code) {
    return; // sentence.js says why
  }
  whenGameGoes(loseTurn);
  addEventListener('error', ({error}) => error instanceof WebAssembly.RuntimeError && fail(error));
  addEventListener('gamepadconnected', welcomeController);
  // The program is made ready while the tabs settle whose turn it is; receiving it starts it.
  const ready = createGlimra({page, printErr: notice, wake() {}, onAbort: fail, instantiateWasm(imports, receive) {
    const instance = code.then((module) => WebAssembly.instantiate(module, imports));
    Promise.all([instance, turn]).then(([instance, mine]) => mine && receive(instance)).catch(fail);
    return {};
  }});
  if (!await turn) {
    offerTurn('The game is open in another tab.');
    return;
  }
  watch();
  prepareMenu();
  program = await ready;
  offerEarlier();
  lookAround();
}

/** Keeps the page for visits without a connection, once it has shown itself. */
async function keepPage() {
  await code.catch(() => {});
  await handed;
  await navigator.serviceWorker.register('worker.js').catch(() => {});
}

start();
if (code && navigator.serviceWorker) {
  addEventListener('load', keepPage);
}
