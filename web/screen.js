// The handheld's screen: a canvas of its pixels, enlarged by a whole number of the display's.

/** Above the screen where there is room, and for the controls below it or on either side, in CSS pixels. */
const BEZEL = 10, BELOW = 152, BESIDE = 112;

export class Screen {
  constructor(canvas) {
    this.canvas = canvas;
    this.context = canvas.getContext('2d', {alpha: false});
    this.face = matchMedia('(pointer: coarse), (max-width: 640px)');
    this.fit();
    addEventListener('resize', () => this.fit());
    this.face.addEventListener('change', () => this.fit());
  }

  /** Draws a part of the frame whose bytes are `pixels`. */
  draw(pixels, width, left, top, partWidth, partHeight) {
    const frame = new ImageData(pixels, width);
    if (this.canvas.width !== frame.width) {
      this.canvas.width = frame.width;
      this.canvas.height = frame.height;
      this.fit();
    }
    this.context.putImageData(frame, 0, 0, left, top, partWidth, partHeight);
  }

  /** The largest scale that leaves room for the rest; the controls share what is left over. */
  fit() {
    const {innerWidth: width, innerHeight: height, devicePixelRatio: ratio} = window;
    const portrait = height >= width;
    const shown = this.face.matches;
    const side = width - (shown && !portrait ? 2 * BESIDE : 0), length = height - (shown && portrait ? BELOW : 0);
    const factor = Math.max(1, Math.floor(Math.min(side * ratio / this.canvas.width, length * ratio / this.canvas.height)));
    const cssWidth = this.canvas.width * factor / ratio, cssHeight = this.canvas.height * factor / ratio;
    const root = document.documentElement;
    root.dataset.face = shown ? (portrait ? 'portrait' : 'landscape') : 'none';
    const snap = (length) => Math.floor(length * ratio) / ratio;
    const set = (name, length) => root.style.setProperty(name, `${length}px`);
    set('--height', height);
    set('--screen-width', cssWidth);
    set('--screen-height', cssHeight);
    set('--screen-left', snap((width - cssWidth) / 2));
    set('--screen-top', snap(Math.min((length - cssHeight) / 2, shown && portrait ? BEZEL : Infinity)));
  }

  /** The pixel of the screen at a point of the window; beside the screen the nearest one. */
  pixelAt(x, y) {
    const box = this.canvas.getBoundingClientRect();
    const limit = (value, count) => Math.min(count - 1, Math.max(0, Math.floor(value)));
    return {x: limit((x - box.left) * this.canvas.width / box.width, this.canvas.width),
            y: limit((y - box.top) * this.canvas.height / box.height, this.canvas.height)};
  }
}
