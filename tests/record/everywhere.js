// The page's part of everywhere.py: records what hands do there, or plays records and compares what is to be seen.
//   node everywhere.js PAGE-FOLDER SERVE-SCRIPT GLIMRA-PILOT record|play LANES FOLDER
import {readdirSync, readFileSync, writeFileSync} from 'node:fs';
import {join} from 'node:path';
import {begin, boxOf, changeFile, eventually, press, sleep} from '../web/browser.js';
import {comeBack, leave} from '../web/game.js';
import {chromium} from '../web/puppets.js';

const TICK = 25; // milliseconds: the slider's steps, too
const [task, lanes, folder] = process.argv.slice(5);

/** A page that shows its record, its viewer's progress, and the memory of the program that was started last. */
async function visit() {
  const visit = await begin(chromium, undefined, () => {
    const {instantiate} = WebAssembly;
    WebAssembly.instantiate = async (...all) => {
      const made = await instantiate.apply(WebAssembly, all);
      window.memory = Object.values(made.exports).find((each) => each instanceof WebAssembly.Memory);
      return made;
    };
  });
  const script = join(visit.copy, 'main.js');
  changeFile(script, /keepRecord:(\w+)=>/, 'keepRecord:$1=>(window.record=(window.record??"")+$1,0)||');
  changeFile(script, /progress:(\w+)=>/, 'progress:$1=>(window.progress=$1)&&');
  return visit;
}

const keyOf = (name) => ({Return: 'Enter', BackSpace: 'Backspace'})[name] ?? name.replace(/^(Left|Up|Right|Down)$/, 'Arrow$1');
const hands = {
  wait: (_, milliseconds) => sleep(milliseconds),
  down: (tab, name) => tab.keyDown(keyOf(name)),
  up: (tab, name) => tab.keyUp(keyOf(name)),
  async stylus(tab, kind, x, y) {
    const box = await boxOf(tab, '#screen');
    await tab.point(kind, box.x + (x + 0.5) * box.width / 240, box.y + (y + 0.5) * box.height / 320);
  },
  text: press,
  away: leave,
  back: comeBack,
};

async function record(file) {
  const {store, steps, closes} = JSON.parse(readFileSync(file));
  const there = await visit();
  const tab = await there.open(`${there.address}manifest.json`); // no game runs there
  await tab.evaluate((text) => { text && localStorage.setItem('registry.reg', text); }, store);
  await tab.goto(there.address);
  await eventually(() => tab.evaluate('!document.querySelector("#starting")'), 'the game is there');
  for (const [act, ...values] of steps) {
    await hands[act](tab, ...values);
  }
  for (let i = 0; closes && i < 4 && !await tab.evaluate('record.endsWith("# closed\\n")'); ++i) {
    await tab.keyDown('Control'); // it may be an answer to a question
    await press(tab, 'q');
    await tab.keyUp('Control');
    await press(tab, 'Escape', 500);
  }
  writeFileSync(file.replace('.plan', '.page'), await tab.evaluate('record'));
  await there.end();
}

/** What differs from a moment: runs in the page. */
async function compare({screen, block, size: [width, height]}) {
  const small = Object.assign(document.createElement('canvas'), {width, height}).getContext('2d');
  small.imageSmoothingEnabled = false;
  small.drawImage(document.querySelector('#screen'), 0, 0, width, height);
  const digest = new Uint8Array(await crypto.subtle.digest('SHA-256', small.getImageData(0, 0, width, height).data));
  const words = new Int32Array(Uint8Array.from(block.match(/../g), (two) => parseInt(two, 16)).buffer);
  const all = new Int32Array(window.memory.buffer);
  // The game lies where all blocks have been found so far.
  const places = (window.places ?? [...all.keys()]).filter((place) => words.every((word, i) => all[place + i] === word));
  window.places = places.length > 0 ? places : window.places;
  return (places.length > 0 ? '' : ' block') +
    (screen === Array.from(digest, (byte) => byte.toString(16).padStart(2, '0')).join('') ? '' : ' screen');
}

async function play(tab, file) {
  const until = (condition) => eventually(() => tab.evaluate(condition), condition);
  const differences = [];
  await tab.evaluate('window.progress = {}');
  await tab.choose('#record-file', file);
  await until('progress.playing');
  await press(tab, ' ');
  await until('!progress.playing');
  await press(tab, 'Home');
  await until('progress.position === 0');
  for (const moment of JSON.parse(readFileSync(`${file}.moments`))) {
    await tab.evaluate((at) => {
      const slider = document.querySelector('#position');
      slider.value = at;
      slider.dispatchEvent(new Event('change'));
    }, moment.at);
    if (moment.at % TICK !== 0) {
      await press(tab, '.'); // a tick further is the end
    }
    await until(`progress.position === ${moment.at}`);
    const difference = await tab.evaluate(compare, moment);
    differences.push(...(difference ? [`at ${moment.at}:${difference}`] : []));
  }
  differences.push(...await tab.evaluate('progress.chapter.match(/^differs at.*/) ?? []'));
  await press(tab, 'Escape');
  await until('!document.documentElement.dataset.watching');
  return differences;
}

const endsWith = {record: /\.plan$/, play: /\.(pilot|window|page)$/}[task];
const files = readdirSync(folder).filter((name) => endsWith.test(name)).map((name) => join(folder, name));
async function work() {
  const there = task === 'play' && await visit();
  const tab = there && await there.open();
  await (there && eventually(() => tab.evaluate('!document.querySelector("#starting")'), 'the page is there'));
  for (let file; (file = files.pop());) {
    if (task === 'record') {
      await record(file).catch((error) => console.error(file, error.message));
    } else {
      console.log([file, 'page', ...await play(tab, file).catch((error) => [error.message])].join('\t'));
    }
  }
  await (there && there.end());
}
await chromium.launch();
await Promise.all(Array.from({length: Number(lanes)}, work));
await chromium.end();
