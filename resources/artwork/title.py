"""The background of the title page and the high-score page: the name, the emblem, and quiet night below."""
import numpy as np

from blocks import GOLD, TEE, piece
from canvas import Canvas, blend, colour, hashed, noise, smooth
from lettering import WIDTH, mark
from quantize import paletted

SHORE = 250


def night(c, depth):
    """A clear night sky over `depth` rows, with a faint veil of northern light behind the name."""
    c.light[:] = blend([(0, "060a24"), (0.35, "0a1640"), (0.8, "081c44"), (1, "0d3454")], c.y / depth) * 0.8
    veil = noise(c.x / 60 + 0.012 * c.y, c.y / 110, 101, 3)
    rays = 0.6 + 0.5 * noise(c.x / 5.5, c.y / 90, 102, 3)
    foot = 46 + 9 * np.sin(c.x / 43 + 0.6)
    ribbon = smooth(foot + 8, foot - 6, c.y) * np.exp(np.minimum(c.y - foot, 0) / 34) * smooth(0.30, 0.75, veil) * rays
    c.light += ribbon[..., None] * blend([(0, "1c2a8c"), (1, "0e9a7c")], smooth(0, 52, c.y) + 0 * c.x) * 0.60
    for i in range(170):
        x, y = 240 * hashed(i, 0, 103), (depth - 30) * hashed(i, 1, 103) ** 1.3
        power = (0.08 + 0.9 * hashed(i, 2, 103) ** 8) * smooth(56, 46, y)
        c.glow(x, y, 0.42, "dfeaff", power)


def emblem(c, cx, cy, size):
    """Four blocks of light with a star, centred on (cx, cy)."""
    c.glow(cx, cy - size * 0.1, size * 1.2, "ffa030", 0.16)
    c.glow(cx, cy, size * 0.9, "ffc860", 0.16)
    piece(c, cx - 1.5 * size, cy - size, size, TEE, GOLD)
    c.sparkle(cx + size * 1.14, cy - size * 0.80, size * 0.62, "fff8e0", 2.4)


def _foot(c):
    """A far shore with a few lit windows, and their light on the water."""
    ridge = SHORE - 9 - 12 * (noise(c.x / 34, 0.5, 104, 4) - 0.35) - 7 * smooth(120, 0, np.minimum(c.x, 240 - c.x))
    c.cover(smooth(-0.5, 0.5, c.y - ridge), "061428")
    c.cover(smooth(-0.4, 0.4, c.y - SHORE), colour("0a2440") * 0.55)
    for i in range(26):
        x = (34, 78, 150, 206)[i % 4] + 46 * (hashed(i, 0, 105) - 0.5) * (0.4 + hashed(i, 4, 105))
        y = SHORE - 1.5 - 4 * hashed(i, 1, 105) ** 2
        tint = ("ffb24a", "ffd88a", "ff8a4a")[int(3 * hashed(i, 2, 105))]
        power = 0.3 + 1.2 * hashed(i, 3, 105) ** 2
        c.glow(x, y, 0.5, tint, 1.6 * power)
        c.glow(x, y, 3.0, tint, 0.10 * power)
        below = np.maximum(c.y - SHORE, 0)
        shimmer = np.exp(
            -(((c.x - x - 1.2 * (noise(below / 1.3, x, 106, 2) - 0.5) * below / 3) / (0.6 + below * 0.05)) ** 2)
        )
        c.add(shimmer * (c.y > SHORE) * np.exp(-below / 7.5) * 0.5 * power, tint)


def title():
    c = Canvas(240, 268)
    night(c, SHORE)
    _foot(c)
    emblem(c, 120, 76, 14)
    mark(c, (240 - WIDTH + 2) / 2, 14)
    return paletted(c.finished(), [(255, 255, 255)])
