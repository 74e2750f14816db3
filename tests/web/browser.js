// The served page, its screen and hands to play with: what the tests of the page have in common.
import assert from 'node:assert/strict';
import {spawn} from 'node:child_process';
import {once} from 'node:events';
import {cpSync, mkdtempSync, readFileSync, rmSync, utimesSync, writeFileSync} from 'node:fs';
import {tmpdir} from 'node:os';
import {join} from 'node:path';

export const PHONE = {width: 390, height: 844, deviceScaleFactor: 3, hasTouch: true};
export const DESKTOP = {width: 1280, height: 1000};
/** Screen pixels. */
export const PLAY = [120, 241], WELL = [22, 37, 132, 257], QUEUE = [168, 36, 214, 186], HOLD = [168, 209, 197, 240];
/** What runs across each cell of a piece from corner to corner. */
const PIECES = ['74,85,222', '198,117,0', '74,190,0', '206,199,24', '206,32,33', '206,0,198', '0,158,231'];

const [folder = 'build/web', serveScript = 'web/serve.py'] = process.argv.slice(2);
export const page = folder;
export const temporary = mkdtempSync(join(tmpdir(), 'glimra-web-'));
const running = new Set();
process.on('exit', () => { // a test that fails does not get to stop its server
  running.forEach((server) => server.kill());
  rmSync(temporary, {recursive: true});
});

/** Serves a folder by a program of its own, which ends when `stop` is called. */
export async function serve(folder) {
  const server = spawn('python3', [serveScript, folder, '0'], {stdio: ['ignore', 'pipe', 'inherit']});
  const [line] = await once(server.stdout, 'data');
  running.add(server);
  server.unref();
  server.stdout.unref();
  return {address: String(line).trim(), stop: async () => {
    if (running.delete(server)) {
      server.ref();
      server.kill();
      await once(server, 'exit');
    }
  }};
}

/** A file with that text; its path. */
export function temporaryFile(name, text) {
  const file = join(temporary, name);
  writeFileSync(file, text);
  return file;
}

export const isPacked = (file) => /\.(br|gz)$/.test(file);

/** A copy of the page in which the probe runs first, and `script` after it. Its files change, so none is packed. */
export function copyPage(script = () => {}) {
  const copy = mkdtempSync(join(temporary, 'page-'));
  cpSync(folder, copy, {recursive: true, preserveTimestamps: true, filter: (file) => !isPacked(file)});
  const probe = readFileSync(new URL('probe.js', import.meta.url), 'utf8');
  writeFileSync(join(copy, 'probe.js'), `${probe}(${script})();\n`);
  changeFile(join(copy, 'index.html'), '<link rel="stylesheet"', '<script src="probe.js"></script>$&');
  utimesSync(join(copy, 'index.html'), 1e9, 1e9); // so that a later change, of the same second even, has another time
  return copy;
}

export function changeFile(file, from, to) {
  const text = readFileSync(file, 'utf8');
  assert.notEqual(text.search(from), -1, `${file} has ${from}`);
  writeFileSync(file, text.replace(from, to));
}

export const sleep = (milliseconds) => new Promise((resolve) => setTimeout(resolve, milliseconds));

/** Waits until a condition holds. A page that is just being left or loaded throws, or does not answer: not yet. */
export async function eventually(condition, message, milliseconds = 15000) {
  for (const end = Date.now() + milliseconds; ;) {
    let problem = '';
    const answer = condition().catch((error) => { problem = `: ${error.message}`; });
    const result = await Promise.race([answer, sleep(5000)]);
    if (result) {
      return result;
    }
    assert.ok(Date.now() < end, (typeof message === 'function' ? await message() : message) + problem);
    await sleep(40);
  }
}

/** A visit: a browser's profile with tabs of one copy of the page; `script` runs before the page's own. */
export async function begin(engine, screen = DESKTOP, script = undefined) {
  const copy = copyPage(script);
  const server = await serve(copy);
  const visit = await engine.begin(screen);
  const tabs = [];
  return {
    address: server.address, copy, stopServer: server.stop,
    async open(address = server.address) {
      const tab = await visit.open();
      tabs.push(tab);
      await tab.goto(address);
      return tab;
    },
    opened: () => visit.opened(),
    async end() {
      for (const tab of tabs.filter((tab) => !tab.closed)) {
        assert.deepEqual(await tab.evaluate('window.problems ?? []'), [], 'no error, nothing refused');
      }
      await visit.end();
      await server.stop();
    },
  };
}

