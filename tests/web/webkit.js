// WebKit, by plain WebDriver on a display in memory. A tab has the same methods in every engine.
import {spawn} from 'node:child_process';
import {once} from 'node:events';
import {existsSync} from 'node:fs';
import {createServer} from 'node:net';
import {setTimeout} from 'node:timers/promises';

const COMMAND = '/usr/bin/WebKitWebDriver';
const ELEMENT = 'element-6066-11e4-a52e-4f735466cecf';
const KEYS = {Backspace: 3, Tab: 4, Enter: 7, Shift: 8, Control: 9, Escape: 12, PageDown: 15, Home: 17, ArrowLeft: 18,
              ArrowUp: 19, ArrowRight: 20, ArrowDown: 21, F1: 49};
/** What the browser has around the page, and how narrow it can be, in pixels. */
const FRAME = 38, NARROWEST = 447;

async function freePort() {
  const server = createServer().listen(0, '127.0.0.1');
  await once(server, 'listening');
  const {port} = server.address();
  await new Promise((resolve) => server.close(resolve));
  return port;
}

class Tab {
  constructor(visit, handle) { Object.assign(this, {visit, handle}); }

  async call(method, path, body) {
    await this.visit.turnTo(this.handle);
    return this.visit.call(method, path, body);
  }

  goto(address) { return this.call('POST', '/url', {url: address}); }
  reload() { return this.call('POST', '/refresh', {}); }
  front() { return this.visit.turnTo(this.handle); }
  resize({width, height}) {
    return this.call('POST', '/window/rect', {x: 0, y: 0, width: Math.max(width, NARROWEST), height: height + FRAME});
  }
  evaluate(act, ...args) {
    const script = typeof act === 'function' ? `return (${act})(...arguments)` : `return ${act}`;
    return this.call('POST', '/execute/sync', {script, args});
  }
  keyDown(key) { return this.key('keyDown', key); }
  keyUp(key) { return this.key('keyUp', key); }
  key(type, key) {
    const value = KEYS[key] ? String.fromCharCode(0xE000 + KEYS[key]) : key;
    return this.call('POST', '/actions', {actions: [{type: 'key', id: 'keyboard', actions: [{type, value}]}]});
  }
  point(kind, x, y) {
    const change = {down: [{type: 'pointerDown', button: 0}], up: [{type: 'pointerUp', button: 0}], move: []}[kind];
    const actions = [{type: 'pointerMove', duration: 0, x: Math.floor(x), y: Math.floor(y)}, ...change];
    return this.call('POST', '/actions', {actions: [{type: 'pointer', id: 'mouse', actions}]});
  }
  async screenshot() { return Buffer.from(await this.call('GET', '/screenshot'), 'base64'); }
  async choose(selector, file) {
    const found = await this.call('POST', '/element', {using: 'css selector', value: selector});
    return this.call('POST', `/element/${found[ELEMENT]}/value`, {text: file});
  }
}

class Visit {
  known = new Set();

  constructor(driver, session, screen) { Object.assign(this, {driver, session, screen}); }

  async call(method, path, body) {
    const response = await fetch(`${this.driver}/session/${this.session}${path}`, {method, body: body && JSON.stringify(body)});
    const {value} = await response.json();
    if (!response.ok) {
      throw new Error(`${path}: ${value.error}: ${value.message}${value.error === 'invalid session id' ? webkit.said : ''}`);
    }
    return value;
  }

  async turnTo(handle) {
    if (this.current !== handle) {
      await this.call('POST', '/window', {handle});
      this.current = handle;
    }
  }

  adopt(handle) {
    this.known.add(handle);
    return new Tab(this, handle);
  }

  /** The session begins with one window. A tab would stay in the background, where no pointer works. */
  async open() {
    const tab = await this.opened() ?? this.adopt((await this.call('POST', '/window/new', {type: 'window'})).handle);
    await tab.resize(this.screen);
    return tab;
  }

  async opened() {
    const handle = (await this.call('GET', '/window/handles')).find((handle) => !this.known.has(handle));
    return handle && this.adopt(handle);
  }

  async end() {
    if (!this.ended) {
      this.ended = true;
      await this.call('DELETE', '');
    }
  }
}

export const webkit = {
  name: 'WebKit',
  get missing() {
    return [COMMAND, '/usr/bin/Xvfb'].filter((file) => !existsSync(file)).map((file) => `no ${file}`)[0] ?? null;
  },
  cannot: {
    fingers: 'its driver has a mouse only',
    work: 'its driver does not say how much a page has worked',
    ratio: 'its driver cannot change the density of the display',
    size: `its window is at least ${NARROWEST} pixels wide`,
  },

  /** With `settings` in its environment. */
  async launch(settings = {}) {
    this.display = spawn('Xvfb', ['-displayfd', '3', '-screen', '0', '1600x1300x24'], {stdio: ['ignore', 'ignore', 'ignore', 'pipe']});
    process.on('exit', () => this.display.kill());
    const [number] = await once(this.display.stdio[3], 'data');
    const port = await freePort();
    this.address = `http://127.0.0.1:${port}`;
    // While it compiles WebAssembly anew it interrupts its main thread hundreds of times a second. An interruption just
    // when its first sound has it look for the session's bus is taken for a failure and ends it. So it only interprets.
    const env = {...process.env, DISPLAY: `:${String(number).trim()}`, JSC_useBBQJIT: '0', JSC_useOMGJIT: '0', ...settings};
    this.driver = spawn(COMMAND, [`--port=${port}`], {stdio: ['ignore', 'ignore', 'pipe'], env});
    this.driver.stderr.on('data', (text) => { this.said = `${this.said ?? ''}${text}`.slice(-1000); });
    process.on('exit', () => this.driver.kill());
    for (const end = Date.now() + 10000; Date.now() < end && !await fetch(this.address).catch(() => null);) {
      await setTimeout(50);
    }
  },

  async begin(screen) {
    await this.visit?.end(); // there is one session at a time, and a test that fails has not ended its own
    const response = await fetch(`${this.address}/session`, {method: 'POST', body: '{"capabilities": {}}'});
    const {value} = await response.json();
    this.visit = new Visit(this.address, value.sessionId, screen);
    return this.visit;
  },

  async end() {
    this.driver.kill();
    this.display.kill();
  },
};
