// Shows a record on the handheld's screen, with a bar for its viewer. An instance of the program plays it, and to go
// back a fresh one does; the player's own rests meanwhile.
import {clockTime} from './chapters.js';
import {instantiate} from './instance.js';
import {element} from './talk.js';

const bar = element('bar'), slider = element('position'), root = document.documentElement;
const SPEEDS = {1: '× ¼', 2: '× ½'};

/** Tab is the viewer's while he is not at the buttons, between which it moves. */
export const isViewersTab = ({target, shiftKey}) =>
  ['plays', 'stands'].includes(root.dataset.watching) && !shiftKey && !bar.contains(target);

export class Viewing {
  program = null; // the instance that is shown; none while a fresh one is made
  playing = false;
  begun = 0;

  /**
   * `page`: what the instance has around it; `send` calls its functions; `started` is called when it is there, and
   * `ended` with what went wrong, or nothing.
   */
  constructor(record, {page, send, started, ended}) {
    Object.assign(this, {send, started, ended});
    this.page = {...page, store: null, givenRecord: record,
      progress: (progress) => this.show(progress),
      takenOver: () => {
        this.playing = false;
        this.mark('taken');
      },
      restart: (position, speed, playing) => this.begin(position, speed, playing),
      ended: () => this.end(),
    };
    this.mark('begins');
    bar.onclick = ({target, detail}) => {
      this.act(target.closest('button')?.dataset.key);
      if (detail > 0) {
        page.screen.canvas.focus(); // who taps a button does not mean it by the space bar
      }
    };
    slider.oninput = () => { element('time').textContent = this.timeText(slider.value); };
    slider.onchange = () => this.send('seek', Number(slider.value));
  }

  /** Has an instance show the record from a position, in milliseconds, at a speed in quarters. */
  async begin(position = 0, speed = 4, playing = true) {
    const number = ++this.begun;
    this.program?.halt();
    this.program = null;
    const fail = (reason) => number === this.begun && this.end(reason);
    const program = await instantiate({page: this.page, fail, words: ['watch', position, speed, Number(playing)].map(String)});
    if (number === this.begun) {
      this.program = program;
      this.started();
    } else {
      program.halt();
    }
  }

  end(reason) {
    if (this.begun < 0) {
      return;
    }
    this.begun = -1;
    this.program?.halt();
    this.mark('');
    this.ended(reason);
  }

  /** What a button of the bar does: the same as a key. */
  act(key) {
    if (key === 'Escape') {
      this.end();
    } else if (key) {
      this.send('keyDown', key, key, false, false, false, false, false, false);
    }
  }

  /** It stops while the page is not in front. */
  rest() {
    if (this.playing) {
      this.act(' ');
    }
  }

  show({position, length, speed, playing, chapter}) {
    Object.assign(this, {playing, length});
    this.mark(playing ? 'plays' : 'stands');
    element('toggle').setAttribute('aria-label', playing ? 'Stop' : 'Go on');
    element('chapter').textContent = chapter.slice(0, 80);
    element('speed').textContent = SPEEDS[speed] ?? `× ${speed / 4}`;
    slider.max = length;
    if (!slider.matches(':active')) {
      slider.value = position;
      element('time').textContent = this.timeText(position);
    }
    slider.setAttribute('aria-valuetext', this.timeText(position));
  }

  timeText(position) { return `${clockTime(position)} / ${clockTime(this.length)}`; }

  /** What the viewer sees of it: it begins, plays, stands, or he plays himself; empty: nothing any more. */
  mark(state) {
    if (root.dataset.watching !== state) {
      root.dataset.watching = state;
      bar.hidden = !state;
      this.page.screen.fit();
    }
  }
}
