// Where everything is in the window: the screen, the buttons, the menu. All lengths are CSS pixels, and
// nothing goes where a notch or a rounded corner is.

/** What is left free around the screen, and what the page's menu takes. */
const MARGIN = 10, MENU = 44, GAP = 4;
/** The sides of the pad and of the group of buttons: at least, and at most. */
const LEAST = {small: 138, medium: 138, large: 190}, MOST = {small: 144, medium: 210, large: 280};
/** How much of its free length a screen must fill by whole display pixels; else it takes a fraction. */
const ENOUGH = 0.8;
/** Beside the screen, what the legend of the keys takes. */
const LEGEND = 230;

/** The window without what the display's edges hide. */
function safeBox() {
  const style = getComputedStyle(document.documentElement);
  const inset = (side) => parseFloat(style.getPropertyValue(`--safe-${side}`)) || 0;
  return {left: inset('left'), top: inset('top'), width: innerWidth - inset('left') - inset('right'),
          height: innerHeight - inset('top') - inset('bottom')};
}

/** The room for the screen, and how big the controls are beside or below it. */
function divide(box, face, size) {
  if (face === 'none') { // the menu is beside the screen, or above it
    return box.width * 4 > box.height * 3 ? {width: box.width - 2 * (MENU + MARGIN), height: box.height - 2 * MARGIN}
                                          : {width: box.width - 2 * MARGIN, height: box.height - 2 * (MENU + MARGIN)};
  }
  if (face === 'portrait') {
    const least = Math.min(LEAST[size], (box.width - MENU) / 2);
    return {width: box.width, height: box.height - 2 * MARGIN - GAP - least};
  }
  const least = Math.min(LEAST[size], box.height - MENU - 2 * GAP);
  return {width: box.width - 2 * (least + MARGIN + GAP), height: box.height};
}

/** CSS pixels of a screen's pixel, and how often the canvas has it. */
function scale(width, height, room, ratio) {
  const most = Math.max(0.25, Math.min(room.width / width, room.height / height)) * ratio;
  const whole = Math.floor(most + 0.001);
  return whole >= ENOUGH * most ? {enlarged: whole / ratio, factor: whole, whole: true}
                                : {enlarged: most / ratio, factor: Math.ceil(most), whole: false};
}

/** Lays the page out for a screen of so many pixels; returns how often the canvas has each. */
export function layOut(width, height, touch, hands) {
  const box = safeBox(), ratio = devicePixelRatio;
  const face = !touch ? 'none' : box.height >= box.width ? 'portrait' : 'landscape';
  const room = divide(box, face, hands.size);
  const {enlarged, factor, whole} = scale(width, height, room, ratio);
  const snap = (length) => Math.round(length * ratio) / ratio; // to a whole pixel of the display
  const screen = {width: width * enlarged, height: height * enlarged};
  const side = (box.width - screen.width) / 2;
  screen.left = snap(box.left + side);
  screen.top = snap(box.top + (face === 'portrait' ? Math.min(MARGIN, (box.height - screen.height) / 2)
                                                   : (box.height - screen.height) / 2));

  const below = box.top + box.height - screen.top - screen.height - MARGIN;
  const menu = {left: box.left + box.width - MENU - GAP, top: box.top + GAP};
  let control = 0, top = 0, edge = GAP;
  if (face === 'portrait') {
    control = Math.min((box.width - MENU) / 2, below - GAP, MOST[hands.size]);
    top = screen.top + screen.height + MARGIN + (below - control) / 2;
    edge = Math.max(0, (box.width / 2 - MENU / 2 - control) / 2);
    if (side < MENU + GAP) {
      Object.assign(menu, {left: box.left + (box.width - MENU) / 2, top});
    }
  } else if (face === 'landscape') {
    control = Math.min(side - MARGIN - GAP, box.height - MENU - 2 * GAP, MOST[hands.size]);
    top = box.top + MENU + GAP + (box.height - MENU - GAP - control) / 2;
    edge = (side - MARGIN - control) / 2;
  }

  const root = document.documentElement;
  Object.assign(root.dataset, {face, whole, hand: hands.leftHanded ? 'left' : 'right', legend: face === 'none' && side >= LEGEND});
  const set = (name, length) => root.style.setProperty(`--${name}`, `${length}px`);
  Object.entries(screen).forEach(([name, length]) => set(`screen-${name}`, length));
  Object.entries(menu).forEach(([name, length]) => set(`menu-${name}`, length));
  root.style.setProperty('--screen-scale', enlarged / factor);
  set('control', control);
  set('control-top', top);
  set('control-left', box.left + edge);
  set('control-right', innerWidth - box.left - box.width + edge);
  return factor;
}
