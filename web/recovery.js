// Brings back the game of a session that was cut off, when the tab or the machine died: an instance of the program plays
// its record to the end, unseen, and stores the game.
import {instantiate} from './instance.js';
import {Session} from './session.js';

/** Settled when the store is as it should be. It is tried once, whatever comes of it. */
export async function recover(page) {
  const record = Session.unfinished();
  await (record && new Promise((done) => instantiate({
    page: {...page, givenRecord: record, ended: done, state() {}},
    words: ['recover'],
    fail(reason) {
      page.report(`The game goes on from where it was stored last, not from where it ended: ${reason.message ?? reason}`);
      done();
    },
  })));
}
