// Keeps the display from going dark while a game runs.
let wanted = false, lock = null;

/** Says whether a game runs; the browser takes the lock away when the page is hidden. */
export async function stayAwake(running) {
  wanted = running;
  if (wanted && !lock) {
    lock = navigator.wakeLock?.request('screen').catch(() => null);
    const held = await lock;
    held?.addEventListener('release', () => { lock = null; });
    if (!held) {
      lock = null;
    }
  }
  if (!wanted) {
    (await lock)?.release();
  }
}
