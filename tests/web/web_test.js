// Plays the game in a real browser, as on a desktop and as on a phone.
//   node web_test.js PAGE-FOLDER SERVE-SCRIPT GLIMRA-PILOT
import assert from 'node:assert/strict';
import {execFileSync} from 'node:child_process';
import {cpSync, mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync} from 'node:fs';
import {tmpdir} from 'node:os';
import {join} from 'node:path';
import {after, before, test} from 'node:test';
import {gzipSync} from 'node:zlib';
import {click, eventually, fingers, launch, pieces, pixels, serve, store, tap, Visit, PHONE, PLAY, QUEUE, WELL}
  from './browser.js';

const [folder, script, pilot] = process.argv.slice(2);
/** Starts of the page and of a bare one, in turn, whose medians are compared. */
const ROUNDS = 25;
const HOLD = [168, 209, 197, 240];
let browser, server, title, temporary;

/** A picture's pixels, read by the browser. */
async function readPng(file) {
  const page = await browser.newPage();
  await page.setContent('<canvas id="screen" width="240" height="320"></canvas>');
  await page.evaluate(async (source) => {
    const image = Object.assign(new Image(), {src: source});
    await image.decode();
    document.querySelector('canvas').getContext('2d').drawImage(image, 0, 0);
  }, `data:image/png;base64,${readFileSync(file).toString('base64')}`);
  const result = await pixels(page);
  await page.close();
  return result;
}

before(async () => {
  temporary = mkdtempSync(join(tmpdir(), 'glimra-web-'));
  const picture = join(temporary, 'title.png');
  execFileSync(pilot, {input: `shot ${picture}\n`});
  browser = await launch();
  server = await serve(script, folder);
  title = await readPng(picture);
});

after(async () => {
  await browser?.close();
  await server?.stop();
  rmSync(temporary, {recursive: true});
});

const showsTitle = (page) => eventually(async () => title.equals(await pixels(page)), 'the title page, pixel by pixel');
const hasPieces = async (page) => (await pieces(page, QUEUE)).length > 0;
const begin = async (page, touch) => {
  await showsTitle(page);
  await touch(page, PLAY);
  await eventually(() => hasPieces(page), 'a game begins');
};
const stands = async (page) => {
  const first = await pixels(page);
  await page.waitForTimeout(1200);
  return first.equals(await pixels(page)) && first;
};

test('every pixel is a whole square, on all displays', async () => {
  for (const [width, height, deviceScaleFactor, hasTouch] of
    [[1280, 1000, 1, false], [1001, 777, 1.5, false], [3840, 2160, 1, false], [390, 844, 3, true], [320, 480, 2, true],
     [320, 480, 1, true], [844, 390, 2.625, true], [480, 320, 2, true], [411, 731, 2.625, true]]) {
    const visit = await Visit.begin(browser, server.address,
                                    {viewport: {width, height}, deviceScaleFactor, hasTouch, isMobile: hasTouch});
    const page = await visit.open();
    await showsTitle(page);
    const box = await page.locator('#screen').boundingBox();
    const scale = box.width * deviceScaleFactor / 240;
    for (const length of [scale, box.height * deviceScaleFactor / 320 - scale, box.x * deviceScaleFactor,
                          box.y * deviceScaleFactor]) {
      assert.ok(Math.abs(length - Math.round(length)) < 0.05, `${width} by ${height}: ${length} is whole`);
    }
    const room = Math.min(width / 240, height / 320) * deviceScaleFactor;
    assert.ok(scale > 0.99 && scale < room + 0.01 && (hasTouch || scale > room - 1), `${scale} of ${room}`);
    const edges = [box];
    for (const control of await page.locator('.control').all()) {
      assert.equal(await control.isVisible(), hasTouch);
      edges.push(...(hasTouch ? [await control.boundingBox()] : []));
    }
    for (const edge of edges) {
      assert.ok(edge.x >= 0 && edge.y >= -0.01 && edge.x + edge.width <= width + 0.01 &&
                edge.y + edge.height <= height + 0.01, `${width} by ${height}: ${JSON.stringify(edge)} is inside`);
      assert.ok(edge === box || edge.y >= box.y + box.height || edge.x >= box.x + box.width || edge.x + edge.width <= box.x);
    }
    await visit.end();
  }
});

