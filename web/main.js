// The page: starts the program, is its host's other half, and comes and goes with it.
import {code, handed} from './program.js';
import {letGameGo, takeGameOver, turn, whenGameGoes} from './turns.js';
import {stayAwake} from './awake.js';
import {showCard} from './card.js';
import {Controls} from './controls.js';
import {isKnown, needsLesson, teach} from './gamepads.js';
import {keepForLong, prepareHands, settings} from './hands.js';
import {fault, faultInRecord, freeze, instantiate} from './instance.js';
import {isLink, LARGEST, recordIn} from './link.js';
import {recover} from './recovery.js';
import {Screen} from './screen.js';
import {Session} from './session.js';
import {share} from './share.js';
import {Sound} from './sound.js';
import {Store} from './store.js';
import {ask, choose, hush, notice, say, whenAsked} from './talk.js';
import {Viewing} from './watch.js';

const element = (id) => document.getElementById(id);
const menu = element('menu'), starting = element('starting');

let program = null, viewing = null;
let away = false, blurred = false, changing = false, over = false, runs = false;
let clockZero;

const startAgain = () => location.reload();

/** Calls a function that the host of the program on the screen has for the page; texts are the host's to free. */
function send(name, ...values) {
  const shown = viewing ? viewing.program : program;
  if (!shown || over) {
    return 0;
  }
  const answer = shown[`_${name}`](...values.map((value) =>
    typeof value === 'string' ? shown.allocateUTF8(value) : value));
  shown.wake();
  return answer;
}

// The program's surroundings ------------------------------------------------------------------------

const store = new Store({
  warn: notice,
  lost: () => setTimeout(loseTurn), // the program is just saving
  kept: () => keepForLong(notice),
  makeRoom: () => session.drop(),
});
const session = new Session();
const sound = new Sound(() => runs);
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
    if (!away) {
      sound.stir();
    }
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
    ask('The game was closed. It is kept.', {Play: startAgain});
  },
};

