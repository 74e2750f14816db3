// Playing: fingers, keys, a controller, menus, the name of a winner.
import assert from 'node:assert/strict';
import {eventually, finger, pixels, press, says, sleep, store, tap, tapOn, temporaryFile, textOf, PHONE, PLAY, WELL} from './browser.js';
import {choose, comeBack, falling, hidesPieces, holds, leave, left, shows, showsPieces, showsTitle, stands, start} from './game.js';

/** Plugs a controller in. */
const plug = (tab, mapping) => tab.evaluate((mapping) => {
  window.pad = {index: 0, id: 'pad', mapping, axes: [0, 0], buttons: Array.from({length: 17}, () => ({pressed: false}))};
  navigator.getGamepads = () => [window.pad];
  dispatchEvent(Object.assign(new Event('gamepadconnected'), {gamepad: window.pad}));
}, mapping);
const setButton = (tab, button, down) => tab.evaluate((button, down) => { window.pad.buttons[button].pressed = down; }, button, down);

export function play({engine, walk}) {
  walk('a game is played with fingers, and is there, paused, after a reload', {screen: PHONE, script: () => {
    Date.now = () => 1000; // begins with a piece that lies
    window.awake = 0;
    Object.defineProperty(navigator, 'wakeLock', {value: {async request() {
      ++window.awake;
      return {release() { --window.awake; }};
    }}});
  }}, async (tab) => {
    const isAtWall = (cells) => left(cells) < WELL[0] + 11;
    const height = (cells) => Math.max(...cells.map(([, y]) => y)) - Math.min(...cells.map(([, y]) => y));
    await start(tab);
    await says(tab, '#state', /Marathon, level 0/);
    assert.ok(await tab.evaluate('document.activeElement.id === "screen" && !document.querySelector(":focus-visible")'), 'no ring');
    await eventually(() => tab.evaluate('window.awake === 1'), 'the display stays on');
    await finger(tab, 'down', 'Left');
    await eventually(async () => isAtWall(await falling(tab)), 'Left held moves the piece to the wall');
    if (!engine.cannot.fingers) {
      const before = height(await falling(tab));
      await finger(tab, 'down', 'D', 1);
      await eventually(async () => {
        const cells = await falling(tab);
        return height(cells) > before + 5 && isAtWall(cells);
      }, 'D turns it, and Left, which is still held, takes it back to the wall');
      await finger(tab, 'up', 'D', 1);
    }
    await finger(tab, 'move', 'Right');
    await eventually(async () => left(await falling(tab)) > WELL[0] + 33, 'the finger slides to Right');
    await finger(tab, 'up', 'Right');
    assert.equal(await tab.evaluate('document.querySelectorAll(".pressed").length'), 0);

    await finger(tab, 'down', 'A');
    await finger(tab, 'up', 'A');
    await hidesPieces(tab);
    await says(tab, '#state', /Paused/);
    await eventually(() => tab.evaluate('window.awake === 0'), 'the display may go dark');
    const paused = await eventually(() => stands(tab), 'nothing moves');
    await tab.reload();
    await shows(tab, paused, 'the same game, paused');
  });

  walk('the keyboard plays; leaving pauses and saves; the menu saves and opens files', async (tab, visit) => {
    await start(tab);
    await press(tab, 'c');
    await holds(tab);

    await plug(tab, 'standard');
    await setButton(tab, 9, true);
    await hidesPieces(tab);
    await setButton(tab, 9, false);
    await sleep(100);
    await setButton(tab, 9, true);
    await showsPieces(tab);
    await tab.evaluate(() => { navigator.getGamepads = () => []; });

    const before = await store(tab);
    await leave(tab);
    assert.notEqual(await store(tab), before, 'saved within the event');
    await hidesPieces(tab);
    await comeBack(tab);
    const paused = await eventually(() => stands(tab), 'still so on the way back');
    await tap(tab, [25, 307]);
    await eventually(async () => !paused.equals(await pixels(tab)), 'a menu opens');
    await press(tab, 'Escape');
    await shows(tab, paused, 'Esc closes it, and nothing else');

    const active = () => tab.evaluate('document.activeElement.id');
    await eventually(async () => {
      await press(tab, 'Tab');
      return await active() === 'menu-button';
    }, 'Tab moves through the page');
    await press(tab, ' ');
    await says(tab, '#menu', /Back to the game/);
    await tapOn(tab, '[data-do=back]');
    await eventually(async () => await active() === 'screen', 'the space bar is the game\'s again');
    await choose(tab, 'save');
    const text = await tab.evaluate(() => window.blob.text());
    assert.equal(text, await store(tab));

    await press(tab, 'Escape'); // plays on
    await showsPieces(tab);
    await press(tab, 'ArrowUp');
    await tab.choose('#file', temporaryFile('no.reg', 'nonsense'));
    await says(tab, '#notice', /no.reg cannot be used: line 1/);
    await tab.choose('#file', temporaryFile('saved.reg', text));
    await shows(tab, paused, 'the saved game, paused');

    await press(tab, 'F1');
    const help = await eventually(() => visit.opened(), 'the help opens in a tab');
    await eventually(async () => /How to play/.test(await help.evaluate('document.body.textContent')), 'it is the help');
  });

  walk('a lost game takes a name typed with keys and on the input panel', {screen: PHONE, script: () => {
    addEventListener('keydown', (event) => setTimeout(() => { window.prevented = event.defaultPrevented; }));
  }}, async (tab) => {
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
    await press(tab, "'");
    assert.ok(await tab.evaluate('window.prevented'), 'a letter that is taken is not for the browser');
    for (const key of [[50, 267], [10, 250], [90, 250], [74, 180]]) { // z, a, g, OK
      await tap(tab, key);
    }
    await showsTitle(tab);
    assert.match((await store(tab)).replace(/\\\n */g, ''), /27,00,7a,00,61,00,67,00,00/, 'the name stands in a table');
  });

  walk('a controller that the browser does not know is taught', async (tab) => {
    await start(tab);
    await plug(tab, '');
    await says(tab, '#notice', /does not know the buttons/);
    await choose(tab, 'teach');
    for (const [i, asked] of [/left/, /right/, /soft/, /hard/, /rotate right/, /rotate left/, /hold/, /pause/].entries()) {
      await says(tab, '#question', asked);
      await setButton(tab, 16 - i, true);
      await eventually(async () => !asked.test(await textOf(tab, '#question')), 'it is taken');
      await setButton(tab, 16 - i, false);
      await tab.evaluate(() => new Promise((resolve) => { requestAnimationFrame(resolve); })); // it has been seen
    }
    for (const asked of [/tap/, /stylus right/, /stylus down/]) {
      await says(tab, '#question', asked);
      await tapOn(tab, '#question button');
    }
    await eventually(async () => !await textOf(tab, '#question'), 'the lesson is over');
    await tab.reload();
    await plug(tab, '');
    await tap(tab, PLAY); // resumes
    await showsPieces(tab);
    await setButton(tab, 9, true);
    await hidesPieces(tab);
  });
}
