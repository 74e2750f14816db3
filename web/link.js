// Records as links: packed into the part of an address that no server sees.
const MARK = '#game=';
/** Characters of a link: all that is mailed and posted takes that many. */
export const LONGEST = 30000;
/** Bytes of a record's text. */
export const LARGEST = 4 * 1024 * 1024;

const through = (bytes, transformer) => new Blob([bytes]).stream().pipeThrough(transformer);

/** The link to a record, or null where the browser cannot make one. */
export async function linkTo(text) {
  if (!window.CompressionStream) {
    return null;
  }
  const packed = await new Response(through(text, new CompressionStream('deflate-raw'))).arrayBuffer();
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
  let packed;
  try {
    packed = Uint8Array.from(atob(letters.replaceAll('-', '+').replaceAll('_', '/')), (letter) => letter.charCodeAt(0));
  } catch {
    throw new Error('it is not complete');
  }
  return unpack(packed);
}

/** A few bytes can become very many: it stops at the most that a record has. */
async function unpack(packed) {
  const parts = [];
  let size = 0;
  const reader = through(packed, new DecompressionStream('deflate-raw')).getReader();
  for (;;) {
    const {done, value} = await reader.read().catch(() => { throw new Error('it is not complete'); });
    if (done) {
      return new Blob(parts).text();
    }
    parts.push(value);
    size += value.length;
    if (size > LARGEST) {
      reader.cancel().catch(() => {});
      throw new Error('it is larger than 4 MB');
    }
  }
}
