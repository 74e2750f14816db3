#!/usr/bin/env node
// What the page costs: bytes, requests, time to the first picture, work at rest and in play, and the game's own work
// beside that of this machine's code. `bench/run page` builds what it needs and starts it.
//   bench/web.js [PAGE-FOLDER [TICKS-OF-THE-PAGE [TICKS-OF-THIS-MACHINE]]]
import {execFileSync} from 'node:child_process';
import {readFileSync, readdirSync, existsSync} from 'node:fs';
import {createServer} from 'node:http';
import {extname, join} from 'node:path';
import {chromium, firefox} from '../tests/web/puppets.js';
import {webkit} from '../tests/web/webkit.js';

const [page = 'build/web', ticksFolder = 'build/web-objects', nativeTicks = 'build/bench/bench/ticks'] = process.argv.slice(2);
const bare = new URL('bare', import.meta.url).pathname;
const ROUNDS = 25, SLOW = 400e3, LATENCY = 40;
const TYPES = {'.html': 'text/html', '.js': 'text/javascript', '.css': 'text/css', '.wasm': 'application/wasm',
               '.png': 'image/png', '.json': 'application/manifest+json', '.htm': 'text/html'};
const sleep = (milliseconds) => new Promise((resolve) => setTimeout(resolve, milliseconds));
const row = (name, ...figures) => console.log(name.padEnd(44) + figures.map((figure) => String(figure).padStart(12)).join(''));

/** Serves a folder, compressed where there are files for it, and notes what it sends. */
async function serve(folder) {
  const sent = [];
  const server = createServer((request, response) => {
    const name = request.url.replace(/\/$/, '/index.html').slice(1), file = join(folder, name);
    const packed = existsSync(`${file}.br`) && /\bbr\b/.test(request.headers['accept-encoding'] ?? '') ? '.br' : '';
    const tag = `"${name}"`;
    response.setHeader('Cache-Control', 'no-cache');
    response.setHeader('ETag', tag);
    if (!existsSync(file) || request.headers['if-none-match'] === tag) {
      response.writeHead(existsSync(file) ? 304 : 404).end();
      return;
    }
    sent.push(name);
    response.setHeader('Content-Type', TYPES[extname(name)] ?? 'text/plain');
    if (packed) {
      response.setHeader('Content-Encoding', 'br');
    }
    response.end(readFileSync(file + packed));
  }).listen(0, '127.0.0.1');
  await new Promise((resolve) => server.once('listening', resolve));
  return {address: `http://127.0.0.1:${server.address().port}/`, sent};
}

/** Notes when the first frame is drawn and when the display has shown it. */
const note = () => {
  const {putImageData} = CanvasRenderingContext2D.prototype;
  CanvasRenderingContext2D.prototype.putImageData = function(...words) {
    putImageData.apply(this, words);
    if (performance.getEntriesByName('first frame').length === 0) {
      requestAnimationFrame(() => setTimeout(() => performance.mark('first frame')));
    }
  };
};
const markOf = (tab, name) => tab.evaluate((name) => performance.getEntriesByName(name)[0]?.startTime, name);
async function waitFor(act) {
  for (let i = 0; i < 1000; ++i) {
    const result = await act();
    if (result) {
      return result;
    }
    await sleep(20);
  }
  throw new Error('nothing came');
}

function sizes() {
  row('file, bytes', 'as it is', 'gzip -9', 'brotli -q 11');
  const sums = [0, 0, 0];
  for (const name of readdirSync(page).filter((name) => !/\.(br|gz)$/.test(name))) {
    const raw = readFileSync(join(page, name)).length;
    const packed = ['gz', 'br'].map((kind) => {
      const file = join(page, `${name}.${kind}`);
      return existsSync(file) ? readFileSync(file).length : raw;
    });
    [raw, ...packed].forEach((size, i) => { sums[i] += size; });
    row(`  ${name}`, raw, ...packed);
  }
  row('  all', ...sums);
}

/** What a first visit is sent, and what of it more than once. */
async function requests(engine) {
  const server = await serve(page);
  await engine.launch();
  const visit = await engine.begin({width: 800, height: 900});
  const tab = await visit.open();
  await tab.goto(server.address);
  await sleep(4000);
  const twice = [...new Set(server.sent.filter((name, i) => server.sent.indexOf(name) !== i))];
  row(`${engine.name}: files sent, sent twice`, server.sent.length, twice.join(' ') || 'none');
  await visit.end();
  await engine.end();
}

async function starts() {
  const servers = {game: await serve(page), bare: await serve(bare)}, times = {game: [], bare: []};
  const visit = await chromium.begin({width: 1280, height: 1000});
  for (let i = -2; i < ROUNDS; ++i) {
    for (const [name, {address}] of Object.entries(servers)) {
      const tab = await visit.open();
      await tab.page.evaluateOnNewDocument(note);
      await tab.goto(address);
      const time = await waitFor(() => markOf(tab, 'first frame'));
      if (i >= 0) {
        times[name].push(time);
      }
      await tab.close();
    }
  }
  const [game, base] = [times.game, times.bare].map((list) => list.sort((a, b) => a - b)[(ROUNDS - 1) / 2]);
  row('start to first frame, later visits', `${game.toFixed(0)} ms`);
  row('  a bare page with one frame', `${base.toFixed(0)} ms`);
  row('  the one by the other', (game / base).toFixed(2));
  await visit.end();
}

