"""Backdrop 2: the deep sea, lit by the creatures that live there."""
import numpy as np

from canvas import Canvas, blend, colour, hashed, noise, smooth, stroke

SEA = [(0, "1484a0"), (28, "0e6290"), (80, "0a3f74"), (150, "072650"), (215, "051634"), (268, "030b1e")]
# What grows on the floor: x, height, colour, seed.
CORALS = ((9, 8.5, "ff7ad0", 3), (152, 7.5, "ffa860", 5), (229, 9, "ff6aa8", 8), (190, 6.5, "7affd0", 9))
WEEDS = (
    (19, 44, "4affc0", 1),
    (2, 60, "58ffd8", 2),
    (238, 66, "50ffd0", 3),
    (221, 40, "48f0c8", 5),
    (138, 32, "58ffc8", 4),
    (163, 26, "4affc0", 6),
)


def _shafts(c):
    """Daylight from far above, broken into shafts by the waves."""
    angle = (c.x - 96) / (c.y + 90)
    rays = noise(angle * 7.5, 0.5, 41, 4)
    power = smooth(0.46, 0.78, rays) * np.exp(-c.y / 62)
    c.add(power * 0.30, "7fe8ff")


def _jellyfish(c, x, y, size, bell, glow, seed, power=1.0):
    """A bell of glass with a bright rim and a four-leaved heart, over frilled arms and long threads."""
    c.glow(x, y + 0.1 * size, size * 1.5, glow, 0.22 * power)
    top, left, right, bottom = _window(c, x, y, size)
    px, py = c.x[:, left:right], c.y[top:bottom]
    light = c.light[top:bottom, left:right]
    lean = 0.16 * (hashed(seed, 0, 43) - 0.5)
    for thread in range(9):
        light += (_thread(px - x, py - y, size, thread, lean, seed) * power)[..., None] * colour(glow)
    for arm in range(4):
        light += (_arm(px - x, py - y, size, arm, lean, seed) * power)[..., None] * colour(bell)
    inside, body, heart, shine = _bell((px - x) / size, (py - y) / size)
    light *= 1 - 0.35 * inside[..., None]
    for part, tint in ((body, bell), (heart, glow), (shine, "f0ffff")):
        light += (inside * part * power)[..., None] * colour(tint)


def _thread(dx, dy, size, thread, lean, seed):
    """One of nine beaded threads that trail from the hem and fade."""
    t = (thread + 0.5) / 9 * 2 - 1
    down = (dy - 0.30 * size) / (size * (2.6 + 1.9 * hashed(thread, seed, 44)))
    wave = 0.16 * np.sin(down * (5 + 2 * hashed(thread, seed, 45)) + seed + thread * 1.1)
    centre = t * 0.80 * size * (1 - 0.25 * down) + size * (wave + lean * 3 * down)
    mask = np.exp(-(((dx - centre) / (0.30 + 0.25 * (1 - down))) ** 2)) * smooth(0, 0.05, down)
    beads = 0.55 + 0.45 * np.sin(down * 40 + thread * 2) ** 2
    return mask * beads * np.maximum(1 - down, 0) ** 1.4 * 0.75


def _arm(dx, dy, size, arm, lean, seed):
    """One of four frilled arms below the bell."""
    down = (dy - 0.1 * size) / (size * (1.5 + 0.5 * hashed(arm, seed, 46)))
    wave = 0.12 * np.sin(down * 9 + arm * 1.9 + seed)
    centre = (arm - 1.5) / 1.5 * 0.30 * size + size * (wave + lean * 1.6 * down)
    frill = (0.10 + 0.05 * np.sin(down * 34 + arm)) * size * np.maximum(1.1 - down, 0)
    mask = np.exp(-(((dx - centre) / np.maximum(frill, 0.1)) ** 2))
    return 0.55 * mask * smooth(0, 0.1, down) * smooth(1, 0.6, down)


