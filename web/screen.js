// The handheld's screen: a canvas whose pixels are enlarged by a whole number of the display's.
import {layOut} from './layout.js';

export class Screen {
  constructor(canvas, hands) {
    Object.assign(this, {canvas, hands});
    this.context = canvas.getContext('2d', {alpha: false});
    this.source = document.createElement('canvas');
    Object.assign(this.source, {width: canvas.width, height: canvas.height});
    this.sourceContext = this.source.getContext('2d', {alpha: false});
    this.face = matchMedia('(pointer: coarse), (max-width: 640px)');
    this.fit();
    addEventListener('resize', () => this.fit());
    this.face.addEventListener('change', () => this.fit());
    this.watchDensity();
  }

  /** A window that is drawn on a display of another density need not change its size. */
  watchDensity() {
    matchMedia(`(resolution: ${devicePixelRatio}dppx)`).addEventListener('change', () => {
      this.fit();
      this.watchDensity();
    }, {once: true});
  }

  /** Draws a part of the frame whose bytes are `pixels`. */
  draw(pixels, width, left, top, partWidth, partHeight) {
    const frame = new ImageData(pixels, width);
    if (this.source.width !== frame.width) {
      Object.assign(this.source, {width: frame.width, height: frame.height});
      this.fit();
    }
    this.sourceContext.putImageData(frame, 0, 0, left, top, partWidth, partHeight);
    this.enlarge(left, top, partWidth, partHeight);
  }

  /** All that is shown, for `show`. */
  picture() { return this.sourceContext.getImageData(0, 0, this.source.width, this.source.height); }

  show({data, width, height}) { this.draw(data, width, 0, 0, width, height); }

  enlarge(left, top, width, height) {
    const {factor} = this;
    this.context.drawImage(this.source, left, top, width, height, left * factor, top * factor, width * factor, height * factor);
  }

  /** Lays the page out anew. */
  fit() {
    const {width, height} = this.source;
    this.factor = layOut(width, height, this.face.matches, this.hands);
    Object.assign(this.canvas, {width: width * this.factor, height: height * this.factor});
    this.context.imageSmoothingEnabled = false;
    this.enlarge(0, 0, width, height);
  }

  /** The pixel of the screen at a point of the window; beside the screen the nearest one. */
  pixelAt(x, y) {
    const box = this.canvas.getBoundingClientRect();
    const limit = (value, count) => Math.min(count - 1, Math.max(0, Math.floor(value)));
    return {x: limit((x - box.left) * this.source.width / box.width, this.source.width),
            y: limit((y - box.top) * this.source.height / box.height, this.source.height)};
  }
}
