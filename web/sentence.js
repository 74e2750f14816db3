// Says where the page cannot work, in words that every browser understands.
(function() {
  var reason = null;
  if (location.protocol === 'file:') {
    reason = 'Glimra works only from a web server, not from a file. In its folder, "./play --web" starts a server.';
  } else if (typeof WebAssembly !== 'object' || !('noModule' in document.createElement('script'))) {
    reason = 'Glimra needs a browser with WebAssembly, which this one lacks.';
  }
  if (reason) {
    document.documentElement.setAttribute('data-stopped', '');
    document.getElementById('sentence').textContent = reason;
  }
})();
