"""Blocks of light, larger than the game's tiles and shaded like them, for the emblem, the icon and the About page."""
import numpy as np

from canvas import blend, colour, smooth

GOLD = ("fff0a8", "ffa010", "a04a00")
TEE = ((0, 0), (1, 0), (2, 0), (1, 1))


def block(c, x, y, size, stops, power=1.8):
    """One block with its upper left corner at (x, y): a face, a bevel, a soft shine. `stops`: light, body, dark."""
    left, right = np.searchsorted(c.x[0], (x - 1, x + size + 1))
    top, bottom = np.searchsorted(c.y[:, 0], (y - 1, y + size + 1))
    u, v = (c.x[:, left:right] - x) / size, (c.y[top:bottom] - y) / size
    corner = 0.14
    qx, qy = np.abs(u - 0.5) - 0.5 + corner, np.abs(v - 0.5) - 0.5 + corner
    distance = np.hypot(np.maximum(qx, 0), np.maximum(qy, 0)) + np.minimum(np.maximum(qx, qy), 0) - corner
    mask = smooth(0.5 / size, -0.5 / size, distance + 0.3 / size)
    rim = smooth(-0.17, -0.12, distance)
    across = (u + v) / 2
    lit = smooth(0.04, -0.04, u + v - 1 + 0 * u)
    shade = across * 0.7 + 0.15
    shade = shade + rim * (np.where(lit > 0.5, 0.62 * across, 1 - 0.62 * (1 - across)) - shade)
    face = blend(list(zip((0, 0.5, 1), stops)), shade)
    shine = np.exp(-(((u - 0.34) / 0.20) ** 2 + ((v - 0.32) / 0.15) ** 2)) * (1 - rim)
    face = face + (shine * 0.30)[..., None] * colour(stops[0])
    region = c.light[top:bottom, left:right]
    region += mask[..., None] * (face * power - region)


def piece(c, x, y, size, cells, stops, power=1.8):
    """Several blocks; `cells` are (column, row) from the upper left corner (x, y)."""
    for column, row in cells:
        block(c, x + size * column, y + size * row, size - size * 0.03, stops, power)
