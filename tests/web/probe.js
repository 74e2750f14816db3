// Runs in the page before its own scripts: keeps what goes wrong, and what the page would download.
window.problems = [];
addEventListener('error', (event) => problems.push(`${event.message} ${event.filename}:${event.lineno}`));
addEventListener('unhandledrejection', (event) => problems.push(String(event.reason?.stack ?? event.reason)));
addEventListener('securitypolicyviolation', (event) => problems.push(`${event.violatedDirective}: ${event.blockedURI}`));
for (const kind of ['error', 'warn']) {
  console[kind] = (...words) => problems.push(words.join(' '));
}
const {createObjectURL} = URL;
URL.createObjectURL = (blob) => {
  window.blob = blob;
  return createObjectURL.call(URL, blob);
};
HTMLAnchorElement.prototype.click = () => {};
