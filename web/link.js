// Records as links: packed into the part of an address that no server sees.
const MARK = '#game=';
/** Characters of a link: all that is mailed and posted takes that many. */
export const LONGEST = 30000;
/** Bytes of a record's text. */
export const LARGEST = 4 * 1024 * 1024;

const through = (bytes, transformer) => new Blob([bytes]).stream().pipeThrough(transformer);

const toLines = (store) => btoa(store).replace(/.{1,76}/g, '#: $&\n');

/** The store at a record's start is in base64, of which little can be packed: it goes as it is, between two zeros. */
function loosen(text) {
  const [lines] = /(?:^#: .*\n)+/m.exec(text) ?? [''];
  const store = atob(lines.replace(/^#: |\n/gm, ''));
  return store && !store.includes('\0') && toLines(store) === lines ? text.replace(lines, () => `\0${store}\0`) : text;
}

const tighten = (text) => text.replace(/\0([^\0]*)\0/, (_, store) => toLines(store));

/** The link to a record, or null where the browser cannot make one. */
export async function linkTo(text) {
  if (!window.CompressionStream) {
    return null;
  }
  const packed = await new Response(through(loosen(text), new CompressionStream('deflate-raw'))).arrayBuffer();
  const letters = btoa(Array.from(new Uint8Array(packed), (byte) => String.fromCharCode(byte)).join(''))
    .replaceAll('+', '-').replaceAll('/', '_').replace(/=+$/, '');
  return location.href.split('#')[0] + MARK + letters;
}

/** Whether an address has a record in it. */
export const isLink = (address) => address.includes(MARK);

/** The text of the record in a link; throws an error that says what is wrong with it. */
export async function recordIn(address) {
  const letters = address.slice(address.indexOf(MARK) + MARK.length).trim();
  if (letters.length > LONGEST) {
    throw new Error('it is too long');
  }
  if (!window.DecompressionStream) {
    throw new Error('this browser cannot unpack it');
  }
  try {
    const packed = atob(letters.replaceAll('-', '+').replaceAll('_', '/'));
    return tighten(await unpack(Uint8Array.from(packed, (letter) => letter.charCodeAt(0))));
  } catch (error) {
    throw error instanceof RangeError ? error : new Error('it is not complete');
  }
}

/** A few bytes can become very many: it stops at the most that a record has. */
async function unpack(packed) {
  const parts = [];
  let size = 0;
  const reader = through(packed, new DecompressionStream('deflate-raw')).getReader();
  for (;;) {
    const {done, value} = await reader.read();
    if (done) {
      return new Blob(parts).text();
    }
    parts.push(value);
    size += value.length;
    if (size > LARGEST) {
      reader.cancel().catch(() => {});
      throw new RangeError('it is larger than 4 MB');
    }
  }
}
