// One page at a time plays on the store. The one that does holds a lock, which ends with the page;
// another may ask it to stop.
const NAME = 'glimra';
const PATIENCE = 2000; // milliseconds in which a page that is not frozen has saved and let go

const channel = 'BroadcastChannel' in window ? new BroadcastChannel(NAME) : null;
let letGo = () => {};

/** Whether the lock was granted; it is kept until letGameGo. `lost` is called when it is taken away. */
function request(options, lost) {
  return new Promise((resolve) => {
    navigator.locks.request(NAME, options, (lock) => {
      resolve(lock !== null);
      return lock && new Promise((release) => { letGo = release; });
    }).catch((reason) => {
      resolve(false);
      lost(reason);
    });
  });
}

/** Whether this page may play. `stop` is called when another page goes on. */
export async function holdGame(stop) {
  if (!navigator.locks || !channel) {
    return true;
  }
  const held = await request({ifAvailable: true}, stop);
  if (held) {
    channel.onmessage = stop;
  }
  return held;
}

export function letGameGo() { letGo(); }

/** Has the page that plays save and stop; one that does not answer loses its turn. */
export async function takeGameOver() {
  channel.postMessage('stop');
  const patience = AbortSignal.timeout(PATIENCE);
  if (!await request({signal: patience}, () => {})) {
    await request({steal: true}, () => {});
  }
}
