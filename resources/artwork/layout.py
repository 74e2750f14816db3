"""The play screen's layout, the same in every backdrop: the dark well and boxes, the frames, the captions."""
import numpy as np

from canvas import blurred
from pixel_font import text_mask
from quantize import choose_palette, dither, displayable, luminance, to_bytes

WELL = (22, 11, 132, 231)  # left, top, right, bottom; right and bottom exclusive
BOXES = ((166, 2, 216, 161), (166, 182, 216, 216))  # with their one-pixel frames
VALUES = ((0, 249, 80, 267), (100, 249, 140, 267), (146, 249, 186, 267), (192, 249, 232, 267))
CAPTIONS = (
    ("NEXT", 168, 4),
    ("HOLD", 199, 209),
    ("SCORE", 62, 245),
    ("LEVEL", 113, 245),
    ("LINES", 164, 245),
    ("TIME", 208, 245),
)
WHITE = (255, 255, 255)
RAIL = (206, 223, 239)  # the well's frame
RAIL_SHADE = (99, 121, 148)  # its outer edge
GREY = np.array([0.2126, 0.7152, 0.0722])  # a colour's luminance from its linear light
WELL_LUMINANCE = 0.0165  # no pixel of the well is brighter
VALUES_LUMINANCE = 0.10  # nor any under the values


def _inside(shape, rectangle):
    mask = np.zeros(shape, dtype=bool)
    left, top, right, bottom = rectangle
    mask[top:bottom, left:right] = True
    return mask


def _dimmed(light, ceiling):
    """Compresses the light smoothly below the luminance `ceiling`; its colours stay."""
    bright = light @ GREY
    pressed = ceiling * bright / (bright + 3.2 * ceiling)
    return light * (pressed / np.maximum(bright, 1e-9))[..., None]


def _behind_glass(light, tint):
    """The picture through dark glass of that tint: blurred, without bright points, nearly of one colour."""
    soft = blurred(np.minimum(light, 0.3), 1)
    grey = (soft @ GREY)[..., None]
    return _dimmed((soft * 0.45 + grey * 0.55) * tint, WELL_LUMINANCE) + tint * 0.0011


def quieted(light, tint):
    """A finished scene with its well, boxes and values made dark and calm enough to play on."""
    light = light.copy()
    glass = _behind_glass(light, tint)
    for left, top, right, bottom in (WELL, *BOXES):
        light[top:bottom, left:right] = glass[top:bottom, left:right]
    foot = np.clip((np.arange(light.shape[0]) - 236) / 10, 0, 1)[:, None, None]
    bottom = _dimmed(light, 2.6 * VALUES_LUMINANCE)
    return light + foot * (bottom - light)


def ink():
    """The frames and captions: (mask, colour) in the order of drawing."""
    shape = (268, 240)
    left, top, right, bottom = WELL
    outer = _inside(shape, (left - 2, top, right + 2, bottom + 2)) & ~_inside(
        shape, (left - 1, top, right + 1, bottom + 1)
    )
    outer[bottom + 1, [left - 2, right + 1]] = False
    rail = _inside(shape, (left - 1, top, right + 1, bottom + 1)) & ~_inside(shape, WELL)
    white = np.zeros(shape, dtype=bool)
    for box_left, box_top, box_right, box_bottom in BOXES:
        box = (box_left, box_top, box_right, box_bottom)
        white |= _inside(shape, box) & ~_inside(shape, (box_left + 1, box_top + 1, box_right - 1, box_bottom - 1))
    for text, x, y in CAPTIONS:
        mask = text_mask(text)
        white[y : y + 5, x : x + mask.shape[1]] |= mask
    return ((outer, RAIL_SHADE), (rail, RAIL), (white, WHITE))


def _region(shape, rectangles):
    mask = np.zeros(shape, dtype=bool)
    for rectangle in rectangles:
        mask |= _inside(shape, rectangle)
    return mask


def backdrop(light, tint):
    """The whole backdrop of a finished scene (268 by 240 of linear light): indices and palette.

    `tint` is the colour of the well's dark glass, as linear light near 1. Most of the dark colours that the display
    has are needed there, so the palette begins with them.
    """
    picture = to_bytes(quieted(light, tint))
    dark = _region(picture.shape[:2], (WELL, *BOXES))
    fixed = displayable([WHITE, RAIL, RAIL_SHADE])
    palette = choose_palette(picture[~dark], choose_palette(picture[dark], fixed, 72))
    bright = luminance(palette)
    calm = _region(dark.shape, VALUES)
    indices = np.zeros(dark.shape, dtype=np.uint8)
    for region, ceiling in ((~dark & ~calm, 1.0), (calm, VALUES_LUMINANCE), (dark, WELL_LUMINANCE)):
        indices[region] = dither(picture, palette, region, bright <= ceiling)
    for mask, ink_colour in ink():
        indices[mask] = np.flatnonzero((palette == displayable(ink_colour)).all(axis=1))[0]
    return indices, palette
