"""Backdrop 1: a harbour town at dusk, its lanterns and windows lit."""
import numpy as np

from canvas import Canvas, blend, colour, hashed, noise, polygon, smooth, stroke

QUAY = 219  # the row where the water begins
SKY = [
    (0, "10153f"),
    (55, "2a2368"),
    (100, "5a2f7c"),
    (140, "a8487a"),
    (166, "ec7c58"),
    (188, "ffb868"),
    (QUAY, "ffd89a"),
]
# Strings of lanterns: ends, how far they sag, and where along them lanterns hang.
STRINGS = (
    ((128, -6), (172, 30), 16, (0.30, 0.66)),
    ((172, 44), (128, 66), 12, (0.36, 0.74)),
    ((-4, 22), (26, 4), 13, (0.46,)),
    ((212, 14), (246, 34), 14, (0.50,)),
    ((212, 92), (246, 78), 12, (0.52,)),
    ((-4, 84), (26, 98), 11, (0.46,)),
)
BOATS = (
    (142, 34, 0.6),
    (157.5, 44, -0.8),
    (226, 40, 0.7),
    (234.5, 30, -0.4),
    (12, 42, -0.5),
    (100, 36, 0.5),
    (58, 30, 0.5),
)  # x, height of the mast, which way it leans
GLASS = ("ffa030", "ff5a38", "ffc040", "ff4860", "ffb030", "ff7038", "ffc850", "ff5040")  # the lanterns' paper


def _sky(c):
    c.light[:] = blend(SKY, c.y) * 0.50
    for i in range(46):
        x, y = 240 * hashed(i, 0, 21), 70 * hashed(i, 1, 21)
        c.glow(x, y, 0.4, "dfe4ff", 0.7 * hashed(i, 2, 21) ** 2)
    drift = noise(c.x / 46, c.y / 7.5 + 0.02 * c.x, 22, 4)
    cloud = smooth(0.50, 0.78, drift) * smooth(40, 110, c.y) * smooth(205, 150, c.y)
    under = smooth(0.02, -0.05, noise(c.x / 46, (c.y + 2.5) / 7.5 + 0.02 * c.x, 22, 4) - drift)
    c.cover(cloud * 0.7, blend([(0, "5a2a66"), (1, "a2486c")], smooth(60, 170, c.y + 0 * c.x)) * 0.55)
    c.add(cloud * under * 0.5, "ff8a50")


def _house(c, x, foot, width, height, body, roof, seed, lit):
    """A gabled house with rows of windows; `lit` is the share of them with a light on."""
    peak = foot - height - 0.55 * width
    walls = polygon(
        c.x, c.y, [(x, foot), (x, foot - height), (x + width / 2, peak), (x + width, foot - height), (x + width, foot)]
    )
    mask = c.edge(walls, 0.2)
    shade = 0.75 + 0.35 * (c.x - x) / width
    c.cover(mask, colour(body) * shade[..., None])
    for side in (-1, 1):
        eaves = (x + width / 2 + side * (width / 2 + 1), foot - height + 0.9)
        c.cover(
            c.edge(stroke(c.x, c.y, [(x + width / 2, peak - 0.6), eaves]) - 0.9, 0.3),
            colour(roof) * (1.5 if side > 0 else 0.8),
        )
    columns, floors = max(int(width / 4.2), 1), max(int(height / 6.5), 1)
    for floor in range(floors):
        for column in range(columns):
            wx = x + (column + 0.5) * width / columns
            wy = foot - 3.6 - floor * 6.3
            pane = c.edge(np.maximum(np.abs(c.x - wx) - 0.95, np.abs(c.y - wy) - 1.35), 0.2)
            if hashed(column, floor, seed) < lit:
                warm = blend([(0, "ff9a38"), (0.6, "ffc25c"), (1, "fff0b0")], np.array(hashed(column, floor, seed + 1)))
                c.cover(pane, warm * (1.3 + 1.2 * hashed(column, floor, seed + 2)))
                c.glow(wx, wy, 2.6, "ff8a30", 0.13)
            else:
                c.cover(pane, colour("2a2440") * 0.8)


