// Makes phone.png, a game on the page as a phone shows it. After ./play --web has built the page:
//   npm ci --prefix tests/web && node docs/make-phone-picture.mjs
import {execFileSync} from 'node:child_process';
import {fileURLToPath} from 'node:url';
import {fingers, launch, serve, tap, Visit, PHONE, PLAY} from '../tests/web/browser.js';

const path = (name) => fileURLToPath(new URL(name, import.meta.url));
const picture = path('phone.png');
const browser = await launch();
const server = await serve(path('../web/serve.py'), path('../build/web'));
const visit = await Visit.begin(browser, server.address, {...PHONE, deviceScaleFactor: 2}, () => { Date.now = () => 1000; });
const page = await visit.open();
const hold = async (key, milliseconds) => {
  await page.keyboard.down(key);
  await page.waitForTimeout(milliseconds);
  await page.keyboard.up(key);
  await page.waitForTimeout(60);
};
await page.waitForTimeout(1000);
await tap(page, PLAY);
await page.waitForTimeout(300);
await hold('c', 40);
for (const key of ['ArrowLeft', 'ArrowRight', 'c', 'ArrowLeft']) {
  await hold(key, 500);
  await hold('ArrowUp', 40);
  await page.waitForTimeout(450);
}
const hands = await fingers(page);
await hands.move(39);
await page.waitForTimeout(100);
await hands.move(39, 196);
await page.waitForTimeout(150);
await page.screenshot({path: picture});
await browser.close();
await server.stop();
execFileSync('convert', [picture, '-strip', '-resize', '480x', '-colors', '256', `PNG8:${picture}`]);