def _bell(u, v):
    """The bell in units of its size: where it is, and the light of its glass, its heart and its shine."""
    hem = 0.26 + 0.05 * np.cos(u * 19) - 0.10 * u * u
    dome = np.sqrt(u * u + np.where(v < 0.1, (v - 0.1) / 0.82, 0) ** 2)
    inside = smooth(1.02, 0.95, dome) * smooth(hem + 0.03, hem - 0.03, v)
    rim = smooth(0.55, 1.0, dome) ** 1.6 + 0.9 * smooth(0.20, 0.02, np.abs(v - hem)) * smooth(1.0, 0.9, np.abs(u))
    ribs = 0.5 + 0.5 * np.cos(np.arctan2(u, 0.9 - v) * 26)
    heart = 0
    for hx, hy in ((-0.22, 0), (0.22, 0), (-0.077, 0.078), (0.077, 0.078)):
        heart = heart + np.exp(-(((u - hx) / 0.13) ** 2 + ((v + 0.12 - hy) / 0.11) ** 2))
    shine = np.exp(-(((u + 0.38) / 0.20) ** 2 + ((v + 0.32) / 0.16) ** 2))
    return inside, 0.16 + 0.10 * ribs + 0.75 * rim, 0.9 * heart, 0.8 * shine


def _window(c, x, y, size):
    """The samples that a jellyfish can reach: top, left, right, bottom."""
    left, right = np.searchsorted(c.x[0], (x - 2.2 * size, x + 2.2 * size))
    top, bottom = np.searchsorted(c.y[:, 0], (y - 1.2 * size, y + 5 * size))
    return top, left, right, bottom


def _lanternfish(c, x, y, size, heading, tint):
    """A dark little fish with a row of lights along its belly and one before its eye."""
    u, v = (c.x - x) / size * heading, (c.y - y) / size
    body = np.abs(v) - 0.36 * np.sqrt(np.maximum(1 - u * u, 0)) * (0.75 + 0.35 * u)
    tail = np.maximum(np.abs(v) - 0.10 + 0.42 * (u + 0.92), np.abs(u + 1.12) - 0.24)
    mask = np.maximum(smooth(0.05, -0.05, np.where(np.abs(u) < 1, body, 1)), smooth(0.06, -0.06, tail))
    shade = blend([(-0.3, "3a9ab0"), (0.05, "14506e"), (0.3, "2f8aa0")], v) * 0.9
    c.cover(mask, shade)
    for i in range(4):
        c.glow(x + heading * (-0.50 + 0.32 * i) * size, y + 0.17 * size, 0.45, tint, 1.5)
    c.glow(x + heading * 0.68 * size, y - 0.07 * size, 0.5, "ffffff", 1.4)
    c.glow(x, y + 0.1 * size, size * 0.9, tint, 0.14)


def _coral(c, x, foot, height, angle, tint, seed, depth=0):
    """A branching coral whose tips glow."""
    bend = angle + 0.35 * (hashed(seed, depth, 47) - 0.5)
    tip = (x + height * np.sin(bend), foot - height * np.cos(bend))
    thick = 0.5 + 0.50 * (4 - depth)
    left, right = np.searchsorted(c.x[0], (min(x, tip[0]) - 6, max(x, tip[0]) + 6))
    top, bottom = np.searchsorted(c.y[:, 0], (min(foot, tip[1]) - 6, max(foot, tip[1]) + 6))
    px, py = c.x[:, left:right], c.y[top:bottom]
    mask = smooth(thick / 2 + 0.3, thick / 2 - 0.3, stroke(px, py, [(x, foot), tip]))
    branch = colour(tint) * (0.05 + 0.06 * depth)
    region = c.light[top:bottom, left:right]
    region += mask[..., None] * (branch - region)
    if depth == 3:
        c.glow(*tip, 0.75, tint, 1.5)
        c.glow(*tip, 2.6, tint, 0.16)
        return
    for side in (-1, 1):
        _coral(
            c,
            *tip,
            height * (0.70 + 0.12 * hashed(seed, depth + 9 * side, 48)),
            bend + side * 0.48,
            tint,
            2 * seed + side + 1,
            depth + 1
        )


def _weed(c, x, foot, height, tint, seed):
    up = (foot - c.y) / height
    sway = 3.2 * np.sin(up * 3.4 + seed) * up
    half = 1.15 * np.maximum(1 - up, 0) ** 0.6
    mask = smooth(0.35, -0.35, np.abs(c.x - x - sway) - half) * ((up > 0) & (up < 1))
    c.cover(mask, blend([(0, "04202c"), (1, tint)], np.clip(up, 0, 1) + 0 * c.x) * 0.55)
    for i in range(5):
        at = 0.35 + 0.14 * i
        c.glow(x + 3.2 * np.sin(at * 3.4 + seed) * at, foot - at * height, 0.55, tint, 0.9)


