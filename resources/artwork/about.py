"""The picture of the About dialog: pieces of light rise over still water past a great paper lantern.

The version is written in black on the lantern's brightest part, which is plain white there, so it does not matter
whether the text is drawn with a white background or none.
"""
import numpy as np

from blocks import piece
from canvas import Canvas, blend, colour, hashed, noise, smooth, stroke
from lettering import WIDTH, mark
from quantize import paletted
from title import night

PLATE = (129, 149, 198, 166)  # left, top, right, bottom: the text's place with two pixels around it
SHORE = 222
# Rising pieces: left, top, block size, cells, and their light, body and dark colours.
RISING = (
    (18, 74, 13, ((0, 0), (1, 0), (2, 0), (1, 1)), ("ffd8ff", "e04ae0", "6a0a80")),
    (70, 112, 11, ((0, 0), (1, 0), (0, 1), (1, 1)), ("fff8c0", "ffcc30", "8c6000")),
    (22, 142, 10, ((0, 0), (0, 1), (0, 2), (1, 2)), ("ffe0b0", "ff8a20", "8a3a00")),
    (62, 178, 8, ((1, 0), (2, 0), (0, 1), (1, 1)), ("d8ffb0", "5ad820", "146000")),
    (110, 68, 7, ((0, 0), (0, 1), (0, 2), (0, 3)), ("d0f8ff", "20b8f8", "00587c")),
    (214, 176, 6, ((0, 0), (1, 0), (1, 1), (2, 1)), ("ffc8d0", "f03848", "80000c")),
)


def _lantern(c, x, y, wide, tall):
    """A paper lantern with ribs, wooden rings and a tassel, brightest at its heart."""
    u, v = (c.x - x) / wide, (c.y - y) / tall
    distance = (np.abs(u) ** 2.6 + np.abs(v) ** 2.6) ** (1 / 2.6) - 1
    c.glow(x, y, wide * 0.72, "ff8a30", 0.30)
    mask = smooth(0.012, -0.012, distance)
    fall = np.clip(
        1 - (np.maximum(np.abs(u) - 0.42, 0) * 1.55) ** 1.3 - (np.maximum(np.abs(v) - 0.1, 0) * 1.08) ** 1.4, 0, 1
    )
    paper = blend([(0, "d8480c"), (0.35, "ff9030"), (0.65, "ffcf70"), (0.85, "fff0c8"), (1, "ffffff")], fall)
    bow = v + 0.05 * v * u * u
    ribs = smooth(0.80, 1.0, np.cos(bow * np.pi * 6.5) ** 2) * (0.26 - 0.16 * fall)
    c.cover(mask, paper * (1.35 + 1.5 * fall**2)[..., None] * (1 - ribs)[..., None])
    for at in (-1, 1):
        ring = np.maximum(np.abs(u) - 0.46, np.abs(v - at * 0.985) - 0.05)
        c.cover(smooth(0.01, -0.01, ring), blend([(-0.5, "8a4a20"), (0, "5a2a14"), (0.5, "2a120c")], u + 0 * v))
    for thread in range(-3, 4):
        tassel = (
            smooth(0.6, 0.2, np.abs(c.x - x - thread * (0.6 + 0.05 * (c.y - y - tall))))
            * (c.y > y + tall)
            * (c.y < y + tall + 13)
        )
        c.cover(tassel * 0.9, "d83a20")


def _branch(c):
    """The bough that the lantern hangs from, with a few leaves in its light."""
    bough = [(246, 76), (226, 80), (205, 88), (184, 93), (163.5, 100), (152, 99)]
    for (start, end), thick in zip(zip(bough, bough[1:]), (2.4, 2.0, 1.5, 1.1, 0.6)):
        c.cover(c.edge(stroke(c.x, c.y, [start, end]) - thick), "1c1210")
    c.cover(c.edge(stroke(c.x, c.y, [(163.5, 100), (163.5, 113)]) - 0.45), "e0a860")
    for i in range(34):
        t = hashed(i, 0, 113)
        at = np.interp(t, np.linspace(0, 1, len(bough)), [p[0] for p in bough])
        up = np.interp(t, np.linspace(0, 1, len(bough)), [p[1] for p in bough])
        angle = 6.28 * hashed(i, 1, 113)
        x, y = at + 5 * np.cos(angle), up + 4 * np.sin(angle)
        along = (c.x - x) * np.cos(angle) + (c.y - y) * np.sin(angle)
        across = -(c.x - x) * np.sin(angle) + (c.y - y) * np.cos(angle)
        leaf = c.edge((np.abs(along) / 2.6) ** 1.6 + (np.abs(across) / 1.25) ** 1.6 - 1, 0.3)
        c.cover(
            leaf,
            blend([(0, "12241c"), (0.6, "4a4818"), (1, "c87a24")], np.array(hashed(i, 2, 113) * smooth(230, 165, x))),
        )


def _water(c):
    below = c.y[SHORE * c.n :] - SHORE
    ripple = noise(c.x / (5 + below * 0.6), below / (0.8 + below * 0.05), 112, 3) - 0.5
    c.reflect(SHORE, np.linspace(1.2, 3.9, 9), ripple, 2 + below, 3 + below * 0.15)
    water = c.light[SHORE * c.n :]
    water *= (0.85 * np.exp(-below / 60))[..., None]
    water += colour("04101c") * 0.5
    c.add(smooth(1.2, 0, np.abs(c.y - SHORE - 0.3)) * 0.10 + 0 * c.x, "ffd0a0")


def about():
    c = Canvas(240, 270)
    night(c, SHORE)
    hills = SHORE - 8 - 22 * (noise(c.x / 40, 0.5, 111, 4) - 0.3)
    c.cover(smooth(-0.5, 0.5, c.y - hills), "061630")
    _branch(c)
    _lantern(c, 163.5, 157.5, 50, 46)
    for x, y, size, cells, stops in RISING:
        middle = (x + size * (max(p for p, _ in cells) + 1) / 2, y + size * (max(q for _, q in cells) + 1) / 2)
        c.glow(*middle, size * 1.5, stops[1], 0.20)
        piece(c, x, y, size, cells, stops, 1.35)
    _water(c)
    mark(c, (240 - WIDTH + 2) / 2, 16)
    c.bloom(3, 1.1, 0.15)
    return paletted(_whitened(c.finished()), [(255, 255, 255)])


def _whitened(light):
    """The finished picture with the lantern's heart turned to plain white where the version stands."""
    left, top, right, bottom = PLATE
    y, x = np.mgrid[0 : light.shape[0], 0 : light.shape[1]] + 0.5
    outside = np.hypot(np.maximum(np.maximum(left - x, x - right), 0), np.maximum(np.maximum(top - y, y - bottom), 0))
    return light + smooth(14, 0, outside)[..., None] * (1 - light)
