// Gives the player a link to one of the games of this session.
import {chaptersOf, gamesOf, resultOf} from './chapters.js';
import {linkTo, LONGEST} from './link.js';
import {choose, download, notice, say} from './talk.js';

/** The record up to the end of a game, which is confirmed by the digest that follows; or up to now. */
function upTo({end}, text) {
  const digest = end ? text.indexOf('\n', text.indexOf('# digest ', end.end)) : -1;
  return digest < 0 ? text : text.slice(0, digest + 1);
}

const save = (text) => download(text, `Glimra ${new Date().toISOString().slice(0, 10)}.pilot`);

/** Where the browser keeps the page from the clipboard, the player copies the text himself. */
function offerText(link) {
  choose('Here is the link to the game.', {
    'Copy it'() {
      const field = document.getElementById('answer');
      field.select();
      if (document.execCommand('copy')) {
        notice('The link is copied.');
      }
    },
    Back() {},
  }, {value: link, readOnly: true});
}

async function copy(text) {
  const link = await linkTo(text);
  if (link === null || link.length > LONGEST) {
    const reason = link ? `This game is too long for a link, which would have ${link.length.toLocaleString('en')} characters.`
                        : 'This browser cannot make a link.';
    choose(reason + ' A file can hold it.', {'Save to a file': () => save(text), Back() {}});
    return;
  }
  try {
    await navigator.clipboard.writeText(link);
    notice(`The link is copied. It has ${link.length.toLocaleString('en')} characters, and the whole game is in it.`);
  } catch {
    offerText(link);
  }
}

/** What the player calls a game: "Game 2: Marathon, 12,345 points". */
function nameOf({start, end, number}) {
  const {mode, points} = resultOf((end ?? start).words);
  return `Game ${number}: ${mode}, ${end ? points : 'not over'}`;
}

/** Asks which game, if there are several: the one that ended last is offered first. */
export function share(text) {
  const games = gamesOf(chaptersOf(text)).map((game, i) => ({...game, number: i + 1})).reverse();
  games.sort((a, b) => Boolean(b.end) - Boolean(a.end));
  if (games.length === 0) {
    say('There is no game to share yet. Play one, and come back here.');
  } else if (games.length === 1) {
    copy(upTo(games[0], text));
  } else {
    const acts = games.map((game) => [nameOf(game), () => copy(upTo(game, text))]);
    choose('Which game?', {...Object.fromEntries(acts), Back() {}});
  }
}
