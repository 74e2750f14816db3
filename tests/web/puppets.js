// Chromium and Firefox, by their own protocols. A tab has the same methods in every engine.
import {existsSync} from 'node:fs';
import puppeteer from 'puppeteer-core';

const FLAGS = ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
               '--disable-component-update', '--disable-sync', '--autoplay-policy=user-gesture-required'];

class Tab {
  fingers = new Map();

  constructor(page, {hasTouch}) { Object.assign(this, {page, hasTouch}); }

  goto(address) { return this.page.goto(address); }
  reload() { return this.page.reload(); }
  close() {
    this.closed = true;
    return this.page.close();
  }
  front() { return this.page.bringToFront(); }
  resize(screen) { return this.page.setViewport({deviceScaleFactor: 1, ...screen, hasTouch: this.hasTouch}); }
  evaluate(act, ...values) { return this.page.evaluate(act, ...values); }
  keyDown(key) { return this.page.keyboard.down(key); }
  keyUp(key) { return this.page.keyboard.up(key); }
  async screenshot() { return Buffer.from(await this.page.screenshot()); }
  /** Seconds that the page's main thread has worked, whatever else the machine does; `goto` begins anew. */
  async work() {
    const {metrics} = await this.session.send('Performance.getMetrics');
    return metrics.find(({name}) => name === 'ThreadTime').value;
  }
  async measure() {
    this.session = await this.page.createCDPSession();
    await this.session.send('Performance.enable');
  }
  async choose(selector, file) { return (await this.page.$(selector)).uploadFile(file); }

  /** Puts a finger down ('down'), moves it or lifts it; without touch it is the mouse. */
  async point(kind, x, y, finger = 0) {
    if (!this.hasTouch) {
      await this.page.mouse.move(x, y);
      return kind === 'move' || this.page.mouse[kind]();
    }
    if (kind === 'down') {
      this.fingers.set(finger, await this.page.touchscreen.touchStart(x, y));
    } else {
      await this.fingers.get(finger)[kind === 'up' ? 'end' : 'move'](x, y);
    }
  }
}

class Visit {
  known = new Set();

  constructor(context, screen) { Object.assign(this, {context, screen}); }

  async adopt(page) {
    this.known.add(page);
    await page.setViewport({deviceScaleFactor: 1, isMobile: false, ...this.screen});
    return new Tab(page, this.screen);
  }

  async open() { return this.adopt(await this.context.newPage()); }

  /** The tab that the page itself has opened. */
  async opened() {
    const page = (await this.context.pages()).find((page) => !this.known.has(page));
    return page && this.adopt(page);
  }

  end() { return this.context.close(); }
}

class Engine {
  constructor(name, command, options, cannot) { Object.assign(this, {name, command, options, cannot}); }

  get missing() { return existsSync(this.command) ? null : `no ${this.command}`; }

  async launch() { this.browser = await puppeteer.launch({executablePath: this.command, ...this.options}); }

  async begin(screen) {
    return new Visit(await this.browser.createBrowserContext(), {...screen, isMobile: this.options.args && screen.hasTouch});
  }

  end() { return this.browser.close(); }
}

export const chromium = new Engine('Chromium', '/usr/bin/chromium', {args: FLAGS}, {});
/** It plays sound without a loudspeaker only to one that is made up. */
const PREFERENCES = {'media.cubeb.force_mock_context': true};
export const firefox = new Engine('Firefox', '/usr/bin/firefox-esr', {browser: 'firefox', extraPrefsFirefox: PREFERENCES},
                                  {work: 'its driver does not say how much a page has worked'});
