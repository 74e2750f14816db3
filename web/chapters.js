// What a record says of its games, in comment lines. They can be anyone's words.
const WORDS = 80; // characters of a chapter that are shown
const LINE = /^(?:(?:wait|jump) (\d+)|# (game|came back|over|abandoned) (.*))$/gm;

/** The chapters: each its kind, its words, `at` in milliseconds, and where its line ends in the text. */
export function chaptersOf(text) {
  const chapters = [];
  let at = 0;
  for (const {0: line, 1: time, 2: kind, 3: words, index} of text.matchAll(LINE)) {
    if (kind) {
      chapters.push({kind, words: words.slice(0, WORDS), at, end: index + line.length + 1});
    } else {
      at += Number(time);
    }
  }
  return {chapters, length: at};
}

export const isEnd = ({kind}) => kind === 'over' || kind === 'abandoned';

/** The games, each with the chapter that it begins with and the one it ends with, if there is one. */
export function gamesOf({chapters}) {
  const games = [];
  for (const chapter of chapters) {
    if (!isEnd(chapter)) {
      games.push({start: chapter});
    } else if (games.length > 0) {
      games.at(-1).end = chapter;
    }
  }
  return games;
}

/** What a chapter's words say of a game: its mode, and what it came to, if they say that. */
export function resultOf(words) {
  const [, mode, points, ...rest] = /^(.*) (\d{1,9}) points (\d+ rows) (level \d+)$/.exec(words) ?? [];
  return points ? {mode, points: `${Number(points).toLocaleString('en')} points`, rest} : {mode: words, points: '', rest: []};
}

/** "6:12" */
export function clockTime(milliseconds) {
  const seconds = Math.floor(milliseconds / 1000);
  const two = (number) => String(number).padStart(2, '0');
  const minutes = Math.floor(seconds / 60);
  return minutes < 60 ? `${minutes}:${two(seconds % 60)}` : `${Math.floor(minutes / 60)}:${two(minutes % 60)}:${two(seconds % 60)}`;
}
