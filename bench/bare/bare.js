// Draws one frame.
const context = document.querySelector('canvas').getContext('2d');
context.putImageData(new ImageData(240, 320), 0, 0);
requestAnimationFrame(() => setTimeout(() => performance.mark('first frame'))); // after the display's frame
