// Begins to fetch the program before anything else of the page is there. Where the page cannot work it
// says so, in words that every browser understands.
(function() {
  var reason = null;
  if (location.protocol === 'file:') {
    reason = 'Glimra works only from a web server, not from a file. In its folder, "./play --web" starts a server.';
  } else if (typeof WebAssembly !== 'object' || !('noModule' in document.createElement('script'))) {
    reason = 'Glimra needs a browser with WebAssembly, which this one lacks.';
  }
  window.glimraCode = reason ? null : fetch('glimra.wasm');
  if (reason) {
    document.documentElement.setAttribute('data-stopped', '');
    document.addEventListener('DOMContentLoaded', function() { document.getElementById('sentence').textContent = reason; });
  }
})();
