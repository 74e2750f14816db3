// The game as the tests see it: by the pixels of its screen.
import {execFileSync} from 'node:child_process';
import {readFileSync} from 'node:fs';
import {join} from 'node:path';
import {eventually, pieces, pixels, sleep, tap, temporary, PLAY, QUEUE, WELL} from './browser.js';

export const pilot = process.argv[4] ?? 'build/release/glimra-pilot';
let title;
export const isTitle = (picture) => title.equals(picture);

export async function showsTitle(tab) {
  title ??= await readPng(tab, titlePicture);
  await eventually(async () => title.equals(await pixels(tab)), 'the title page, pixel by pixel');
}

const titlePicture = join(temporary, 'title.png');
execFileSync(pilot, {input: `shot ${titlePicture}\n`});

/** A picture's pixels, read by the browser: the page's policy allows pictures of its own only. */
async function readPng(tab, file) {
  return Buffer.from(await tab.evaluate(async (base64) => {
    const bytes = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
    const picture = await createImageBitmap(new Blob([bytes], {type: 'image/png'}));
    const context = Object.assign(document.createElement('canvas'), {width: picture.width, height: picture.height}).getContext('2d');
    context.drawImage(picture, 0, 0);
    const {data} = context.getImageData(0, 0, picture.width, picture.height);
    let text = '';
    for (let i = 0; i < data.length; i += 8192) {
      text += String.fromCharCode(...data.subarray(i, i + 8192));
    }
    return btoa(text);
  }, readFileSync(file).toString('base64')), 'base64');
}

export const hasPieces = async (tab) => (await pieces(tab, QUEUE)).length > 0;
export const start = async (tab) => {
  await showsTitle(tab);
  await tap(tab, PLAY);
  await eventually(() => hasPieces(tab), 'a game begins');
};
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
