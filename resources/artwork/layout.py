"""The play screen's layout, the same in every backdrop: the dark well and boxes, the frames, the captions."""
import numpy as np

from pixel_font import text_mask
from quantize import choose_palette, dither, displayable, luminance, to_bytes

WELL = (22, 11, 132, 231)  # left, top, right, bottom; right and bottom exclusive
BOXES = ((166, 2, 216, 161), (166, 182, 216, 216))  # with their one-pixel frames
VALUES = ((0, 249, 80, 267), (100, 249, 140, 267), (146, 249, 186, 267), (192, 249, 232, 267))
CAPTIONS = (("NEXT", 168, 4), ("HOLD", 199, 209), ("SCORE", 62, 245), ("LEVEL", 113, 245), ("LINES", 164, 245),
            ("TIME", 208, 245))
WHITE = (255, 255, 255)
RAIL = (206, 223, 239)  # the well's frame
RAIL_SHADE = (99, 121, 148)  # its outer edge
WELL_LUMINANCE = 0.0165  # no pixel of the well is brighter
VALUES_LUMINANCE = 0.10  # nor any under the values


def _inside(shape, rectangle):
    mask = np.zeros(shape, dtype=bool)
    left, top, right, bottom = rectangle
    mask[top:bottom, left:right] = True
    return mask


def _dimmed(light, ceiling):
    """The picture behind dark glass: its light pressed smoothly below `ceiling`, its colours kept."""
    bright = light @ np.array([0.2126, 0.7152, 0.0722])
    pressed = ceiling * bright / (bright + 3.2 * ceiling)
    return light * (pressed / np.maximum(bright, 1e-9))[..., None]


def quieted(light):
    """A finished scene with its well, boxes and values made dark and calm enough to play on."""
    light = light.copy()
    for rectangle, ceiling in [(WELL, WELL_LUMINANCE)] + [(box, WELL_LUMINANCE) for box in BOXES]:
        left, top, right, bottom = rectangle
        light[top:bottom, left:right] = _dimmed(light[top:bottom, left:right], ceiling)
    foot = np.clip((np.arange(light.shape[0]) - 236) / 10, 0, 1)[:, None, None]
    bottom = _dimmed(light, 2.6 * VALUES_LUMINANCE)
    return light + foot * (bottom - light)


def ink():
    """The frames and captions: (mask, colour) in the order of drawing."""
    shape = (268, 240)
    left, top, right, bottom = WELL
    outer = _inside(shape, (left - 2, top, right + 2, bottom + 2)) & ~_inside(shape, (left - 1, top, right + 1, bottom + 1))
    outer[bottom + 1, [left - 2, right + 1]] = False
    rail = _inside(shape, (left - 1, top, right + 1, bottom + 1)) & ~_inside(shape, WELL)
    white = np.zeros(shape, dtype=bool)
    for box_left, box_top, box_right, box_bottom in BOXES:
        box = (box_left, box_top, box_right, box_bottom)
        white |= _inside(shape, box) & ~_inside(shape, (box_left + 1, box_top + 1, box_right - 1, box_bottom - 1))
    for text, x, y in CAPTIONS:
        mask = text_mask(text)
        white[y:y + 5, x:x + mask.shape[1]] |= mask
    return ((outer, RAIL_SHADE), (rail, RAIL), (white, WHITE))


def backdrop(light):
    """The whole backdrop of a finished scene (268 by 240 of linear light): indices and palette."""
    picture = to_bytes(quieted(light))
    fixed = displayable([WHITE, RAIL, RAIL_SHADE])
    palette = choose_palette(picture, fixed)
    bright = luminance(palette)
    dark = np.zeros(picture.shape[:2], dtype=bool)
    for rectangle in (WELL, *BOXES):
        dark |= _inside(dark.shape, rectangle)
    indices = dither(picture, palette, np.ones(len(palette), dtype=bool))
    indices[dark] = dither(picture, palette, bright <= WELL_LUMINANCE)[dark]
    calm = np.zeros(dark.shape, dtype=bool)
    for rectangle in VALUES:
        calm |= _inside(dark.shape, rectangle)
    indices[calm] = dither(picture, palette, bright <= VALUES_LUMINANCE)[calm]
    for mask, tint in ink():
        indices[mask] = np.flatnonzero((palette == displayable(tint)).all(axis=1))[0]
    return indices.astype(np.uint8), palette
