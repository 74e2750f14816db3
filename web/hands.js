// How the page suits the player's hands. Kept with the page, apart from the game's own store.
const NAME = 'glimra.page';

/** What is kept, with what holds until something else is chosen. `controllers` says what gamepads.js was taught. */
export const settings = {leftHanded: false, size: 'medium', vibration: true, advised: false, controllers: {}};

try {
  Object.assign(settings, JSON.parse(localStorage.getItem(NAME)));
} catch {
  // Refused or damaged: the page is as it comes.
}

export function keep(changes) {
  Object.assign(settings, changes);
  try {
    localStorage.setItem(NAME, JSON.stringify(settings));
  } catch {
    // It holds for this visit.
  }
}

const advice = document.getElementById('advice');
const forgets = /safari/i.test(navigator.userAgent) && !/chrom|android|fxios/i.test(navigator.userAgent) &&
                !matchMedia('(display-mode: standalone)').matches;
advice.hidden = !forgets;

/** Joins the choices in the menu to the settings; `changed` is called when one was made. */
export function prepareHands(changed) {
  const join = (id, name, property) => {
    const input = document.getElementById(id);
    input[property] = settings[name];
    input.onchange = () => {
      keep({[name]: input[property]});
      changed();
    };
  };
  join('left-handed', 'leftHanded', 'checked');
  join('size', 'size', 'value');
  join('vibration', 'vibration', 'checked');
  document.getElementById('vibration-label').hidden = !navigator.vibrate;
}

/** Asks the browser to keep what is stored, at the first save of a visit; Safari needs the player's help. */
let asked = false;
export function keepForLong(show) {
  if (asked) {
    return;
  }
  asked = true;
  navigator.storage?.persist?.().catch(() => {});
  if (forgets && !settings.advised) {
    show(advice.textContent);
    keep({advised: true});
  }
}

/** A short tremble under a finger. */
export function tremble() {
  if (settings.vibration && navigator.userActivation?.hasBeenActive) {
    navigator.vibrate?.(8);
  }
}