test('a game is played with two fingers, and is there, paused, after a reload', async () => {
  const visit = await Visit.begin(browser, server.address, PHONE, () => { Date.now = () => 1000; });
  const page = await visit.open();
  await begin(page, tap);

  const hands = await fingers(page);
  const falling = () => pieces(page, [...WELL.slice(0, 3), WELL[1] + 88]);
  const left = (cells) => Math.min(...cells.map(([x]) => x));
  await hands.move(37);
  const lying = await eventually(async () => {
    const cells = await falling();
    return left(cells) < WELL[0] + 11 && cells;
  }, 'Left held moves the piece to the wall');
  await hands.move(37, 196);
  const height = (cells) => Math.max(...cells.map(([, y]) => y)) - Math.min(...cells.map(([, y]) => y));
  await eventually(async () => {
    const cells = await falling();
    return height(cells) > height(lying) + 5 && left(cells) < WELL[0] + 11;
  }, 'D turns it, and Left, which is still held, takes it back to the wall');
  await hands.move(37);
  await hands.move(39);
  await eventually(async () => left(await falling()) > WELL[0] + 33, 'the finger slides to Right');
  await hands.move();
  assert.equal(await page.locator('.pressed').count(), 0);

  await hands.move(193);
  await hands.move();
  await eventually(async () => !await hasPieces(page), 'A pauses, which hides the pieces');
  const paused = await eventually(() => stands(page), 'nothing moves');
  await page.reload();
  await eventually(async () => paused.equals(await pixels(page)), 'the same game, paused');
  await visit.end();
});

test('the keyboard plays; leaving pauses and saves; the menu saves and opens files', async () => {
  const visit = await Visit.begin(browser, server.address);
  const page = await visit.open();
  await begin(page, click);
  await page.keyboard.press('c');
  await eventually(async () => (await pieces(page, HOLD)).length > 11, 'C holds the piece');

  await page.evaluate(() => {
    window.pad = {index: 0, axes: [0, 0], buttons: Array.from({length: 17}, () => ({pressed: false}))};
    navigator.getGamepads = () => [window.pad];
    dispatchEvent(new Event('gamepadconnected'));
  });
  await page.evaluate('pad.buttons[9].pressed = true');
  await eventually(async () => !await hasPieces(page), 'Start of a controller pauses');
  await page.evaluate('pad.buttons[9].pressed = false');
  await page.waitForTimeout(100);
  await page.evaluate('pad.buttons[9].pressed = true');
  await eventually(() => hasPieces(page), 'and plays on');
  await page.evaluate('navigator.getGamepads = () => []');

  const before = await store(page);
  await page.evaluate(() => dispatchEvent(new Event('blur')));
  assert.notEqual(await store(page), before, 'saved within the event');
  await eventually(async () => !await hasPieces(page), 'and paused');
  await page.evaluate(() => dispatchEvent(new Event('focus')));
  const paused = await eventually(() => stands(page), 'still so on the way back');
  await click(page, [25, 307]);
  await eventually(async () => !paused.equals(await pixels(page)), 'a menu opens');
  await page.keyboard.press('Escape');
  await eventually(async () => paused.equals(await pixels(page)), 'Esc closes it, and nothing else');

  await page.click('#menu-button');
  const [download] = await Promise.all([page.waitForEvent('download'), page.click('[data-do=save]')]);
  const saved = join(temporary, 'saved.reg');
  await download.saveAs(saved);
  assert.equal(readFileSync(saved, 'utf8'), await store(page));

  await page.keyboard.press('Escape'); // plays on
  await page.keyboard.press('ArrowUp');
  await page.setInputFiles('#file', {name: 'no.reg', mimeType: '', buffer: Buffer.from('nonsense')});
  await page.locator('#notice', {hasText: 'no.reg cannot be used: line 1'}).waitFor();
  await Promise.all([page.waitForEvent('load'), page.setInputFiles('#file', saved)]);
  await eventually(async () => paused.equals(await pixels(page)), 'the saved game, paused');

  const [help] = await Promise.all([visit.context.waitForEvent('page'), page.keyboard.press('F1')]);
  await help.waitForLoadState();
  assert.match(await help.textContent('body'), /How to play/);
  await visit.end();
});

