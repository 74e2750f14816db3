// Plays the game in real browsers, as on a desktop and as on a phone: one walk, three engines.
//   node web_test.js [PAGE-FOLDER [SERVE-SCRIPT [GLIMRA-PILOT]]]
import assert from 'node:assert/strict';
import {execFileSync} from 'node:child_process';
import {readdirSync, readFileSync, writeFileSync} from 'node:fs';
import {join} from 'node:path';
import {after, before, describe, test as nodeTest} from 'node:test';
import {gzipSync} from 'node:zlib';
import {begin, boxOf, changeFile, eventually, finger, page, pieces, pixels, press, says, serve, sleep, store, tap, tapOn, temporary,
        DESKTOP, HOLD, PHONE, PLAY, QUEUE, WELL} from './browser.js';
import {chromium, firefox} from './puppets.js';
import {webkit} from './webkit.js';

const pilot = process.argv[4] ?? 'build/release/glimra-pilot';
let title;

async function showsTitle(tab) {
  title ??= await readPng(tab, titlePicture);
  await eventually(async () => title.equals(await pixels(tab)), 'the title page, pixel by pixel');
}

const titlePicture = join(temporary, 'title.png');
execFileSync(pilot, {input: `shot ${titlePicture}\n`});

/** A picture's pixels, read by the browser: the page's policy allows pictures of its own only. */
async function readPng(tab, file) {
  return Buffer.from(await tab.evaluate(async (base64) => {
    const bytes = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
    const picture = await createImageBitmap(new Blob([bytes], {type: 'image/png'}));
    const context = Object.assign(document.createElement('canvas'), {width: picture.width, height: picture.height}).getContext('2d');
    context.drawImage(picture, 0, 0);
    const {data} = context.getImageData(0, 0, picture.width, picture.height);
    let text = '';
    for (let i = 0; i < data.length; i += 8192) {
      text += String.fromCharCode(...data.subarray(i, i + 8192));
    }
    return btoa(text);
  }, readFileSync(file).toString('base64')), 'base64');
}

const hasPieces = async (tab) => (await pieces(tab, QUEUE)).length > 0;
const start = async (tab) => {
  await showsTitle(tab);
  await tap(tab, PLAY);
  await eventually(() => hasPieces(tab), 'a game begins');
};
const stands = async (tab) => {
  const first = await pixels(tab);
  await sleep(1200);
  return first.equals(await pixels(tab)) && first;
};
const falling = (tab) => pieces(tab, [...WELL.slice(0, 3), WELL[1] + 88]);
const left = (cells) => Math.min(...cells.map(([x]) => x));

