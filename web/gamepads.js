// Game controllers in the order of the standard mapping. One that the browser does not know is taught once.
import {keep, settings} from './hands.js';

/** What is asked for, with its place among the standard buttons; the last two are axes of the stylus' stick. */
const LESSONS = [['move left', 14], ['move right', 15], ['soft drop', 13], ['hard drop', 12], ['rotate right', 0],
                 ['rotate left', 1], ['hold', 2], ['pause', 9], ['tap with the stylus', 11], ['move the stylus right', 2, 'axis'],
                 ['move the stylus down', 3, 'axis']];
/** How near an axis must be to where it was taught; a hat's directions are 0.29 apart. */
const NEAR = 0.35;

const raw = () => [...navigator.getGamepads?.() ?? []].filter(Boolean);

export const needsLesson = () => raw().some((pad) => pad.mapping !== 'standard');
export const isKnown = (pad) => pad.mapping === 'standard' || pad.id in settings.controllers;

/** A controller as the standard mapping has it. */
function standard(pad) {
  const lesson = settings.controllers[pad.id];
  if (pad.mapping === 'standard' || !lesson) {
    return pad;
  }
  const isPressed = ({button, axis, at}) => button !== undefined ? pad.buttons[button]?.pressed : Math.abs(pad.axes[axis] - at) < NEAR;
  const buttons = Array.from({length: 17}, () => ({pressed: false}));
  const axes = [0, 0, 0, 0];
  for (const [place, source] of Object.entries(lesson.buttons)) {
    buttons[place].pressed = Boolean(isPressed(source));
  }
  for (const [place, {axis, at}] of Object.entries(lesson.axes)) {
    axes[place] = pad.axes[axis] / at;
  }
  return {index: pad.index, buttons, axes};
}

/** The controllers there are, all in the order of the standard mapping. */
export const pads = () => raw().map(standard);

/** What of a controller has moved since `before`: a button, or an axis and where it is. */
function moved(pad, before) {
  const button = pad.buttons.findIndex(({pressed}, i) => pressed && !before.buttons[i]);
  const axis = pad.axes.findIndex((value, i) => Math.abs(value - before.axes[i]) > 0.6);
  return button >= 0 ? {button} : axis >= 0 ? {axis, at: pad.axes[axis]} : null;
}

/** How a controller is while nothing is pressed. */
const rest = (pad) => ({buttons: pad.buttons.map(({pressed}) => pressed), axes: [...pad.axes]});

/**
 * Teaches the first controller that is not standard. `show(text, skip)` says what to press, with
 * something to call when that is to be left out; it returns a function that says whether the lesson goes on.
 */
export async function teach(show) {
  const [pad] = raw().filter(({mapping}) => mapping !== 'standard');
  const atRest = rest(pad);
  const lesson = {buttons: {}, axes: {}};
  for (const [name, place, kind] of LESSONS) {
    const found = await learn(pad.index, atRest, kind, (skip) => show(`Press what is to ${name}.`, skip));
    if (found === undefined) {
      return;
    }
    if (found) {
      lesson[kind === 'axis' ? 'axes' : 'buttons'][place] = found;
    }
  }
  keep({controllers: {...settings.controllers, [pad.id]: lesson}});
}

/** What is pressed next; null when it was skipped, undefined when the lesson was broken off. */
function learn(index, atRest, kind, show) {
  return new Promise((resolve) => {
    let letGo = false, skipped = false; // what was pressed before is let go first
    const goesOn = show(() => { skipped = true; });
    const look = () => {
      const pad = raw().find((pad) => pad.index === index);
      const found = pad && moved(pad, atRest);
      if (skipped || !pad || !goesOn()) {
        resolve(skipped ? null : undefined);
      } else if (letGo && found && (!kind || found.axis !== undefined)) {
        resolve(found);
      } else {
        letGo ||= !found;
        requestAnimationFrame(look);
      }
    };
    look();
  });
}
