// Makes phone.png, a game on the page as a phone shows it. After ./play --web has built the page:
//   npm ci --prefix tests/web && node docs/make-phone-picture.mjs
import {execFileSync} from 'node:child_process';
import {writeFileSync} from 'node:fs';
import {fileURLToPath} from 'node:url';

const path = (name) => fileURLToPath(new URL(name, import.meta.url));
process.chdir(path('..')); // the page and its server are looked for from here
const {begin, finger, sleep, tap, PHONE, PLAY} = await import('../tests/web/browser.js');
const {chromium} = await import('../tests/web/puppets.js');

const picture = path('phone.png');
await chromium.launch();
const visit = await begin(chromium, {...PHONE, deviceScaleFactor: 2}, () => { Date.now = () => 1000; }); // the same pieces
const tab = await visit.open();
await sleep(2000);
const hold = async (button, milliseconds) => {
  await finger(tab, 'down', button);
  await sleep(milliseconds);
  await finger(tab, 'up', button);
  await sleep(60);
};
await tap(tab, PLAY);
await sleep(300);
await hold('B', 40);
for (const button of ['Left', 'Right', 'B', 'Left']) {
  await hold(button, 500);
  await hold('Up', 40);
  await sleep(450);
}
await finger(tab, 'down', 'Right', 1);
await sleep(100);
await finger(tab, 'down', 'D', 2);
await sleep(2500); // it falls into sight
writeFileSync(picture, await tab.screenshot());
await chromium.end();
await visit.stopServer();
execFileSync('convert', [picture, '-strip', '-resize', '480x', '-colors', '256', `PNG8:${picture}`]);
