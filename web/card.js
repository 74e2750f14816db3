// What a link brings, before anything of it plays: in somebody else's words, which are plain text.
import {chaptersOf, clockTime, gamesOf, resultOf} from './chapters.js';
import {element} from './talk.js';

const card = element('card');

/** Shows the last game of a record. `watch` is called with where that begins, in milliseconds; `leave` without. */
export function showCard(text, {watch, leave}) {
  const chapters = chaptersOf(text);
  const game = gamesOf(chapters).at(-1) ?? {start: {words: '', at: 0}};
  const {mode, points, rest} = resultOf((game.end ?? game.start).words);
  element('card-mode').textContent = mode;
  element('card-points').textContent = points;
  element('card-rest').textContent = [...rest, clockTime((game.end?.at ?? chapters.length) - game.start.at)].join(', ');
  const answer = (act) => () => {
    card.close();
    act();
  };
  element('card-watch').onclick = answer(() => watch(game.start.at));
  element('card-leave').onclick = answer(leave);
  card.showModal();
}