def _town(c):
    """Three terraces of houses, the far ones paler in the haze, climbing toward both sides."""
    rows = (
        (206, 10, 9, 14, ("8a4a6a", "96506a", "7c4468"), "4a2c58", 0.35, 30),
        (213, 13, 12, 17, ("5c345c", "6a3a58", "523058"), "34224c", 0.55, 31),
        (QUAY + 0.5, 16, 15, 21, ("3a2444", "46283e", "30203e"), "1e1634", 0.75, 32),
    )
    for foot, width, low, high, bodies, roof, lit, seed in rows:
        x, index = -8.0, 0
        while x < 244:
            wide = width * (0.8 + 0.45 * hashed(index, 0, seed))
            climb = 16 * smooth(40, 0, x) + 20 * smooth(196, 240, x)
            tall = low + (high - low) * hashed(index, 1, seed) + climb
            if not 139 < x + wide / 2 < 163 or seed == 30:
                _house(c, x, foot, wide, tall, bodies[index % 3], roof, seed * 100 + index, lit)
            x += wide + 0.5
            index += 1


def _lighthouse(c, x, foot, top):
    """A striped tower on the mole, its lamp sweeping over the bay."""
    for angle, power in ((-0.10, 0.75), (np.pi + 0.16, 0.6)):
        along = (c.x - x) * np.cos(angle) + (c.y - top - 3) * np.sin(angle)
        across = -(c.x - x) * np.sin(angle) + (c.y - top - 3) * np.cos(angle)
        spread = 1.2 + 0.10 * np.maximum(along, 0)
        beam = (along > 0) * np.exp(-((across / spread) ** 2)) * np.exp(-np.maximum(along, 0) / 95) * power
        c.add(beam * 1.1, "ffe2a0")
    half = 3.1 + 2.6 * (c.y - top - 8) / (foot - top - 8)
    tower = smooth(0.25, -0.25, np.abs(c.x - x) - half) * ((c.y > top + 8) & (c.y < foot))
    stripe = smooth(-0.25, 0.25, np.sin((c.y - top - 8) / (foot - top - 8) * np.pi * 5.0))
    across = (c.x - x) / half
    rim = 0.30 + 0.75 * smooth(-1.0, 0.9, across) ** 1.5
    paint = blend([(0, "f4dcc8"), (1, "a02036")], stripe) * rim[..., None] * 0.7
    c.cover(tower, paint)
    c.cover(c.edge(np.maximum(np.abs(c.x - x) - 5.0, np.abs(c.y - top - 7.4) - 0.9)), "1a1430")
    c.cover(c.edge(np.maximum(np.abs(c.x - x) - 2.9, np.abs(c.y - top - 3.4) - 3.2)), colour("ffefc0") * 2.6)
    for bar in (-2.6, 0, 2.6):
        c.cover(c.edge(np.maximum(np.abs(c.x - x - bar) - 0.3, np.abs(c.y - top - 3.4) - 3.2)) * 0.8, "2a1a30")
    c.cover(c.edge(polygon(c.x, c.y, [(x - 4.2, top), (x, top - 5), (x + 4.2, top)])), "2a1a3a")
    c.glow(x, top + 3.4, 5, "ffc870", 1.1)
    c.glow(x, top + 3.4, 15, "ff9a50", 0.26)


def _boats(c):
    for x, mast, lean in BOATS:
        hull = polygon(c.x, c.y, [(x - 7, 221.4), (x + 7.5, 221), (x + 5.4, 225.2), (x - 5.2, 225.2)])
        c.cover(c.edge(hull), "1c1430")
        c.cover(c.edge(np.maximum(np.abs(c.x - x) - 7, np.abs(c.y - 221.6) - 0.35)), "c06a58")
        tip = (x + lean * 2, 222 - mast)
        c.cover(c.edge(stroke(c.x, c.y, [(x, 222), tip]) - 0.38, 0.3), "1c1430")
        for end in (-6.4, 6.6):
            c.cover(0.45 * c.edge(stroke(c.x, c.y, [tip, (x + end, 221)]) - 0.14, 0.3), "1c1430")
        c.glow(*tip, 0.7, "ffe0a0", 1.6)
        c.glow(*tip, 2.4, "ffb060", 0.3)


