// What page.h declares. `Module.page` is the page; `Module.wake` ends the sleep from outside, at
// once and within the caller's own turn, and `Module.halt` makes it last for ever.
mergeInto(LibraryManager.library, {
  pageNow: function() { return Module.page.now(); },
  pageSleep: function(milliseconds) {
    return Asyncify.handleSleep((resume) => {
      Module.halt = () => {
        clearTimeout(timer);
        Module.wake = () => {};
      };
      Module.wake = () => {
        Module.halt();
        resume();
      };
      const timer = milliseconds < 0 ? 0 : setTimeout(() => Module.wake(), milliseconds);
    });
  },

  pageDraw: function(pixels, width, height, left, top, areaWidth, areaHeight) {
    const frame = new Uint8ClampedArray(HEAPU8.buffer, pixels, width * height * 4);
    Module.page.draw(frame, width, left, top, areaWidth, areaHeight);
  },
  pageShowButton: function(name, down) { Module.page.showButton(UTF8ToString(name), Boolean(down)); },
  pageTitle: function(title) { Module.page.title(UTF8ToString(title)); },
  pageRaise: function() { window.focus(); },
  pageWantText: function(wanted) { Module.page.wantText(Boolean(wanted)); },

  pageHasLoudspeaker: function() { return Module.page.sound.exists(); },
  pagePlay: function(samples, count) { Module.page.sound.play(HEAPU8.subarray(samples, samples + count)); },
  pageSilence: function() { Module.page.sound.silence(); },
  pagePlaying: function() { return Module.page.sound.playing(); },

  pageLoad: function() {
    const text = Module.page.store.load();
    return text === null ? 0 : allocateUTF8(text);
  },
  pageSave: function(text, length) { return Module.page.store.save(UTF8ToString(text, length)); },
  pageSetAside: function() { Module.page.store.setAside(); },

  pageState: function(kind, text) { Module.page.state(UTF8ToString(kind), UTF8ToString(text)); },
  pageGivenRecord: function() { return allocateUTF8(Module.page.givenRecord); },
  pageKeepRecord: function(lines, length) { Module.page.keepRecord(UTF8ToString(lines, length)); },
  pageProgress: function(position, length, speed, playing, chapter) {
    Module.page.progress({position, length, speed, playing: Boolean(playing), chapter: UTF8ToString(chapter)});
  },
  pageTakenOver: function() { Module.page.takenOver(); },
  pageRestart: function(position, speed, playing) { Module.page.restart(position, speed, Boolean(playing)); },
  pageWatchKeys: function(keys) { Module.page.watchKeys(UTF8ToString(keys)); },

  pageHelp: function(address) { return Module.page.help(UTF8ToString(address)); },
  pageReport: function(line, length) { Module.page.report(UTF8ToString(line, length)); },
  pageEnded: function() { Module.page.ended(); },
});
