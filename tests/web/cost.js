// What the page costs: bytes, time, wakes. Measured in one browser.
import assert from 'node:assert/strict';
import {readdirSync, readFileSync} from 'node:fs';
import {join} from 'node:path';
import {brotliCompressSync} from 'node:zlib';
import {begin, eventually, page, serve, sleep} from './browser.js';
import {showsTitle} from './game.js';

/** Starts of the page and of a bare one, in turn, whose medians are compared. */
const ROUNDS = 25;

export function cost(engine, test) {
  test('it is small, starts fast, and sleeps while nothing happens', {skip: engine.missing ?? false}, async (report) => {
    const files = readdirSync(page).filter((name) => !/\.(br|gz)$/.test(name));
    const size = files.reduce((sum, name) => sum + brotliCompressSync(readFileSync(join(page, name))).length, 0) / 1024;
    report.diagnostic(`${size.toFixed(1)} KiB compressed`);
    assert.ok(size <= 330);

    await engine.launch();
    const bare = await serve(new URL('bare', import.meta.url).pathname);
    const visit = await begin(engine, undefined, () => {
      window.wakes = 0;
      const count = (act) => act && ((...words) => { ++window.wakes; act(...words); });
      for (const name of ['setTimeout', 'setInterval', 'requestAnimationFrame', 'requestIdleCallback']) {
        const original = window[name];
        window[name] = (act, ...words) => original(count(act), ...words);
      }
      const {putImageData} = CanvasRenderingContext2D.prototype;
      CanvasRenderingContext2D.prototype.putImageData = function(...words) {
        putImageData.apply(this, words);
        if (performance.getEntriesByName('first frame').length === 0) {
          requestAnimationFrame(() => setTimeout(() => performance.mark('first frame'))); // after the display's frame
        }
      };
    });
    const timeOf = async (address) => {
      const tab = await visit.open(address);
      const time = await eventually(() => tab.evaluate(() => performance.getEntriesByName('first frame')[0]?.startTime), 'a frame');
      await tab.close();
      return time;
    };
    await timeOf(visit.address);
    await timeOf(visit.address);
    const times = {bare: [], game: []};
    for (let i = 0; i < ROUNDS; ++i) {
      times.game.push(await timeOf(visit.address));
      times.bare.push(await timeOf(bare.address));
    }
    const median = (list) => list.sort((a, b) => a - b)[(ROUNDS - 1) / 2];
    const game = median(times.game), base = median(times.bare);
    report.diagnostic(`first frame after ${game.toFixed(0)} ms, of a bare page after ${base.toFixed(0)} ms`);

    const tab = await visit.open();
    await showsTitle(tab);
    await sleep(1500);
    const earlier = await tab.evaluate('window.wakes');
    await sleep(3000);
    const wakes = await tab.evaluate('window.wakes') - earlier;
    report.diagnostic(`${wakes} wakes in 3 s`);
    assert.ok(wakes >= 5 && wakes <= 7, `${wakes} wakes in 3 s`);
    await visit.end();
    await engine.end();
    await bare.stop();
    assert.ok(game <= 3 * base, `${game} ms to the first frame, ${base} ms for a bare page`);
  });
}
