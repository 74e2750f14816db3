// Records of games: shared by a link, watched, taken over, and what brings back a game that was cut off.
import assert from 'node:assert/strict';
import {execFileSync} from 'node:child_process';
import {readFileSync} from 'node:fs';
import {join} from 'node:path';
import {deflateRawSync, inflateRawSync} from 'node:zlib';
import {begin, boxOf, eventually, flaws, pixels, press, resize, says, sleep, store, tap, tapOn, temporary, temporaryFile, textOf, PLAY}
  from './browser.js';
import {choose, comeBack, holds, leave, pilot, shows, showsPieces, showsTitle, stands, start} from './game.js';

const catchLink = () => Object.defineProperty(navigator, 'clipboard', {value: {async writeText(text) { window.copied = text; }}});
const fragment = (text) => `#game=${deflateRawSync(text).toString('base64url')}`;
const watching = (tab, state) => eventually(async () => await tab.evaluate('document.documentElement.dataset.watching') === state,
  async () => `it ${state}: ${await tab.evaluate('document.documentElement.dataset.watching')}`);

/** A record of the pilot: a game that is lost after 12 hard drops. */
function pilotRecord() {
  const file = join(temporary, `pilot-${Math.random()}.pilot`);
  const drops = 'key 38 down\nwait 50\nkey 38 up\nwait 350\n'.repeat(12);
  execFileSync(pilot, ['--record', file], {input: `wait 500\ntap 120 240\nwait 300\n${drops}wait 500\n`});
  return file;
}

