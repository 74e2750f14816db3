// Instances of the program: one plays the player's own game, others show records. All have the same code, and each
// a memory of its own.
import createGlimra from './glimra.js';
import {code} from './program.js';

/**
 * Makes an instance that runs with `words` as its command line, once `leave` to do so is there. What stops it is
 * given to `fail`. One that does not run only answers.
 */
export function instantiate({page, words = [], runs = true, leave = true, fail}) {
  return createGlimra({page, arguments: words, noInitialRun: !runs, printErr: page?.report, wake() {}, halt() {}, onAbort: fail,
    instantiateWasm(imports, receive) {
      const instance = code.then((module) => WebAssembly.instantiate(module, imports));
      Promise.all([instance, leave]).then(([instance, goes]) => goes && receive(instance)).catch(fail);
      return {};
    }});
}

/** Why a text is not what the function of that name looks for, or null. */
export function fault(program, name, text) {
  const reason = program[`_${name}`](program.allocateUTF8(text));
  const words = reason && program.UTF8ToString(reason);
  program._free(reason);
  return words || null;
}

/** Why a text is no record, or null. What has read it is thrown away, so that it can do no harm. */
export async function faultInRecord(text) {
  return fault(await instantiate({runs: false, fail() {}}), 'faultInRecord', text);
}

/** Lets an instance rest, with whatever it waits for, until the returned function is called. */
export function freeze(program) {
  const {wake} = program;
  program.halt();
  return () => {
    program.wake = wake;
    program.wake();
  };
}
