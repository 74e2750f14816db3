// The program's code, compiled while the rest of the page is made ready: so this is imported first.

/** The long way where a server gives the file a wrong type. */
async function compile() {
  const load = () => fetch('glimra.wasm');
  return WebAssembly.compileStreaming(load()).catch(async () => WebAssembly.compile(await (await load()).arrayBuffer()));
}

/** Null where the browser cannot run it. */
export const code = typeof WebAssembly === 'object' ? compile() : null;
