// The game as the tests see it: by the pixels of its screen.
import {execFileSync} from 'node:child_process';
import {join} from 'node:path';
import {eventually, pieces, pixels, sleep, tap, tapOn, temporary, HOLD, PLAY, QUEUE, WELL} from './browser.js';

export const pilot = process.argv[4] ?? 'build/release/glimra-pilot';
let title;
export const isTitle = (picture) => title.equals(picture);

export async function showsTitle(tab) {
  if (!title) {
    const file = join(temporary, 'title.png');
    execFileSync(pilot, {input: `shot ${file}\n`});
    title = execFileSync('convert', [file, '-depth', '8', 'rgba:-']);
  }
  await eventually(async () => isTitle(await pixels(tab)), 'the title page, pixel by pixel');
}

export const hasPieces = async (tab) => (await pieces(tab, QUEUE)).length > 0;
export const start = async (tab) => {
  await showsTitle(tab);
  await tap(tab, PLAY);
  await eventually(() => hasPieces(tab), 'a game begins');
};
export const holds = (tab) => eventually(async () => (await pieces(tab, HOLD)).length > 11, 'a piece is held');
export const showsPieces = (tab) => eventually(() => hasPieces(tab), 'the game goes on');
export const hidesPieces = (tab) => eventually(async () => !await hasPieces(tab), 'the pieces are hidden, as in a pause');
export const shows = (tab, picture, message) => eventually(async () => picture.equals(await pixels(tab)), message);
/** Chooses from the page's menu. */
export async function choose(tab, what) {
  await tapOn(tab, '#menu-button');
  await tapOn(tab, `[data-do=${what}]`);
}
/** Nothing moves; a page that has no picture yet does not stand. */
export const stands = async (tab) => {
  const drawn = await tab.evaluate('!document.querySelector("#starting")'), first = await pixels(tab);
  await sleep(1200);
  return drawn && first.equals(await pixels(tab)) && first;
};
export const falling = (tab) => pieces(tab, [...WELL.slice(0, 3), WELL[1] + 88]);
export const left = (cells) => Math.min(...cells.map(([x]) => x));
/** As when the player goes elsewhere, and comes back. */
export const leave = (tab) => tab.evaluate(() => { dispatchEvent(new Event('blur')); });
export const comeBack = (tab) => tab.evaluate(() => { dispatchEvent(new Event('focus')); });