/** Coming and going, as when another program is in front. Returns when the program is at rest. */
function lookAround() {
  const gone = document.hidden || blurred || changing || document.querySelector('dialog[open]') !== null;
  if (gone === away || over) {
    return;
  }
  if (gone) {
    viewing?.rest();
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
  session.close();
  store.close();
  setTimeout(() => program?.halt?.(), 100);
  letGameGo();
}

// The menu --------------------------------------------------------------------------------------------

async function openFile(file) {
  const text = await Store.decode(file);
  const problem = text === null ? 'it is too big' : fault(program, 'faultInStore', text);
  if (problem) {
    notice(`${file.name} cannot be used: ${problem}`);
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
  hush();
}

const items = {
  back: () => {},
  full: () => document.fullscreenElement ? document.exitFullscreen() : document.documentElement.requestFullscreen(),
  help: () => send('askForHelp'),
  save: () => store.download(),
  open: () => element('file').click(),
  teach: teachController,
  watch: chooseRecord,
  link: () => share(thisSession()),
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
  prepareHands(() => screen.fit());
  for (const [id, open] of [['file', openFile], ['record-file', watchFile]]) {
    element(id).onchange = ({target}) => {
      const [file] = target.files;
      if (file) {
        open(file);
      }
      target.value = '';
    };
  }
}

// Records ---------------------------------------------------------------------------------------------

function thisSession() {
  program._catchUp();
  return session.text;
}

/** Shows a record while the player's own game rests. Settled when it is over. */
function view(record, position) {
  hush();
  return new Promise((done) => {
    changing = true; // the own game goes away
    lookAround();
    sound.wake();
    const thaw = program && freeze(program);
    const picture = screen.picture(), {title} = document, {wantsText} = controls, said = element('state').textContent;
    viewing = new Viewing(record, {page, send, started() {
      changing = away = false;
      lookAround();
    }, ended(reason) {
      controls.forget();
      sound.silence();
      viewing = null;
      screen.show(picture);
      document.title = title;
      controls.wantsText = wantsText;
      page.state('paused', said);
      changing = false;
      away = true;
      thaw?.();
      if (reason) {
        notice(`The game cannot be shown any further: ${reason.message ?? reason}`);
      }
      done();
      lookAround();
    }});
    viewing.begin(position);
  });
}

async function watchFile(file) {
  const text = file.size > LARGEST ? '' : await file.text();
  const problem = file.size > LARGEST ? 'it is larger than 4 MB' : await faultInRecord(text);
  if (problem) {
    say(`${file.name} cannot be watched: ${problem}.`);
  } else {
    view(text);
  }
}

function chooseRecord() {
  choose('What do you want to watch?', {
    'This session': () => view(thisSession()),
    'A file': () => element('record-file').click(),
    'A link': () => choose('Paste the link to a game here.', {Watch: openLink, Back() {}}, {placeholder: 'https://…#game=…'}),
    Back() {},
  });
}

/** Shows what the record in a link says of itself, and the record if that is wanted. Settled when it is over. */
async function openLink(address) {
  let text, problem;
  try {
    text = isLink(address) ? await recordIn(address) : '';
    problem = text ? await faultInRecord(text) : 'there is no game in it';
  } catch (error) {
    problem = error.message;
  }
  await new Promise((done) => {
    if (problem) {
      choose(`The link cannot be watched: ${problem}.`, {OK: done});
    } else {
      showCard(text, {watch: (position) => view(text, position).then(done), leave: done});
      lookAround();
    }
  });
}

/** The link in the page's own address, which is taken out of it afterwards. */
async function openAddress() {
  if (isLink(location.hash)) {
    await openLink(location.hash);
    history.replaceState(null, '', location.href.split('#')[0]);
  }
}

/** Whether the player's own game may run: when it is this tab's turn, and it is as it was when it ended. */
async function prepare() {
  const mine = await turn;
  if (mine) {
    await recover(page);
  }
  return mine;
}

// Start ------------------------------------------------------------------------------------------------

function watchWindow() {
  for (const dialog of document.querySelectorAll('dialog')) {
    dialog.onclose = () => {
      screen.canvas.focus(); // the space bar is the game's again, not the menu button's
      lookAround();
    };
  }
  for (const dialog of [element('question'), element('card')]) {
    dialog.oncancel = (event) => { // the same as the button that does nothing, where there is one
      event.preventDefault();
      [...dialog.querySelectorAll('button')].find(({textContent}) => /^(Back|OK|Not now)$/.test(textContent))?.click();
    };
  }
  addEventListener('blur', leave);
  addEventListener('focus', () => { blurred = false; lookAround(); });
  document.addEventListener('visibilitychange', lookAround);
  document.addEventListener('freeze', leave);
  addEventListener('pagehide', () => {
    leave();
    session.drop(); // the game is stored
  });
  addEventListener('pageshow', ({persisted}) => {
    blurred = false;
    lookAround();
    if (persisted) {
      session.keep();
    }
  });
  addEventListener('hashchange', () => {
    if (program && !viewing && !document.querySelector('dialog[open]')) {
      openAddress();
    } else if (isLink(location.hash)) {
      location.reload();
    }
  });
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
  if (viewing) {
    viewing.end(reason);
  } else if (!over) {
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
  if (earlier !== null && !fault(program, 'faultInStore', earlier)) {
    ask('The game that was kept is damaged. The one kept before it is whole.', {
      'Take that one': () => {
        store.replace(earlier);
        location.reload();
      },
      'Begin anew': hush,
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
  whenAsked(lookAround);
  watchWindow();
  await openAddress();
  // The program is made ready while the tabs settle whose turn it is.
  const leave = prepare();
  const ready = instantiate({page, leave, fail});
  if (!await leave) {
    offerTurn('The game is open in another tab.');
    return;
  }
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
