// Keeps the page for visits without a connection. The build fills in the version, which is made
// from the bytes of all files, and their names.
const CACHE = 'glimra-@VERSION@';
const FILES = ['./', @FILES@];

/** A first visit has just fetched what the page is made of; a new version is asked for anew. */
async function install() {
  const first = !registration.active;
  const cache = await caches.open(CACHE);
  const program = first && await caches.match('glimra.wasm', {cacheName: 'glimra-handed'});
  if (program) {
    await cache.put('glimra.wasm', program);
  }
  await cache.addAll(FILES.filter((file) => !program || file !== 'glimra.wasm')
    .map((file) => new Request(file, {cache: first ? 'force-cache' : 'no-cache'})));
}

addEventListener('install', (event) => event.waitUntil(install()));

addEventListener('activate', (event) => {
  event.waitUntil(caches.keys().then((names) => Promise.all(
    names.filter((name) => name.startsWith('glimra-') && name !== CACHE).map((name) => caches.delete(name)))));
});

addEventListener('message', (event) => {
  if (event.data === 'take effect') {
    skipWaiting();
  }
});

/** A start while a newer version waits, and no other page runs, begins once more with that one. */
async function start(request) {
  const pages = await clients.matchAll({type: 'window'});
  if (registration.waiting && pages.length < 2) {
    registration.waiting.postMessage('take effect');
    return new Response('<link rel="icon" href="data:,">', {headers: {'Content-Type': 'text/html', Refresh: '0'}});
  }
  return answer(request);
}

async function answer(request) {
  const address = request.url.replace(/(index\.html)?(#.*)?$/, '');
  return await caches.match(address, {cacheName: CACHE}) ?? fetch(request);
}

addEventListener('fetch', (event) => {
  const {request} = event;
  if (request.method === 'GET' && new URL(request.url).origin === location.origin) {
    event.respondWith(request.mode === 'navigate' ? start(request) : answer(request));
  }
});
