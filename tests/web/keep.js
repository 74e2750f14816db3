// What is kept, and what happens where nothing can be kept.
import assert from 'node:assert/strict';
import {join} from 'node:path';
import {changeFile, eventually, pixels, press, says, sleep, store, tap, tapOn, temporaryFile, PLAY} from './browser.js';
import {comeBack, hasPieces, holds, isTitle, leave, shows, showsPieces, showsTitle, stands, start} from './game.js';

// Comes back to the tab that was left and resumes its game.
async function resume(tab) {
  await comeBack(tab);
  await press(tab, 'Escape');
  await showsPieces(tab);
}

const showsGame = (tab, most) => eventually(async () => !isTitle(await pixels(tab)) && await stands(tab), 'the game, paused', most);

export function keep({walk}) {
  const noLocks = () => Object.defineProperty(navigator, 'locks', {value: undefined}); // as by plain http
  for (const [script, how] of [[undefined, ''], [noLocks, ', without locks']]) {
    walk(`a second tab takes the game over${how}`, {script}, async (first, visit) => {
      await start(first);
      const second = await visit.open();
      await says(second, '#question', /open in another tab/);
      await tapOn(second, '#question button');
      const paused = await eventually(() => stands(second), 'the game stands');
      assert.ok(!isTitle(paused));
      await shows(first, paused, 'the same game');
      await says(first, '#question', /goes on in another tab/);
    });
  }

  walk('a tab that cannot ask the other does not write over its game', {script: () => {
    Object.defineProperty(navigator, 'locks', {value: undefined});
    window.BroadcastChannel = undefined;
  }}, async (first, visit) => {
    await start(first);
    await leave(first);
    const second = await visit.open();
    await eventually(() => stands(second), 'the game, paused');
    await tap(second, PLAY);
    await showsPieces(second);
    await leave(second);
    const kept = await store(second);
    await first.front();
    await resume(first);
    await leave(first);
    await says(first, '#question', /goes on in another tab/);
    assert.equal(await store(first), kept);
  });

  const full = () => { Storage.prototype.setItem = () => { throw new DOMException('full', 'QuotaExceededError'); }; };
  const refused = () => {
    const refuse = () => { throw new DOMException('refused', 'SecurityError'); };
    Object.defineProperty(window, 'localStorage', {get: refuse});
    window.BroadcastChannel = refuse;
    navigator.locks.request = async () => refuse();
  };
  for (const [script, how] of [[full, 'is full'], [refused, 'is refused']]) {
    walk(`where storage ${how} it says so and plays on, with sound`, {script: `() => {
      (${script})();
      window.heard = [];
      const {start, stop} = AudioBufferSourceNode.prototype;
      AudioBufferSourceNode.prototype.start = function(...when) {
        window.heard.push(\`start \${this.buffer.sampleRate} \${this.context.state}\`);
        start.apply(this, when);
      };
      AudioBufferSourceNode.prototype.stop = function() {
        window.heard.push('stop');
        stop.call(this);
      };
    }`}, async (tab) => {
      await start(tab);
      await says(tab, '#notice', /does not let the page store/);
      await sleep(300);
      for (let i = 0; i < 8; ++i) {
        await press(tab, i % 2 ? 'x' : 'z', 40);
        await press(tab, i % 2 ? 'ArrowLeft' : 'ArrowRight', 40);
      }
      const heard = await tab.evaluate('heard');
      assert.ok(heard.includes('start 22050 running') && heard.includes('stop'), `cut off: ${heard}`);
      await tab.choose('#file', temporaryFile('empty.reg', 'Windows Registry Editor Version 5.00\n'));
      await says(tab, '#notice', /empty.reg cannot be opened/);
      await press(tab, 'c');
      await holds(tab);
    });
  }

  walk('the loudspeaker rests while nothing sounds, and the next key wakes it', {script: () => {
    window.AudioContext = class extends AudioContext {
      constructor(...options) {
        super(...options);
        window.loudspeaker = this;
      }
    };
  }}, async (tab) => {
    const is = (state) => eventually(() => tab.evaluate((state) => window.loudspeaker?.state === state, state), state);
    await start(tab);
    await is('running');
    await is('suspended');
    await press(tab, 'ArrowLeft', 40);
    await is('running');
    assert.ok(await hasPieces(tab), 'the game went on');
  });

  walk('a file or a store that is far too big stops nothing', async (tab) => {
    await start(tab);
    await leave(tab);
    const big = `${(await store(tab)).trimEnd()}\n"filler"="${'x'.repeat(3 << 20)}"\n`;
    await tab.choose('#file', temporaryFile('big.reg', big));
    await says(tab, '#notice', /big.reg cannot be used: it is too big/);
    await tab.evaluate((big) => localStorage.setItem('registry.reg', big), big);
    await tab.reload();
    await showsGame(tab, 60000); // an engine that only interprets takes 15 seconds to read all that
    assert.ok((await store(tab)).length > 3 << 20);
  });

  walk('what stops the program is said, and a start afresh keeps the old text', {script: () => {
    if (!localStorage.getItem('registry.reg.bad')) {
      localStorage.setItem('registry.reg', 'old');
      WebAssembly.instantiate = async () => { throw new Error('broken'); };
    }
  }}, async (tab) => {
    await says(tab, '#question', /has stopped: broken/);
    await tapOn(tab, '#question button:nth-child(2)');
    assert.equal(await tab.evaluate(() => window.blob.text()), 'old');
    await tapOn(tab, '#question button:nth-child(3)');
    await showsTitle(tab);
    assert.equal(await tab.evaluate('localStorage["registry.reg.bad"]'), 'old');
  });

  walk('the text before a damaged one is offered', async (tab) => {
    await start(tab);
    await leave(tab);
    await resume(tab);
    await press(tab, 'ArrowUp');
    await leave(tab);
    await tab.evaluate('localStorage["registry.reg"] = "nonsense", 0');
    await tab.reload();
    await says(tab, '#question', /damaged/);
    assert.equal(await tab.evaluate('localStorage["registry.reg.bad"]'), 'nonsense');
    await tapOn(tab, '#question button');
    await showsGame(tab);
  });

  const older = () => Object.assign(localStorage, {'registry.reg': 'nonsense', 'registry.reg.bad': 'older nonsense'});
  const noRoom = () => {
    localStorage['registry.reg'] = 'nonsense';
    Storage.prototype.setItem = (name, text) => {
      if (name.includes('bad')) {
        throw new DOMException('full', 'QuotaExceededError');
      }
      localStorage[name] = text;
    };
  };
  for (const [script, name, how] of [[older, 'registry.reg.bad.1', 'kept'], [noRoom, 'registry.reg', 'left in its place']]) {
    walk(`a damaged store is ${how}`, {script}, async (tab) => {
      await start(tab);
      await leave(tab); // the game is saved, or would be
      assert.equal(await tab.evaluate((key) => localStorage[key], name), 'nonsense');
    });
  }

  /** The service worker has kept the page. */
  const isKept = async (tab) => {
    await showsTitle(tab);
    await eventually(() => tab.evaluate(async () => Boolean((await navigator.serviceWorker.getRegistration())?.active)), 'kept');
  };

  walk('it starts without a connection after the first visit', async (tab, visit) => {
    await isKept(tab);
    await visit.stopServer();
    await tab.reload();
    await showsTitle(tab);
  });

  walk('a new version comes at the next start', async (tab, visit) => {
    await isKept(tab);
    changeFile(join(visit.copy, 'worker.js'), /glimra-\w+/, 'glimra-next');
    changeFile(join(visit.copy, 'index.html'), '<html', '<html data-next');
    await tab.reload();
    await eventually(() => tab.evaluate(
      async () => Boolean((await navigator.serviceWorker.getRegistration()).waiting)), 'the new version is fetched');
    assert.ok(!await tab.evaluate('"next" in document.documentElement.dataset'), 'nothing changes under a page that runs');
    await tab.reload();
    await eventually(() => tab.evaluate('document.documentElement.dataset.next === ""').catch(() => false),
                     'the next start is the new version');
    await showsTitle(tab);
  });
}