test('a lost game takes a name typed on the input panel', async () => {
  const visit = await Visit.begin(browser, server.address, PHONE);
  const page = await visit.open();
  await begin(page, tap);
  const press = async (key, milliseconds) => {
    await page.keyboard.down(key);
    await page.waitForTimeout(milliseconds);
    await page.keyboard.up(key);
  };
  for (let i = 0; i < 30; ++i) {
    if (i < 21 && i % 3 < 2) {
      await press(i % 3 === 0 ? 'ArrowLeft' : 'ArrowRight', 500);
    }
    await press('ArrowUp', 30);
    await page.waitForTimeout(330);
  }
  const panelIsUp = async () => (await pixels(page)).readUInt32BE((210 * 240 + 10) * 4) >>> 8 > 0xE00000;
  await eventually(panelIsUp, 'the input panel comes up');
  for (const key of [[50, 267], [10, 250], [90, 250]]) {
    await tap(page, key);
  }
  await tap(page, [74, 180]);
  await showsTitle(page);
  const bytes = (await store(page)).replace(/\\\n */g, '');
  assert.match(bytes, /[57]a,00,61,00,67,00,00/, 'z, a and g stand in a table');
  await visit.end();
});

test('a second page takes the game over', async () => {
  const visit = await Visit.begin(browser, server.address);
  const first = await visit.open();
  await begin(first, click);
  const second = await visit.open();
  await second.locator('#question', {hasText: 'open in another tab'}).waitFor();
  await Promise.all([second.waitForEvent('load'), second.click('#question button')]);
  const paused = await eventually(() => stands(second), 'the game stands');
  assert.ok(!title.equals(paused));
  await eventually(async () => paused.equals(await pixels(first)), 'the same game');
  await first.locator('#question', {hasText: 'goes on in another tab'}).waitFor();
  await visit.end();
});

test('without a place to store anything it says so and plays on, with sound', async () => {
  const visit = await Visit.begin(browser, server.address, undefined, () => {
    Storage.prototype.setItem = () => { throw new DOMException('full', 'QuotaExceededError'); };
    window.heard = [];
    const {start, stop} = AudioBufferSourceNode.prototype;
    AudioBufferSourceNode.prototype.start = function(...when) {
      window.heard.push(`start ${this.buffer.sampleRate} ${this.context.state}`);
      start.apply(this, when);
    };
    AudioBufferSourceNode.prototype.stop = function() {
      window.heard.push('stop');
      stop.call(this);
    };
  });
  const page = await visit.open();
  await begin(page, click);
  assert.match(await page.textContent('#notice'), /does not let the page store/);
  await page.waitForTimeout(300);
  for (let i = 0; i < 8; ++i) {
    await page.keyboard.press(i % 2 ? 'x' : 'z', {delay: 40});
    await page.keyboard.press(i % 2 ? 'ArrowLeft' : 'ArrowRight', {delay: 40});
  }
  const heard = await page.evaluate('heard');
  assert.ok(heard.includes('start 22050 running') && heard.includes('stop'), `cut off: ${heard}`);
  await visit.end();
});

test('a damaged store is kept, and left in its place where that is refused', async () => {
  const kept = () => Object.assign(localStorage, {'registry.reg': 'nonsense', 'registry.reg.bad': 'older nonsense'});
  const refused = () => {
    localStorage['registry.reg'] = 'nonsense';
    Storage.prototype.setItem = (name, text) => {
      if (name.includes('bad')) {
        throw new DOMException('full', 'QuotaExceededError');
      }
      localStorage[name] = text;
    };
  };
  for (const [script, name] of [[kept, 'registry.reg.bad.1'], [refused, 'registry.reg']]) {
    const visit = await Visit.begin(browser, server.address, undefined, script);
    const page = await visit.open();
    await begin(page, click);
    await page.evaluate(() => dispatchEvent(new Event('blur'))); // the game is saved, or would be
    assert.equal(await page.evaluate((key) => localStorage[key], name), 'nonsense');
    await visit.end();
  }
});

