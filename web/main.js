// The page: starts the program, is its host's other half, and comes and goes with it.
import {code} from './program.js';
import {letGameGo, takeGameOver, turn, whenGameGoes} from './turns.js';
import createGlimra from './glimra.js';
import {Controls} from './controls.js';
import {Screen} from './screen.js';
import {Sound} from './sound.js';
import {Store} from './store.js';

/** What host::Event::Kind counts. */
const BACKGROUND = 6, FOREGROUND = 7, HELP = 11;

const element = (id) => document.getElementById(id);
const menu = element('menu'), question = element('question');

let program = null;
let away = false, blurred = false, over = false;
let clockZero;

function notice(text) {
  element('notice').textContent = text;
  element('notice').hidden = false;
  setTimeout(() => { element('notice').hidden = true; }, 8000);
}

/** Says something that stays until its button is pressed. */
function ask(text, button, act) {
  question.querySelector('p').textContent = text;
  question.querySelector('button').textContent = button;
  question.querySelector('button').onclick = act;
  menu.close();
  question.showModal();
}

function post(kind, a = 0, b = 0) {
  if (program && !over) {
    program._post(kind, a, b);
    program.wake();
  }
}

// The program's surroundings ------------------------------------------------------------------------

const store = new Store(notice);
const sound = new Sound();
const screen = new Screen(element('screen'));
const controls = new Controls(post, screen, () => away, sound);

const page = {
  screen, sound, store,
  now() {
    const passed = performance.now();
    clockZero ??= Date.now() - passed;
    return Math.max(0, Math.floor(clockZero + passed + 0.001));
  },
  draw: (...frame) => screen.draw(...frame),
  title: (title) => { document.title = title || document.title; },
  wantText: (wanted) => { controls.wantsText = wanted; },
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
    ask('The game was closed. It is kept.', 'Play', () => location.reload());
  },
};

/** Coming and going, as when another program is in front. Returns when the program is at rest. */
function lookAround() {
  const gone = document.hidden || blurred || menu.open || question.open;
  if (gone === away || over) {
    return;
  }
  if (gone) {
    controls.releaseAll();
    sound.rest();
  }
  away = gone;
  post(gone ? BACKGROUND : FOREGROUND);
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

async function openFile(file) {
  const text = await Store.decode(file);
  const reason = program._faultInStore(program.allocateUTF8(text));
  if (reason !== 0) {
    notice(`${file.name} cannot be used: ${program.UTF8ToString(reason)}`);
    program._free(reason);
  } else {
    stop();
    if (store.replace(text)) {
      location.reload();
    }
  }
}

const items = {
  back: () => {},
  full: () => document.fullscreenElement ? document.exitFullscreen() : document.documentElement.requestFullscreen(),
  help: () => post(HELP),
  save: () => store.download(),
  open: () => element('file').click(),
};

function prepareMenu() {
  menu.querySelector('[data-do=full]').hidden = !document.fullscreenEnabled;
  element('menu-button').onclick = () => { menu.showModal(); lookAround(); };
  menu.onclick = (event) => {
    const act = event.target === menu ? items.back : items[event.target.dataset.do];
    if (act) {
      menu.close();
      lookAround();
      act();
    }
  };
  menu.onclose = lookAround;
  question.oncancel = (event) => event.preventDefault();
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
  ask(text, 'Go on here', async () => {
    await takeGameOver();
    location.reload();
  });
}

async function start() {
  if (!code) {
    ask('Glimra needs a browser with WebAssembly, which this one lacks.', 'Try again', () => location.reload());
    return;
  }
  const fail = (reason) => {
    over = true;
    ask(`The game has stopped: ${reason}`, 'Start it again', () => location.reload());
  };
  whenGameGoes(() => {
    if (!over) {
      stop();
      offerTurn('The game goes on in another tab.');
    }
  });
  // The program is made ready while the pages settle whose turn it is; receiving it starts it.
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
  lookAround();
}

start();
if (navigator.serviceWorker) {
  addEventListener('load', () => navigator.serviceWorker.register('worker.js').catch(() => {}));
}
