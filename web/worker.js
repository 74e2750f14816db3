// Keeps the page for visits without a connection. The build fills in the version, which is made
// from the bytes of all files, and their names.
const CACHE = 'glimra-@VERSION@';
const FILES = ['./', @FILES@];

addEventListener('install', (event) => {
  // A first visit has just fetched what the page is made of; a new version is asked for anew.
  const cache = registration.active ? 'no-cache' : 'force-cache';
  const fresh = FILES.map((file) => new Request(file, {cache}));
  event.waitUntil(caches.open(CACHE).then((cache) => cache.addAll(fresh)));
});

addEventListener('activate', (event) => {
  event.waitUntil(caches.keys().then((names) => Promise.all(
    names.filter((name) => name.startsWith('glimra-') && name !== CACHE).map((name) => caches.delete(name)))));
});

addEventListener('message', (event) => {
  if (event.data === 'take effect') {
    skipWaiting();
  }
});

let leaving = false; // the newer version is taking over

/** A start while a newer version waits, and no other page runs, begins once more with that one. */
async function start(request) {
  const pages = await clients.matchAll({type: 'window'});
  if (leaving || (registration.waiting && pages.length < 2)) {
    leaving = true;
    registration.waiting?.postMessage('take effect');
    return new Response('<link rel="icon" href="data:,">', {headers: {'Content-Type': 'text/html', Refresh: '0'}});
  }
  return answer(request);
}

async function answer(request) {
  return await caches.match(request, {cacheName: CACHE}) ?? fetch(request);
}

addEventListener('fetch', (event) => {
  const {request} = event;
  if (request.method === 'GET' && new URL(request.url).origin === location.origin) {
    event.respondWith(request.mode === 'navigate' ? start(request) : answer(request));
  }
});