export function records({engine, test, walk}) {
  test('a lost game is shared by a link, watched elsewhere and taken over; the own game there stays as it is', async () => {
    const visit = await begin(engine, undefined, catchLink);
    const tab = await visit.open();
    await showsTitle(tab);
    await tab.reload(); // now there is a store, which is in the record
    await start(tab);
    await eventually(async () => {
      await press(tab, 'ArrowUp');
      await sleep(300);
      return /over/.test(await textOf(tab, '#state'));
    }, 'the game is lost');
    await showsTitle(tab);
    await choose(tab, 'link');
    const link = await eventually(() => tab.evaluate('window.copied'), 'a link');
    await visit.end();

    const record = inflateRawSync(Buffer.from(link.split('#game=')[1], 'base64url')).toString().replace(/\0(.*)\0/s,
      (_, store) => Buffer.from(store).toString('base64').replace(/.{1,76}/g, '#: $&\n'));
    assert.match(record, /^# store /m);
    const check = execFileSync(pilot, ['--check', temporaryFile('page.pilot', record)], {encoding: 'utf8'});
    const [, points] = /^Marathon from level 0: (\d+) points.*\nholds\n$/.exec(check) ?? assert.fail(check);

    const there = await begin(engine);
    const other = await there.open();
    await start(other);
    await leave(other);
    await comeBack(other);
    const paused = await eventually(() => stands(other), 'the own game, paused');
    await other.evaluate((hash) => { location.hash = hash; }, link.split('#')[1]);
    await says(other, '#card', new RegExp(`Marathon\\s+${points} points\\s+0 rows, level 0`));
    assert.ok(paused.equals(await pixels(other)), 'nothing plays yet');
    const kept = await store(other);
    await tapOn(other, '#card-watch');
    await watching(other, 'plays');
    await other.evaluate(() => {
      const slider = document.querySelector('#position');
      slider.value = slider.max;
      slider.dispatchEvent(new Event('change'));
    });
    await says(other, '#chapter', new RegExp(`^over Marathon ${points} points`));
    await watching(other, 'stands');
    const end = await pixels(other);
    await press(other, 'Home');
    await showsTitle(other);
    await tapOn(other, '[data-key=PageDown]');
    await says(other, '#chapter', /^game Marathon/);
    await tapOn(other, '[data-key=PageDown]');
    await shows(other, end, 'the same end');
    await tapOn(other, '[data-key=PageUp]');
    await press(other, 'ArrowRight');
    await press(other, 'Tab');
    await says(other, '.taken', /Nothing is kept/);
    await eventually(async () => {
      await press(other, 'ArrowUp');
      return !end.equals(await pixels(other));
    }, 'the viewer plays');
    await tapOn(other, '.taken button');
    await shows(other, paused, 'the own game again');
    assert.equal(await store(other), kept);
    assert.equal(await other.evaluate('location.hash'), '');
    await press(other, 'Escape');
    await showsPieces(other);
    await there.end();
  });

  walk('the bar has its place at every size, and its names and roles are sound', {screen: {width: 600, height: 850}}, async (tab) => {
    await showsTitle(tab);
    await tab.choose('#record-file', pilotRecord());
    await watching(tab, 'plays');
    await press(tab, ' ');
    await watching(tab, 'stands');
    assert.deepEqual(await flaws(tab), []);
    for (const [width, height] of [[320, 454], [390, 844], [640, 312], [700, 1000], [844, 390], [1280, 800]]) {
      if (engine.cannot.size && width < 500) {
        continue;
      }
      await resize(tab, {width, height});
      const screen = await boxOf(tab, '#bezel'), panel = await boxOf(tab, '.panel');
      const where = `${width} by ${height}: ${JSON.stringify({screen, panel})}`;
      assert.ok(panel.x >= screen.x + screen.width + 7 || panel.y >= screen.y + screen.height + 7, `beside the screen ${where}`);
      assert.ok(panel.x >= 0 && panel.y >= 0 && panel.x + panel.width <= width && panel.y + panel.height <= height, `inside ${where}`);
      const low = await tab.evaluate(() => [...document.querySelectorAll('.panel :is(button, input)')].filter(
        (each) => each.offsetHeight < 40 || each.offsetWidth < 34).map(({outerHTML}) => outerHTML));
      assert.deepEqual(low, [], `big enough ${where}`);
    }
  });

  walk('a record of the pilot plays the same in the page, and what was changed is found', async (tab) => {
    const file = pilotRecord(), text = readFileSync(file, 'utf8');
    const other = (digit) => digit === '0' ? '1' : '0';
    const changed = temporaryFile('changed.pilot', text.replace(/(# over.*\n# digest )(.)/, (_, before, digit) => before + other(digit)));
    await showsTitle(tab);
    for (const [record, words] of [[file, /^over Marathon/], [changed, /^differs at 0:\d\d\.\d+, line \d+$/]]) {
      await tab.choose('#record-file', record);
      await watching(tab, 'plays');
      await tapOn(tab, '[data-key=ArrowUp]');
      await says(tab, '#speed', /× 2/);
      await press(tab, 'PageDown');
      await press(tab, 'PageDown');
      await says(tab, '#chapter', words);
      await tapOn(tab, '[data-key=Escape]');
      await showsTitle(tab);
    }
  });

  test('a link that is no record says why', async () => {
    const bomb = Buffer.alloc(5 << 20, '\n'), whole = fragment(readFileSync(pilotRecord()));
    const visit = await begin(engine);
    const tab = await visit.open(`${visit.address}#game=!`);
    const change = (hash) => tab.evaluate((hash) => { location.hash = hash; }, hash);
    for (const [hash, reason] of [
      ['', /not complete/], [whole.slice(0, whole.length / 2), /not complete/], [`#game=${'A'.repeat(30001)}`, /too long/],
      [fragment(bomb), /larger than 4 MB/], [fragment('nonsense'), /does not begin/],
      [fragment('# record 1\nshot /tmp/picture\n'), /line 2: a record cannot hold "shot"/]]) {
      await (hash && change(hash));
      await says(tab, '#question', reason);
      await tapOn(tab, '#question button');
      await showsTitle(tab);
      assert.equal(await tab.evaluate('location.hash'), '');
    }
    await change(fragment(`# record 1\n# game <b>${'x'.repeat(150)}\nwait 100\n`));
    await says(tab, '#card', /<b>x{77}\n/);
    await visit.end();
  });

  walk('the game of a tab that was killed comes back, and a damaged record does no harm', {script: () => {
    for (const kind of ['pagehide', 'blur', 'freeze', 'visibilitychange']) { // it does not get to say farewell
      addEventListener(kind, (event) => (document.hidden || kind !== 'visibilitychange') && event.stopImmediatePropagation(), true);
    }
  }}, async (tab) => {
    await start(tab);
    const kept = await store(tab);
    await press(tab, 'c');
    await holds(tab);
    await sleep(1500);
    assert.equal(await store(tab), kept, 'which is not stored');
    await tab.reload();
    await says(tab, '#state', /Paused/);
    await tap(tab, PLAY);
    await holds(tab);
    assert.equal(await textOf(tab, '#notice'), '');

    await sleep(1500);
    await tab.evaluate(() => {
      localStorage['glimra.record.0'] = localStorage['glimra.record.0'].replace(/# digest ./, '# digest x');
      Storage.prototype.setItem = () => {}; // it is not written again
    });
    await tab.reload();
    await says(tab, '#notice', /goes on from where it was stored last.*line \d+: two numbers/);
    await eventually(() => stands(tab), 'the game of before');
  });

  walk('a record that fills the storage makes room for the game', {script: () => {
    const {setItem} = Storage.prototype;
    Storage.prototype.setItem = function(name, text) {
      if (name === 'registry.reg' && window.full && this.getItem('glimra.record') !== null) {
        throw new DOMException('full', 'QuotaExceededError');
      }
      setItem.call(this, name, text);
    };
  }}, async (tab) => {
    await start(tab);
    await eventually(() => tab.evaluate('localStorage["glimra.record"] !== undefined'), 'a copy of the record');
    const before = await store(tab);
    await tab.evaluate('window.full = true');
    await press(tab, 'c');
    await leave(tab);
    assert.notEqual(await store(tab), before);
    assert.doesNotMatch(await textOf(tab, '#notice'), /does not let the page store/);
  });
}
