// The page's menu: the player's own files and links, and the records that are watched.
import {showCard} from './card.js';
import {needsLesson, teach} from './gamepads.js';
import {prepareHands} from './hands.js';
import {fault, faultInRecord, freeze} from './instance.js';
import {isLink, LARGEST, recordIn} from './link.js';
import {share} from './share.js';
import {Store} from './store.js';
import {controls, lookAround, page, screen, send, session, sound, state, stop, store} from './surroundings.js';
import {ask, choose, element, hush, notice, say} from './talk.js';
import {Viewing} from './watch.js';

const menu = element('menu');

async function openFile(file) {
  const text = await Store.decode(file);
  const problem = text === null ? 'it is too big' : fault(state.program, 'faultInStore', text);
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

export function prepareMenu() {
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
  state.program._catchUp();
  return session.text;
}

/** Shows a record while the player's own game rests. Settled when it is over. */
function view(record, position) {
  hush();
  return new Promise((done) => {
    state.changing = true; // the own game goes away
    lookAround();
    sound.wake();
    const thaw = state.program && freeze(state.program);
    const picture = screen.picture(), {title} = document, {wantsText} = controls, said = element('state').textContent;
    state.viewing = new Viewing(record, {page, send, started() {
      state.changing = state.away = false;
      lookAround();
    }, ended(reason) {
      controls.forget();
      sound.silence();
      state.viewing = null;
      screen.show(picture);
      document.title = title;
      controls.wantsText = wantsText;
      page.state('paused', said);
      state.changing = false;
      state.away = true;
      thaw?.();
      if (reason) {
        notice(`The game cannot be shown any further: ${reason.message ?? reason}`);
      }
      done();
      lookAround();
    }});
    state.viewing.begin(position);
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
export async function openAddress() {
  if (isLink(location.hash)) {
    await openLink(location.hash);
    history.replaceState(null, '', location.href.split('#')[0]);
  }
}