// The screen --------------------------------------------------------------------------------------

/** The screen's pixels, red, green, blue and opacity, as the page has drawn them: the canvas has each several times. */
export async function pixels(tab) {
  return Buffer.from(await tab.evaluate(() => {
    const small = Object.assign(document.createElement('canvas'), {width: 240, height: 320}).getContext('2d');
    small.imageSmoothingEnabled = false;
    small.drawImage(document.querySelector('#screen'), 0, 0, 240, 320);
    const {data} = small.getImageData(0, 0, 240, 320);
    return btoa(Array.from(data, (byte) => String.fromCharCode(byte)).join(''));
  }), 'base64');
}

/** Where pieces are in an area of the screen. */
export async function pieces(tab, [left, top, right, bottom]) {
  const data = await pixels(tab);
  const found = [];
  for (let y = top; y < bottom; ++y) {
    for (let x = left; x < right; ++x) {
      const at = (y * 240 + x) * 4;
      if (PIECES.includes(data.subarray(at, at + 3).join())) {
        found.push([x, y]);
      }
    }
  }
  return found;
}

// Hands -------------------------------------------------------------------------------------------

export const boxOf = (tab, selector) => tab.evaluate((selector) => {
  const {x, y, width, height} = document.querySelector(selector).getBoundingClientRect();
  return {x, y, width, height};
}, selector);

/** Taps a point of the screen. */
export async function tap(tab, [x, y]) {
  const box = await boxOf(tab, '#screen');
  await tapWindow(tab, box.x + (x + 0.5) * box.width / 240, box.y + (y + 0.5) * box.height / 320);
}

/** Gives the page a size. A page does not always notice a driver's change. */
export async function resize(tab, screen, message = `${screen.width} pixels wide`) {
  await tab.resize(screen);
  await eventually(() => tab.evaluate(({width, deviceScaleFactor}) =>
    innerWidth === width && devicePixelRatio === (deviceScaleFactor ?? devicePixelRatio), screen), message);
  await tab.evaluate(() => { dispatchEvent(new Event('resize')); });
}

/** What is wrong with the page's names, roles and contrasts. */
export async function flaws(tab) {
  const axe = readFileSync(new URL('node_modules/axe-core/axe.min.js', import.meta.url), 'utf8');
  await tab.evaluate(`(() => { ${axe}; return 0; })()`);
  return tab.evaluate(async () => (await axe.run()).violations.map(({id, nodes}) => `${id}: ${nodes[0].html}`));
}

export async function tapWindow(tab, x, y) {
  await tab.point('down', x, y);
  await sleep(30);
  await tab.point('up', x, y);
}

/** Taps what a selector finds. */
export async function tapOn(tab, selector) {
  const box = await boxOf(tab, selector);
  await tapWindow(tab, box.x + box.width / 2, box.y + box.height / 2);
}

/** Puts a finger on a button of the handheld, slides it there, or lifts it. */
export async function finger(tab, kind, key, id = 0) {
  const box = await boxOf(tab, `[data-button="${key}"] .mark`);
  await tab.point(kind, box.x + box.width / 2, box.y + box.height / 2, id);
}

export async function press(tab, key, milliseconds = 30) {
  await tab.keyDown(key);
  await sleep(milliseconds);
  await tab.keyUp(key);
}

export const textOf = (tab, selector) => tab.evaluate((selector) => {
  const found = document.querySelector(selector);
  return found?.checkVisibility() ? found.textContent : '';
}, selector);
export const says = (tab, selector, text) => eventually(
  async () => text.test(await textOf(tab, selector)), async () => `${selector} says ${text}: ${await textOf(tab, selector)}`);
export const store = (tab) => tab.evaluate('localStorage.getItem("registry.reg")');
