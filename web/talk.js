// What the page says: notices that go by themselves, and questions that stay until they are answered.
export const element = (id) => document.getElementById(id);
const question = element('question');

let asked = () => {};

/** Has `act` called when a question is there. */
export function whenAsked(act) { asked = act; }

let fading;
export function notice(text) {
  element('notice').textContent = text;
  element('notice').hidden = false;
  clearTimeout(fading);
  fading = setTimeout(() => { element('notice').hidden = true; }, 8000);
}

/**
 * Says something that stays until one of its buttons, each with what it does, is pressed. With a field there is a
 * text to read or to type, which the buttons are given.
 */
export function ask(text, acts, field = null) {
  const input = element('answer');
  element('asked').textContent = text;
  input.hidden = !field;
  Object.assign(input, {value: '', readOnly: false, placeholder: '', ...field});
  question.querySelector('div').replaceChildren(...Object.entries(acts).map(([label, act]) =>
    Object.assign(document.createElement('button'), {type: 'button', textContent: label, onclick: () => act(input)})));
  element('menu').close();
  if (!question.open) {
    question.showModal();
  }
  input.onkeydown = ({key}) => key === 'Enter' && question.querySelector('button').click();
  if (field) {
    input.focus();
    input.select();
  }
  asked();
}

export const hush = () => question.close();

/** Asks which of several things; the answer closes the question. */
export const choose = (text, acts, field) => ask(text, Object.fromEntries(Object.entries(acts).map(
  ([label, act]) => [label, (input) => { hush(); act(input.value); }])), field);

/** Says something that is to be read. */
export const say = (text) => choose(text, {OK() {}});

/** Gives the player a file. */
export function download(text, name) {
  const link = document.createElement('a');
  link.href = URL.createObjectURL(new Blob([text]));
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 60000);
}
