// The loudspeaker. Browsers allow sound only after the first gesture; until then it is silent.
const RATE = 22050;

export class Sound {
  context = null;
  sources = new Set();
  queueEnd = 0;

  exists() { return 'AudioContext' in window; }

  /** Called within every gesture. */
  wake() {
    if (this.exists()) {
      this.context ??= new AudioContext({sampleRate: RATE, latencyHint: 'interactive'});
      if (this.context.state !== 'running') {
        this.context.resume();
      }
    }
  }

  /** While the game is away the machine's sound may sleep. */
  rest() { this.context?.suspend(); }

  play(samples) {
    if (this.context?.state !== 'running') {
      return;
    }
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