/** The walk through the page. */
function walk(engine) {
  /** A case that the engine's driver cannot do is skipped, and says why. */
  const needs = (what) => engine.cannot[what] ? {skip: engine.cannot[what]} : {};
  const test = (name, options, act = options) => nodeTest(name, {timeout: 90000, ...options}, act);
  before(() => engine.launch());
  after(() => engine.end());

  test('a game is played with a finger, and is there, paused, after a reload', async () => {
    const visit = await begin(engine, PHONE);
    const tab = await visit.open();
    await start(tab);
    await finger(tab, 'down', 'Left');
    await eventually(async () => left(await falling(tab)) < WELL[0] + 11, 'Left held moves the piece to the wall');
    await finger(tab, 'move', 'Right');
    await eventually(async () => left(await falling(tab)) > WELL[0] + 33, 'the finger slides to Right');
    await finger(tab, 'up', 'Right');
    assert.equal(await tab.evaluate('document.querySelectorAll(".pressed").length'), 0);

    await finger(tab, 'down', 'A');
    await finger(tab, 'up', 'A');
    await eventually(async () => !await hasPieces(tab), 'A pauses, which hides the pieces');
    const paused = await eventually(() => stands(tab), 'nothing moves');
    await tab.reload();
    await eventually(async () => paused.equals(await pixels(tab)), 'the same game, paused');
    await visit.end();
  });

  test('two fingers press two buttons', needs('fingers'), async () => {
    const visit = await begin(engine, PHONE, () => { Date.now = () => 1000; });
    const tab = await visit.open();
    await start(tab);
    await finger(tab, 'down', 'Left');
    const lying = await eventually(async () => {
      const cells = await falling(tab);
      return left(cells) < WELL[0] + 11 && cells;
    }, 'Left held moves the piece to the wall');
    await finger(tab, 'down', 'D', 1);
    const height = (cells) => Math.max(...cells.map(([, y]) => y)) - Math.min(...cells.map(([, y]) => y));
    await eventually(async () => {
      const cells = await falling(tab);
      return height(cells) > height(lying) + 5 && left(cells) < WELL[0] + 11;
    }, 'D turns it, and Left, which is still held, takes it back to the wall');
    await finger(tab, 'up', 'D', 1);
    await finger(tab, 'up', 'Left');
    await visit.end();
  });

  test('the keyboard plays; leaving pauses and saves; the menu saves and opens files', async () => {
    const visit = await begin(engine);
    const tab = await visit.open();
    await start(tab);
    await press(tab, 'c');
    await eventually(async () => (await pieces(tab, HOLD)).length > 11, 'C holds the piece');

    await tab.evaluate(() => {
      window.pad = {index: 0, axes: [0, 0], mapping: 'standard', connected: true, id: 'pad',
                    buttons: Array.from({length: 17}, () => ({pressed: false, value: 0}))};
      navigator.getGamepads = () => [window.pad];
      dispatchEvent(new Event('gamepadconnected'));
    });
    const setStart = (down) => tab.evaluate((down) => { window.pad.buttons[9].pressed = down; }, down);
    await setStart(true);
    await eventually(async () => !await hasPieces(tab), 'Start of a controller pauses');
    await setStart(false);
    await sleep(100);
    await setStart(true);
    await eventually(() => hasPieces(tab), 'and plays on');
    await tab.evaluate(() => { navigator.getGamepads = () => []; });

    const before = await store(tab);
    await tab.evaluate(() => { dispatchEvent(new Event('blur')); });
    assert.notEqual(await store(tab), before, 'saved within the event');
    await eventually(async () => !await hasPieces(tab), 'and paused');
    await tab.evaluate(() => { dispatchEvent(new Event('focus')); });
    const paused = await eventually(() => stands(tab), 'still so on the way back');
    await tap(tab, [25, 307]);
    await eventually(async () => !paused.equals(await pixels(tab)), 'a menu opens');
    await press(tab, 'Escape');
    await eventually(async () => paused.equals(await pixels(tab)), 'Esc closes it, and nothing else');

    await tapOn(tab, '#menu-button');
    await tapOn(tab, '[data-do=save]');
    const text = await tab.evaluate(() => window.blob.text());
    assert.equal(text, await store(tab));

    await press(tab, 'Escape'); // plays on
    await eventually(() => hasPieces(tab), 'Esc resumes the game');
    await press(tab, 'ArrowUp');
    const saved = join(temporary, 'saved.reg'), wrong = join(temporary, 'no.reg');
    writeFileSync(saved, text);
    writeFileSync(wrong, 'nonsense');
    await tab.choose('#file', wrong);
    await says(tab, '#notice', /no.reg cannot be used: line 1/);
    await tab.choose('#file', saved);
    await eventually(async () => paused.equals(await pixels(tab)), 'the saved game, paused');

    await press(tab, 'F1');
    const help = await eventually(() => visit.opened(), 'the help opens in a tab');
    await eventually(async () => /How to play/.test(await help.evaluate('document.body.textContent')), 'it is the help');
    await visit.end();
  });

  test('a lost game takes a name typed on the input panel', async () => {
    const visit = await begin(engine, PHONE);
    const tab = await visit.open();
    await start(tab);
    for (let i = 0; i < 30; ++i) {
      if (i < 21 && i % 3 < 2) {
        await press(tab, i % 3 === 0 ? 'ArrowLeft' : 'ArrowRight', 500);
      }
      await press(tab, 'ArrowUp');
      await sleep(330);
    }
    const panelIsUp = async () => (await pixels(tab)).readUInt32BE((210 * 240 + 10) * 4) >>> 8 > 0xE00000;
    await eventually(panelIsUp, 'the input panel comes up');
    for (const key of [[50, 267], [10, 250], [90, 250]]) {
      await tap(tab, key);
    }
    await tap(tab, [74, 180]);
    await showsTitle(tab);
    assert.match((await store(tab)).replace(/\\\n */g, ''), /[57]a,00,61,00,67,00,00/, 'z, a and g stand in a table');
    await visit.end();
  });

  test('a second tab takes the game over', async () => {
    const visit = await begin(engine);
    const first = await visit.open();
    await start(first);
    const second = await visit.open();
    await says(second, '#question', /open in another tab/);
    await tapOn(second, '#question button');
    const paused = await eventually(() => stands(second), 'the game stands');
    assert.ok(!title.equals(paused));
    await eventually(async () => paused.equals(await pixels(first)), 'the same game');
    await says(first, '#question', /goes on in another tab/);
    await visit.end();
  });

  test('without a place to store anything it says so and plays on, with sound', async () => {
    const visit = await begin(engine, undefined, () => {
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
    const tab = await visit.open();
    await start(tab);
    await says(tab, '#notice', /does not let the page store/);
    await sleep(300);
    for (let i = 0; i < 8; ++i) {
      await press(tab, i % 2 ? 'x' : 'z', 40);
      await press(tab, i % 2 ? 'ArrowLeft' : 'ArrowRight', 40);
    }
    const heard = await tab.evaluate('heard');
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
      const visit = await begin(engine, undefined, script);
      const tab = await visit.open();
      await start(tab);
      await tab.evaluate(() => { dispatchEvent(new Event('blur')); }); // the game is saved, or would be
      assert.equal(await tab.evaluate((key) => localStorage[key], name), 'nonsense');
      await visit.end();
    }
  });

  test('it starts without a connection after the first visit, and a new version at the next start', async () => {
    const visit = await begin(engine);
    const tab = await visit.open();
    await showsTitle(tab);
    await eventually(() => tab.evaluate(async () => Boolean((await navigator.serviceWorker.getRegistration())?.active)), 'kept');
    changeFile(join(visit.copy, 'worker.js'), /glimra-\w+/, 'glimra-next');
    changeFile(join(visit.copy, 'index.html'), '<html', '<html data-next');
    await tab.reload();
    await eventually(() => tab.evaluate(
      async () => Boolean((await navigator.serviceWorker.getRegistration()).waiting)), 'the new version is fetched');
    assert.equal(await tab.evaluate('document.documentElement.dataset.next'), undefined, 'nothing changes under a page that runs');
    await tab.reload();
    await eventually(() => tab.evaluate('document.documentElement.dataset.next === ""'),
                     'the new version');
    await showsTitle(tab);
    await visit.stopServer();
    await tab.reload();
    await showsTitle(tab);
    await visit.end();
  });
}

for (const engine of [chromium, firefox, webkit]) {
  describe(engine.name, {skip: engine.missing ?? (process.env.ENGINE ?? engine.name) !== engine.name}, () => walk(engine));
}
