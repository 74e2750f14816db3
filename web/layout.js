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
/** The viewer's bar: at least, and at most; below the screen, and beside it. */
const BELOW = {width: 460, height: 204}, BESIDE = {least: 206, width: 300, height: 300};

/** The window without what the display's edges hide. */
function safeBox() {
  const style = getComputedStyle(document.documentElement);
  const inset = (side) => parseFloat(style.getPropertyValue(`--safe-${side}`)) || 0;
  return {left: inset('left'), top: inset('top'), width: innerWidth - inset('left') - inset('right'),
          height: innerHeight - inset('top') - inset('bottom')};
}

/** The room for the screen, and how big the controls are beside or below it. */
function divide(box, face, size, bar) {
  if (bar === 'below') {
    return {width: box.width, height: box.height - 2 * MARGIN - BELOW.height};
  }
  if (bar === 'beside') {
    return {width: box.width - BESIDE.least - 3 * MARGIN, height: box.height - 2 * MARGIN};
  }
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
  const watching = ['begins', 'plays', 'stands'].includes(document.documentElement.dataset.watching);
  const bar = watching && (box.height >= box.width ? 'below' : 'beside');
  const room = divide(box, face, hands.size, bar);
  const {enlarged, factor, whole} = scale(width, height, room, ratio);
  const snap = (length) => Math.round(length * ratio) / ratio; // to a whole pixel of the display
  const screen = {width: width * enlarged, height: height * enlarged};
  const centred = (box.width - screen.width) / 2;
  const side = bar === 'beside' ? Math.min(centred, box.width - screen.width - BESIDE.least - 2 * MARGIN) : centred;
  screen.left = snap(box.left + side);
  screen.top = snap(box.top + (bar === 'below' || face === 'portrait' ? Math.min(MARGIN, (box.height - screen.height) / 2)
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

  const panel = bar === 'beside'
    ? {left: screen.left + screen.width + MARGIN, top: box.top,
       width: Math.min(BESIDE.width, box.left + box.width - screen.left - screen.width - 2 * MARGIN), height: box.height}
    : {left: box.left, top: screen.top + screen.height, width: box.width, height: box.top + box.height - screen.top - screen.height};
  const root = document.documentElement;
  Object.assign(root.dataset, {face, whole, hand: hands.leftHanded ? 'left' : 'right', legend: face === 'none' && !watching && side >= LEGEND});
  const set = (name, length) => root.style.setProperty(`--${name}`, `${length}px`);
  Object.entries(screen).forEach(([name, length]) => set(`screen-${name}`, length));
  Object.entries(panel).forEach(([name, length]) => set(`panel-${name}`, length));
  Object.entries(menu).forEach(([name, length]) => set(`menu-${name}`, length));
  root.style.setProperty('--screen-scale', enlarged / factor);
  set('control', control);
  set('control-top', top);
  set('control-left', box.left + edge);
  set('control-right', innerWidth - box.left - box.width + edge);
  return factor;
}
