// Plays the game in real browsers, as on a desktop and as on a phone: one walk, three engines.
//   node web_test.js [PAGE-FOLDER [SERVE-SCRIPT [GLIMRA-PILOT]]]
import {after, before, describe, test as nodeTest} from 'node:test';
import {begin} from './browser.js';
import {keep} from './keep.js';
import {look} from './look.js';
import {play} from './play.js';
import {chromium, firefox} from './puppets.js';
import {records} from './records.js';
import {webkit} from './webkit.js';

const engines = [chromium, firefox, webkit];
const missing = engines.filter((engine) => engine.missing);
if (missing.length > 0) {
  console.log(`skipped: ${missing.map((engine) => `${engine.name} (${engine.missing})`).join(', ')}`);
}
for (const engine of engines.filter((engine) => !missing.includes(engine))) {
  describe(engine.name, {skip: (process.env.ENGINE ?? engine.name) !== engine.name}, () => {
    const test = (name, options, act = options) => nodeTest(name, {timeout: 90000, ...options}, act);
    /** A case of one visit, with its first tab. */
    const walk = (name, options, act = options) => test(name, options, async () => {
      const visit = await begin(engine, options.screen, options.script);
      await act(await visit.open(), visit);
      await visit.end();
    });
    /** A case that the engine's driver cannot do is skipped, and says why. */
    const needs = (what) => engine.cannot[what] ? {skip: engine.cannot[what]} : {};
    before(() => engine.launch());
    after(() => engine.end());
    for (const cases of [play, records, keep, look]) {
      cases({engine, test, walk, needs});
    }
  });
}
