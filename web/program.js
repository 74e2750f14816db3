// The program's code, compiled while it arrives and while the rest of the page is made ready: so this is
// imported first.

/** Reads a whole response, and shows how much of it has come. */
async function read(response) {
  const progress = document.getElementById('progress');
  const parts = [];
  for (const reader = response.body.getReader(); ;) {
    const {done, value} = await reader.read();
    if (done) {
      return new Blob(parts).arrayBuffer();
    }
    parts.push(value);
    progress.value += value.length;
  }
}

/** Gives the service worker of a first visit what need not be fetched again. */
async function handOver(bytes) {
  const cache = await caches.open('glimra-handed');
  await cache.put('glimra.wasm', new Response(await bytes, {headers: {'Content-Type': 'application/wasm'}}));
}

/** Settled when the service worker may begin. */
export let handed = Promise.resolve();

async function compile() {
  const response = await window.glimraCode;
  if (!response.ok) {
    throw new Error(`the server has no program (${response.status})`);
  }
  // What comes from this machine comes at once, and its compiled code may be kept.
  const bytes = navigator.serviceWorker?.controller ? null : read(response.clone());
  handed = bytes && window.caches ? handOver(bytes).catch(() => {}) : handed;
  // The long way where a server gives the file a wrong type.
  return WebAssembly.compileStreaming(response).catch(
    async () => WebAssembly.compile(await bytes ?? await (await fetch('glimra.wasm')).arrayBuffer()));
}

/** Null where the browser cannot run it: sentence.js says so. */
export const code = window.WebAssembly && window.glimraCode ? compile() : null;
