// Starts the page and its program, and listens to the window.
import {code, handed} from './program.js';
import {turn, whenGameGoes} from './turns.js';
import {isKnown} from './gamepads.js';
import {fault, instantiate} from './instance.js';
import {isLink} from './link.js';
import {openAddress, prepareMenu} from './menu.js';
import {recover} from './recovery.js';
import {leave, lookAround, loseTurn, offerTurn, page, screen, session, state, store} from './surroundings.js';
import {ask, element, hush, notice, whenAsked} from './talk.js';

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
  addEventListener('focus', () => { state.blurred = false; lookAround(); });
  document.addEventListener('visibilitychange', lookAround);
  document.addEventListener('freeze', leave);
  addEventListener('pagehide', () => {
    leave();
    session.drop(); // the game is stored
  });
  addEventListener('pageshow', ({persisted}) => {
    state.blurred = false;
    lookAround();
    if (persisted) {
      session.keep();
    }
  });
  addEventListener('hashchange', () => {
    if (state.program && !state.viewing && !document.querySelector('dialog[open]')) {
      openAddress();
    } else if (isLink(location.hash)) {
      location.reload();
    }
  });
}

/** Whatever has stopped the program. */
function fail(reason) {
  if (state.viewing) {
    state.viewing.end(reason);
  } else if (!state.over) {
    state.over = true;
    ask(`The game has stopped: ${reason.message ?? reason}`, {
      'Start it again': () => location.reload(),
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
  if (earlier !== null && !fault(state.program, 'faultInStore', earlier)) {
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

/** Whether the player's own game may run: when it is this tab's turn, and it is as it was when it ended. */
async function prepare() {
  const mine = await turn;
  if (mine) {
    await recover(page);
  }
  return mine;
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
  const mine = prepare();
  const ready = instantiate({page, leave: mine, fail});
  if (!await mine) {
    offerTurn('The game is open in another tab.');
    return;
  }
  prepareMenu();
  state.program = await ready;
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