async function slowLine() {
  const server = await serve(page);
  const visit = await chromium.begin({width: 390, height: 844, deviceScaleFactor: 3, hasTouch: true});
  const tab = await visit.open();
  const session = await tab.page.createCDPSession();
  await session.send('Network.enable');
  await session.send('Network.emulateNetworkConditions',
                     {offline: false, latency: LATENCY, downloadThroughput: SLOW, uploadThroughput: SLOW});
  await tab.page.evaluateOnNewDocument(note);
  tab.page.goto(server.address).catch(() => {});
  const frame = await waitFor(() => markOf(tab, 'first frame').catch(() => null));
  const paint = await markOf(tab, 'first-contentful-paint');
  row('400 kB/s: the handheld and progress', `${paint.toFixed(0)} ms`);
  row('400 kB/s: the game', `${frame.toFixed(0)} ms`);
  await visit.end();
}

/** What runs a page, by engine, and where all of an engine's processes come from. */
const RENDERERS = {Chromium: /--type=renderer/, Firefox: /-contentproc.*\btab\b/, WebKit: /WebKitWebProcess/};
const rootOf = (engine) => (engine.browser?.process() ?? engine.driver).pid;
const fact = (path) => { try { return readFileSync(`/proc/${path}`, 'utf8'); } catch { return ''; } };

function isBelow(process, root) {
  for (; process > 1; process = Number(/\) \S (\d+)/.exec(fact(`${process}/stat`))?.[1])) {
    if (process === root) {
      return true;
    }
  }
  return false;
}

/** What the main threads of the engine's pages have taken so far, by process: seconds of a core, and times they were woken. */
function taken(engine) {
  const pages = readdirSync('/proc').filter((name) => RENDERERS[engine.name].test(fact(`${name}/cmdline`).replaceAll('\0', ' ')) &&
                                                      isBelow(Number(name), rootOf(engine)));
  return new Map(pages.map((name) => [name, [
    Number(fact(`${name}/task/${name}/schedstat`).split(' ')[0]) / 1e9,
    Number(/\nvoluntary_ctxt_switches:\s*(\d+)/.exec(fact(`${name}/task/${name}/status`))?.[1])]]));
}

/** The share of a core that the page's main thread takes. */
async function work(engine) {
  const server = await serve(page);
  await engine.launch();
  const visit = await engine.begin({width: 1280, height: 1000});
  const tab = await visit.open();
  await tab.goto(server.address);
  const share = async (what, act = () => sleep(10000)) => {
    const begin = performance.now(), before = taken(engine);
    await act();
    const seconds = (performance.now() - begin) / 1000, after = taken(engine);
    const both = [...before.keys()].filter((name) => after.has(name)); // browsers begin and end some that show no page
    const [core, wakes] = [0, 1].map((i) => both.reduce((sum, name) => sum + after.get(name)[i] - before.get(name)[i], 0) / seconds);
    row(`${engine.name}: ${what}`, `${(core * 100).toFixed(2)} %`, `${wakes.toFixed(0)} wakes/s`);
  };
  await sleep(3000);
  await share('title page, of a core');
  await tab.reload(); // by now it may show the high scores
  await sleep(3000);
  const box = await tab.evaluate(() => {
    const {x, y, width, height} = document.querySelector('#screen').getBoundingClientRect();
    return {x, y, width, height};
  });
  for (const kind of ['down', 'up']) {
    await tab.point(kind, box.x + box.width / 2, box.y + box.height * 0.755);
  }
  const says = (text) => waitFor(() => tab.evaluate((text) => document.querySelector('#state').textContent.includes(text), text));
  const press = async (key) => {
    await tab.keyDown(key);
    await sleep(100);
    await tab.keyUp(key);
  };
  await says('Marathon');
  await sleep(1000);
  await share('in play, of a core');
  await share('in play, two buttons a second', async () => {
    for (const key of ['ArrowLeft', 'ArrowRight', 'x', 'z', 'ArrowLeft', 'ArrowRight', 'x', 'z'].flatMap((key) => [key, key])) {
      await press(key);
      await sleep(400);
    }
  });
  await press('p');
  await says('Paused');
  await sleep(5000);
  await share('paused');
  await tab.evaluate(() => {
    const pad = {index: 0, id: 'pad', mapping: 'standard', axes: [0, 0, 0, 0], buttons: Array.from({length: 17}, () => ({pressed: false}))};
    navigator.getGamepads = () => [pad];
    dispatchEvent(Object.assign(new Event('gamepadconnected'), {gamepad: pad}));
  });
  await share('paused, with a controller');
  await visit.end();
  await engine.end();
}

/** Runs bench/ticks.cpp in a page. */
async function ticksIn(engine) {
  const server = await serve(ticksFolder);
  await engine.launch({JSC_useBBQJIT: '1', JSC_useOMGJIT: '1'}); // nothing sounds: it may compile
  const visit = await engine.begin({width: 800, height: 900});
  const tab = await visit.open();
  await tab.goto(`${server.address}ticks.js`);
  const lines = await tab.evaluate(async () => {
    const lines = [];
    const {default: run} = await import('/ticks.js');
    await run({print: (line) => lines.push(line)});
    return lines;
  });
  await visit.end();
  await engine.end();
  return lines;
}

/** Nanoseconds, by name. */
const times = (lines) => Object.fromEntries(lines.map((line) => line.split(' ')));

async function ticks(engines) {
  const own = () => times(execFileSync(nativeTicks, {encoding: 'utf8'}).trim().split('\n'));
  for (const engine of engines) {
    const before = own(), there = times(await ticksIn(engine)), after = own();
    for (const name of Object.keys(there)) {
      row(`${engine.name}: ${name}, in the page by native`, `${Math.round(there[name])} ns`,
          (there[name] / Math.min(before[name], after[name])).toFixed(2));
    }
  }
}

const engines = [chromium, firefox, webkit].filter((engine) => !engine.missing);
sizes();
await ticks(engines);
for (const engine of engines) {
  await requests(engine);
  await work(engine);
}
await chromium.launch();
await starts();
await slowLine();
await chromium.end();
process.exit();
