// Keeps the display from going dark while a game runs.
let lock = null; // promised; the browser takes it back by itself when the page is hidden

/** Says whether a game runs in front of the player. */
export function stayAwake(running) {
  if (running) {
    lock ??= navigator.wakeLock?.request('screen').catch(() => null);
  } else {
    lock?.then((held) => held?.release());
    lock = null;
  }
}