test('it starts without a connection after the first visit, and a new version at the next start', async () => {
  const copy = join(temporary, 'copy');
  cpSync(folder, copy, {recursive: true, preserveTimestamps: true});
  const change = (name, from, to) => {
    const file = join(copy, name);
    writeFileSync(file, readFileSync(file, 'utf8').replace(from, to));
  };
  const own = await serve(script, copy);
  const visit = await Visit.begin(browser, own.address);
  const page = await visit.open();
  await showsTitle(page);
  await page.evaluate(() => navigator.serviceWorker.ready);
  change('worker.js', /glimra-\w+/, 'glimra-next');
  change('index.html', '<html', '<html data-next');
  await page.reload();
  await eventually(() => page.evaluate(
    async () => Boolean((await navigator.serviceWorker.getRegistration()).waiting)), 'the new version is fetched');
  assert.equal(await page.locator('[data-next]').count(), 0, 'nothing changes under a page that runs');
  await page.reload();
  await page.locator('[data-next]').waitFor({state: 'attached'});
  await showsTitle(page);
  await own.stop();
  await page.reload();
  await showsTitle(page);
  await visit.end();
});

test('it is small, starts fast, and sleeps while nothing happens', async (report) => {
  const sizes = readdirSync(folder).map((name) => gzipSync(readFileSync(join(folder, name)), {level: 9}).length);
  const size = sizes.reduce((a, b) => a + b) / 1024;
  report.diagnostic(`${size.toFixed(1)} KiB compressed`);
  assert.ok(size <= 450);

  const bare = await serve(script, new URL('bare', import.meta.url).pathname);
  const visit = await Visit.begin(browser, server.address, undefined, () => {
    window.wakes = 0;
    const count = (act) => act && ((...words) => { ++window.wakes; act(...words); });
    for (const name of ['setTimeout', 'setInterval', 'requestAnimationFrame', 'requestIdleCallback']) {
      const original = window[name];
      window[name] = (act, ...words) => original(count(act), ...words);
    }
    const shown = () => setTimeout(() => { window.firstFrame ??= performance.now(); }); // after the display's frame
    const {putImageData} = CanvasRenderingContext2D.prototype;
    CanvasRenderingContext2D.prototype.putImageData = function(...words) {
      putImageData.apply(this, words);
      if (!window.firstFrame) {
        requestAnimationFrame(shown);
      }
    };
  });
  const timeOf = async (address) => {
    visit.address = address;
    const page = await visit.open();
    const time = await eventually(() => page.evaluate('window.firstFrame'), 'a first frame');
    await page.close();
    return time;
  };
  await timeOf(server.address);
  await timeOf(server.address);
  const times = {bare: [], game: []};
  for (let i = 0; i < ROUNDS; ++i) {
    times.game.push(await timeOf(server.address));
    times.bare.push(await timeOf(bare.address));
  }
  const median = (list) => list.sort((a, b) => a - b)[(ROUNDS - 1) / 2];
  const game = median(times.game), base = median(times.bare);
  report.diagnostic(`first frame after ${game.toFixed(0)} ms, of a bare page after ${base.toFixed(0)} ms`);

  visit.address = server.address;
  const page = await visit.open();
  await showsTitle(page);
  await page.waitForTimeout(1500);
  const earlier = await page.evaluate('window.wakes');
  await page.waitForTimeout(3000);
  const wakes = await page.evaluate('window.wakes') - earlier;
  report.diagnostic(`${wakes} wakes in 3 s`);
  assert.ok(wakes >= 5 && wakes <= 7, `${wakes} wakes in 3 s`);
  await visit.context.close();
  await bare.stop();
  assert.ok(game <= 3 * base, `${game} ms to the first frame, ${base} ms for a bare page`);
});
