"""The name GLIMRA as a mark: rounded letters of glass, lit from the upper left, the I dotted with a star."""
import numpy as np

from canvas import blend, blurred, colour, smooth, stroke

HALF = 3.7  # half of a letter's stroke


def _arc(cx, cy, rx, ry, start, end, steps=18):
    angles = np.radians(np.linspace(start, end, steps))
    return list(zip(cx + rx * np.cos(angles), cy + ry * np.sin(angles)))


# Each letter: its advance, and its strokes in a box 30 rows high from its left edge, between the stroke's centres.
LETTERS = (
    ("G", 39, [_arc(15, 15, 15, 15, -48, -360 + 4, 30) + [(30, 16.5), (19.5, 16.5)]]),
    ("L", 31, [[(0, 0), (0, 30), (18.5, 30)]]),
    ("I", 14, [[(0, 12), (0, 30)]]),
    ("M", 44, [[(0, 30), (1.5, 0), (15.5, 21), (29.5, 0), (31, 30)]]),
    (
        "R",
        33,
        [
            [(0, 30), (0, 0), (12, 0)] + _arc(12, 8.5, 8.5, 8.5, -80, 80, 12) + [(12, 17), (0, 17)],
            [(11, 17), (21.5, 30)],
        ],
    ),
    ("A", 29, [[(0, 30), (13.5, 0), (27, 30)], [(5.6, 20), (21.4, 20)]]),
)
WIDTH = sum(advance for _, advance, _ in LETTERS)


def _distance(c, left, top):
    """The signed distance to the letters' outlines, with the box of rows around them."""
    rows = (c.y[:, 0] > top - 14) & (c.y[:, 0] < top + 44)
    y, best, x = c.y[rows], None, left
    for _, advance, strokes in LETTERS:
        for points in strokes:
            d = stroke(c.x, y, [(x + px, top + py) for px, py in points]) - HALF
            best = d if best is None else np.minimum(best, d)
        x += advance
    return best, rows


def star_position(left, top):
    """Where the star over the I stands."""
    return left + LETTERS[0][1] + LETTERS[1][1], top + 1.5


def mark(c, left, top):
    """Draws the name, its letters' centre lines from (left, top) to (left + WIDTH - 2, top + 30)."""
    distance, rows = _distance(c, left, top)
    sx, sy = star_position(left, top)
    halo = np.zeros_like(c.light)
    halo[rows] = np.maximum(smooth(1, -1, distance), 0)[..., None] * blend(
        [(left, "2ad8a0"), (left + WIDTH * 0.5, "2aa8ff"), (left + WIDTH, "8a5aff")], c.x + 0 * distance
    )
    c.light += 0.55 * blurred(halo, 5 * c.n / 2) + 0.35 * blurred(halo, 14)
    c.light[rows] *= 1 - 0.75 * smooth(2.4, 0.4, distance)[..., None]
    slope_y, slope_x = np.gradient(distance)
    facing = -(slope_x * 0.6 + slope_y * 0.8) * c.n
    bevel = smooth(-2.6, -0.3, distance)
    height = (c.y[rows] - top + HALF) / (30 + 2 * HALF)
    face = blend(
        [(0, "f4ffff"), (0.34, "9ce8ff"), (0.52, "3cb0f0"), (0.56, "1a70c8"), (1, "6cf0dc")], height + 0 * distance
    )
    light = face * (1.75 + 0 * bevel)[..., None]
    light *= (1 + bevel * np.where(facing > 0, 0, 0.72 * facing))[..., None]
    light += (bevel * np.maximum(facing, 0))[..., None] * 1.6
    sweep = np.exp(-(((c.x + 0.5 * (c.y[rows] - top) - left - 0.66 * WIDTH) / 9) ** 2))
    light += (sweep * 0.7)[..., None] * colour("fff4d0")
    inside = smooth(0.3, -0.3, distance)[..., None]
    c.light[rows] += inside * (light - c.light[rows])
    c.glow(sx, sy, 5.5, "ffd070", 0.5)
    c.sparkle(sx, sy, 13, "fff0c0", 2.6)
    c.glow(sx, sy, 1.5, "ffffff", 2.5)
