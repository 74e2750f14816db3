// The loudspeaker. Browsers allow sound only after the first gesture; until then it is silent.
const RATE = 22050;
const REST = 3000; // milliseconds without a gesture or a sound, after which it sleeps: longer than any sound

export class Sound {
  context = null;
  sources = new Set();
  queueEnd = 0;

  exists() { return 'AudioContext' in window; }

  /** Called within every gesture. */
  wake() {
    if (this.exists()) {
      this.context ??= new AudioContext({sampleRate: RATE, latencyHint: 'interactive'});
      this.stir();
    }
  }

  /** Keeps it awake for a while. A loudspeaker that waits, even silent, keeps the machine busy. */
  stir() {
    if (this.context.state !== 'running') {
      this.context.resume();
    }
    clearTimeout(this.resting);
    this.resting = setTimeout(() => this.rest(), REST);
  }

  /** Lets the machine's sound sleep: when there was none for long, and while the game is away. */
  rest() { this.context?.suspend(); }

  play(samples) {
    if (!this.context) {
      return;
    }
    this.stir();
    const buffer = this.context.createBuffer(1, samples.length, RATE);
    buffer.getChannelData(0).set(Float32Array.from(samples, (sample) => (sample - 128) / 128));
    const source = new AudioBufferSourceNode(this.context, {buffer});
    source.connect(this.context.destination);
    source.onended = () => this.sources.delete(source);
    const start = Math.max(this.queueEnd, this.context.currentTime);
    source.start(start);
    this.sources.add(source);
    this.queueEnd = start + buffer.duration;
  }

  silence() {
    for (const source of this.sources) {
      source.stop();
    }
    this.sources.clear();
    this.queueEnd = 0;
  }

  playing() { return this.context?.state === 'running' && this.queueEnd > this.context.currentTime; }
}
