// One tab at a time plays on the store. The one that does holds a lock, which ends with the tab; another
// may ask it to stop. Where there are no locks, as by plain http, the tabs ask one another.
const NAME = 'glimra';
const PATIENCE = 2000; // milliseconds in which a tab that is not frozen has saved and let go
const REPLY = 250;     // milliseconds in which one that plays has answered

function openChannel() {
  try {
    return new BroadcastChannel(NAME);
  } catch {
    return null; // refused, and so is the store: there is nothing to take turns on
  }
}

const channel = openChannel();
const me = Math.random();
const sleep = (milliseconds) => new Promise((resolve) => setTimeout(resolve, milliseconds));
let letGo = () => {}, stop = () => {};

/** Whether the lock was granted, which is kept until letGameGo; null where there are no locks. */
async function request(options) {
  if (!navigator.locks) {
    return null;
  }
  let granted = false;
  return new Promise((resolve) => {
    navigator.locks.request(NAME, options, (lock) => {
      granted = lock !== null;
      resolve(granted);
      return lock && new Promise((release) => { letGo = release; });
    }).catch((error) => {
      if (granted) {
        stop(); // it was taken away
      }
      resolve(error.name === 'AbortError' ? false : null);
    });
  });
}

/** Asks the other tabs; of two that ask at the same time one gives way. */
async function ask() {
  let free = true;
  channel.onmessage = ({data}) => { free &&= data !== 'mine' && !(data.asks < me); };
  channel.postMessage({asks: me});
  await sleep(REPLY);
  return free;
}

async function holdGame() {
  const held = await request({ifAvailable: true}) ?? (!channel || await ask());
  if (held && channel) {
    channel.onmessage = ({data}) => data === 'stop' ? stop() : data.asks && channel.postMessage('mine');
  }
  return held;
}

/** Has `act` called when another tab goes on. */
export function whenGameGoes(act) { stop = act; }

/** Whether this tab may play. Asked for as early as can be: the answer takes a while. */
export const turn = holdGame();

/** From now on another tab may play, and this one does not answer. */
export function letGameGo() {
  letGo();
  if (channel) {
    channel.onmessage = null;
  }
}

/** Has the tab that plays save and stop; one that does not answer loses its turn. */
export async function takeGameOver() {
  channel.postMessage('stop');
  if (await request({signal: AbortSignal.timeout(PATIENCE)}) === false) {
    await request({steal: true});
  }
  await sleep(navigator.locks ? 0 : REPLY);
}