def _anemone(c, x, foot, size, tint, seed):
    for i in range(11):
        angle = (i - 5) * 0.21
        t = np.linspace(0, 1, 7)
        px = x + size * np.sin(angle) * t + 1.1 * np.sin(3 * t + i + seed) * t
        py = foot - size * np.cos(angle) * t * (0.8 + 0.3 * hashed(i, seed, 49))
        arm = np.exp(-((stroke(c.x, c.y, list(zip(px, py))) / 0.55) ** 2))
        c.add(arm * 0.38, tint)
        c.glow(px[-1], py[-1], 0.7, "fff0ff", 0.9)
    c.glow(x, foot - size * 0.5, size * 0.9, tint, 0.30)


def _floor(c):
    back = 236 - 12 * noise(c.x / 30, 0.5, 51, 4) - 6 * smooth(30, 0, c.x) - 8 * smooth(206, 240, c.x)
    c.cover(smooth(-0.6, 0.6, c.y - back) * 0.9, "062038")
    for x, height, tint, seed in CORALS:
        _coral(c, x, 240, height, 0.05, tint, seed)
    for x, height, tint, seed in WEEDS:
        _weed(c, x, 242, height, tint, seed)
    for x, size, tint, seed in ((48, 8, "c86aff", 1), (97, 6.5, "68b8ff", 2), (205, 8, "b070ff", 3)):
        _anemone(c, x, 244, size * 1.25, tint, seed)
    front = 250 - 9 * noise(c.x / 24, 0.5, 52, 4)
    depth = np.maximum(c.y - front, 0)
    sand = 0.6 + 0.8 * noise(c.x / 9, depth / 2.2, 54, 3) * smooth(30, 0, depth)
    lit = blend([(0, "1c5a74"), (4, "0c3450"), (22, "061a30")], depth) * sand[..., None]
    c.cover(smooth(-0.6, 0.6, c.y - front), lit)


def _plankton(c):
    for i in range(260):
        x, y = 240 * hashed(i, 0, 53), 244 * hashed(i, 1, 53)
        power = 0.10 + 0.9 * hashed(i, 2, 53) ** 6
        tint = ("9ffff0", "8ad8ff", "d0ffb0", "ffc8f4")[int(4 * hashed(i, 3, 53))]
        c.glow(x, y, 0.42 + 0.2 * power, tint, power * 1.1)
        if power > 0.55:
            c.glow(x, y, 2.2, tint, 0.16 * power)


def _bubbles(c, x, low, high, seed):
    for i in range(9):
        rise = (i + hashed(i, 0, seed)) / 9
        r = 0.7 + 1.2 * hashed(i, 1, seed) * (0.4 + 0.6 * rise)
        bx, by = x + 3.5 * np.sin(rise * 9 + seed), low - (low - high) * rise
        ring = np.abs(np.sqrt((c.x - bx) ** 2 + (c.y - by) ** 2) - r)
        c.add(smooth(0.5, 0.1, ring) * 0.35, "a8f0ff")
        c.glow(bx - r * 0.4, by - r * 0.4, 0.4, "ffffff", 0.9)


def deep():
    c = Canvas(240, 268)
    c.light[:] = blend(SEA, c.y) * 0.62
    drift = noise(c.x / 50, c.y / 38, 42, 4) - 0.5
    c.light *= (1 + 0.5 * drift)[..., None]
    _shafts(c)
    _plankton(c)
    _floor(c)
    _jellyfish(c, 78, 92, 30, "4a9ad0", "8a6aff", 7, 0.5)
    _jellyfish(c, 149, 44, 13, "ff8ad8", "ff5ab4", 1, 1.15)
    _jellyfish(c, 228.5, 96, 9.5, "6affff", "38c8ff", 2, 1.15)
    _jellyfish(c, 10.5, 128, 8.5, "c49aff", "9a6aff", 3, 1.15)
    _jellyfish(c, 9, 34, 5, "7affe0", "40e0d0", 4, 0.8)
    _jellyfish(c, 150, 152, 7, "ffd08a", "ff9a50", 5, 1.0)
    _lanternfish(c, 187, 170, 10.5, -1, "7affea")
    _lanternfish(c, 204, 177, 7, -1, "9aff9a")
    _bubbles(c, 158, 214, 120, 61)
    _bubbles(c, 226, 210, 150, 62)
    c.bloom(3, 0.55, 0.4)
    return c.finished(), np.array([0.50, 0.85, 1.7])
