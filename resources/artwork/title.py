"""The background of the title page and the high-score page."""
import numpy as np

from canvas import Canvas, blend
from quantize import choose_palette, dither, to_bytes


def title():
    c = Canvas(240, 268)
    c.light[:] = blend([(0, "141c48"), (268, "081020")], c.y)
    return picture(c.finished())


def picture(light):
    image = to_bytes(light)
    palette = choose_palette(image, np.zeros((0, 3), dtype=np.int64))
    return dither(image, palette, np.ones(len(palette), dtype=bool)).astype(np.uint8), palette