def _water(c):
    """The bay, with the lights of the town drawn out toward us."""
    below = c.y[QUAY * c.n :] - QUAY
    ripple = noise(c.x / (4 + below * 0.5), below / (0.7 + below * 0.04), 24, 3) - 0.5
    c.reflect(QUAY, np.linspace(0.9, 4.2, 9), ripple, 2 + below * 0.9, 2.2 + below * 0.1)
    water = c.light[QUAY * c.n :]
    water *= (1.25 * np.exp(-below / 60))[..., None] * np.array([0.80, 0.72, 1.05])
    water += colour("0c0a26") * 0.5
    glint = (
        smooth(0.66, 0.80, noise(c.x / 7, c.y / 1.1, 25, 3)) * smooth(QUAY + 2, QUAY + 8, c.y) * smooth(268, 225, c.y)
    )
    c.add(glint * 0.16, "ffb070")


def _lantern(c, x, y, size, glass):
    """A paper lantern: a ribbed glowing globe with dark caps, and the light it sheds."""
    c.glow(x, y, size * 2.6, glass, 0.24)
    dx, dy = (c.x - x) / size, (c.y - y) / (size * 1.06)
    radius = np.sqrt(dx * dx + dy * dy)
    globe = smooth(1.06, 0.94, radius)
    heart = np.exp(-((dx * 1.5) ** 2 + ((dy - 0.25) * 1.5) ** 2))
    rim = 0.42 + 0.58 * smooth(1.1, 0.2, radius)
    ribs = 1 - 0.30 * smooth(0.6, 1.0, np.cos(dy * 8.0) ** 2)
    c.cover(globe, (colour(glass) * 1.5 * rim[..., None] + heart[..., None] * colour("ffe39a") * 1.3) * ribs[..., None])
    for cap, half in ((-1.02, 0.45), (1.02, 0.40)):
        c.cover(
            c.edge(np.maximum(np.abs(c.x - x) - half * size, np.abs(c.y - y - cap * size * 1.03) - 0.55), 0.3), "2a1230"
        )
    c.cover(0.9 * c.edge(np.maximum(np.abs(c.x - x) - 0.3, np.abs(c.y - y - size * 1.5) - size * 0.35), 0.3), glass)


def _strings(c):
    number = 0
    for (ax, ay), (bx, by), sag, places in STRINGS:
        t = np.linspace(0, 1, 25)
        rope = list(zip(ax + (bx - ax) * t, ay + (by - ay) * t + 4 * sag * t * (1 - t)))
        c.cover(c.edge(stroke(c.x, c.y, rope) - 0.42, 0.3), "0c0822")
        for place in places:
            x, y = ax + (bx - ax) * place, ay + (by - ay) * place + 4 * sag * place * (1 - place)
            _lantern(c, x, y + 6.3, 4.6 + 0.8 * hashed(number, 0, 27), GLASS[number % len(GLASS)])
            number += 1


def harbour():
    c = Canvas(240, 268)
    _sky(c)
    hill = 168 - 14 * smooth(60, 0, c.x) - 16 * smooth(180, 240, c.x) + 6 * noise(c.x / 30, 0.5, 26, 3)
    c.cover(smooth(-0.5, 0.5, c.y - hill) * 0.75, colour("9a4c78") * 0.6)
    _town(c)
    c.cover(c.edge(polygon(c.x, c.y, [(136, 222), (139, 213), (160, 213), (164, 222)])), "1a1230")
    _lighthouse(c, 149.5, 213.5, 112)
    _water(c)
    _boats(c)
    _strings(c)
    c.bloom(3, 0.9, 0.3)
    return c.finished(), np.array([0.85, 0.72, 1.7])
