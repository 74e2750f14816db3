// A browser, the served page, and hands to play with: what the tests of the page have in common.
import assert from 'node:assert/strict';
import {spawn} from 'node:child_process';
import {once} from 'node:events';
import {chromium} from 'playwright-core';

const FLAGS = ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
               '--disable-component-update', '--disable-sync', '--autoplay-policy=user-gesture-required'];
export const PHONE = {viewport: {width: 390, height: 844}, deviceScaleFactor: 3, hasTouch: true, isMobile: true};
export const DESKTOP = {viewport: {width: 1280, height: 1000}};
/** Screen pixels. */
export const PLAY = [120, 241], WELL = [22, 37, 132, 257], QUEUE = [168, 36, 214, 186];
/** What runs across each cell of a piece from corner to corner. */
const PIECES = ['74,85,222', '198,117,0', '74,190,0', '206,199,24', '206,32,33', '206,0,198', '0,158,231'];

export const launch = () => chromium.launch({executablePath: '/usr/bin/chromium', args: FLAGS});

/** Serves a folder by a program of its own, which ends when `stop` is called. */
export async function serve(script, folder) {
  const server = spawn('python3', [script, folder, '0'], {stdio: ['ignore', 'pipe', 'inherit']});
  const [line] = await once(server.stdout, 'data');
  process.on('exit', () => server.kill()); // a test that fails does not get to stop it
  server.unref();
  server.stdout.unref();
  return {address: String(line).trim(), stop: async () => {
    server.ref();
    server.kill();
    await once(server, 'exit');
  }};
}

export async function eventually(condition, message, milliseconds = 15000) {
  for (const end = Date.now() + milliseconds; ;) {
    const result = await condition();
    if (result) {
      return result;
    }
    assert.ok(Date.now() < end, message);
    await new Promise((resolve) => setTimeout(resolve, 40));
  }
}

/** A visit: a browser's profile with pages of one address, whose complaints and requests are kept. */
export class Visit {
  problems = [];

  static async begin(browser, address, options = DESKTOP, script = undefined) {
    const visit = new Visit();
    visit.address = address;
    visit.context = await browser.newContext(options);
    if (script) {
      await visit.context.addInitScript(script);
    }
    visit.context.on('request', (request) => {
      if (!/^(blob|data):/.test(request.url()) && !request.url().startsWith(address)) {
        visit.problems.push(`a request to ${request.url()}`);
      }
    });
    return visit;
  }

  async open() {
    const page = await this.context.newPage();
    page.on('console', (message) => {
      // Browsers advise against what `pixels` does.
      if (['error', 'warning'].includes(message.type()) && !message.text().startsWith('Canvas2D: Multiple readback')) {
        this.problems.push(message.text());
      }
    });
    page.on('pageerror', (error) => this.problems.push(error.stack));
    await page.goto(this.address);
    return page;
  }

  async end() {
    await this.context.close();
    assert.deepEqual(this.problems, [], 'no error, no request to another host');
  }
}

/** The screen's pixels, red, green, blue and opacity, as the page has drawn them. */
export async function pixels(page) {
  const base64 = await page.evaluate(() => {
    const canvas = document.querySelector('#screen');
    const {data} = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height);
    return btoa(Array.from(data, (byte) => String.fromCharCode(byte)).join(''));
  });
  return Buffer.from(base64, 'base64');
}

/** Where pieces are in an area of the screen. */
export async function pieces(page, [left, top, right, bottom]) {
  const data = await pixels(page);
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

/** A point of the screen, in the window. */
export async function at(page, [x, y]) {
  const box = await page.locator('#screen').boundingBox();
  return [box.x + (x + 0.5) * box.width / 240, box.y + (y + 0.5) * box.height / 320];
}

export const click = async (page, point) => page.mouse.click(...await at(page, point));
export const tap = async (page, point) => page.touchscreen.tap(...await at(page, point));
export const store = (page) => page.evaluate(() => localStorage.getItem('registry.reg'));

/** Fingers: `move` puts them where they are now; each has a name, those not named are lifted. */
export async function fingers(page) {
  const session = await page.context().newCDPSession(page);
  let down = 0;
  const middle = async (key) => {
    const box = await page.locator(`[data-key="${key}"] .mark`).first().boundingBox();
    return {x: box.x + box.width / 2, y: box.y + box.height / 2};
  };
  return {async move(...keys) {
    const touchPoints = await Promise.all(keys.map(async (key, id) => ({id, ...await middle(key)})));
    const type = keys.length > down ? 'touchStart' : keys.length < down ? 'touchEnd' : 'touchMove';
    down = keys.length;
    await session.send('Input.dispatchTouchEvent', {type, touchPoints});
  }};
}
