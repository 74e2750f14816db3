"""Backdrop 0: northern lights over a mountain lake, with one warm window on the far shore."""
import numpy as np

from canvas import Canvas, blend, blurred, colour, hashed, noise, polygon, smooth

SHORE = 224  # the row where the lake begins
AURORA = [(0.0, "c8ffb0"), (0.08, "4dffa0"), (0.35, "12b48c"), (0.65, "3450b8"), (1.0, "7a2aa8")]
PEAKS = ((147, 132, 1.05), (236, 152, 0.95), (4, 150, 1.0), (196, 176, 0.8), (84, 166, 0.9))  # x, top, steepness


def _stars(c):
    for i in range(300):
        x, y = 240 * hashed(i, 0, 11), 190 * hashed(i, 1, 11) ** 1.2
        power = 0.05 + 0.9 * hashed(i, 2, 11) ** 9
        tint = blend([(0, "ffd9b0"), (0.5, "ffffff"), (1, "a8c8ff")], np.array(hashed(i, 3, 11)))
        c.glow(x, y, 0.36 + 0.22 * power, tint, power * (1 - (y / 210) ** 2) * 2.2)


def _curtain(c, path, height, power, seed):
    """One ribbon of light: `path` gives x and foot for a run of parameters; where it folds it shines brighter."""
    t = np.linspace(0, 1, 2400)
    x, foot = path(t)
    rays = 0.35 + 0.9 * noise(60 * t, 0.5, seed, 3) ** 2 + 0.5 * noise(9 * t, 3.5, seed + 1, 2) ** 3
    tall = height * (0.55 + 0.75 * noise(26 * t, 1.5, seed + 2, 3))
    power = power * smooth(0, 0.08, t) * smooth(1, 0.9, t)
    columns = np.floor((x + 2.5 * (hashed(np.arange(len(t)), 0, seed) - 0.5)) * c.n).astype(int)
    ribbon = np.zeros_like(c.light)
    for i in np.flatnonzero((columns >= 0) & (columns < ribbon.shape[1])):
        up = (foot[i] - c.y[:, 0]) / tall[i]
        profile = smooth(-0.03, 0.05, up) * np.exp(-2.6 * np.maximum(up, 0)) * smooth(1.6, 0.4, up)
        ribbon[:, columns[i]] += (power[i] * rays[i] * profile)[:, None] * blend(AURORA, up)
    c.light += blurred(ribbon, 2) + 0.5 * blurred(ribbon, 16)


def _aurora(c):
    def near(t):
        x = -30 + 300 * t + 26 * np.sin(9.5 * t + 1.0) + 7 * np.sin(31 * t)
        return x, 128 - 42 * t + 22 * np.sin(6.3 * t + 0.4) + 5 * np.sin(23 * t)

    def far(t):
        x = 290 - 320 * t + 30 * np.sin(8 * t + 2.2) + 8 * np.sin(27 * t)
        return x, 158 - 30 * np.sin(3.3 * t + 0.2) + 6 * np.sin(17 * t)

    _curtain(c, far, 74, 0.055, 40)
    _curtain(c, near, 140, 0.13, 50)


def _mountains(c):
    x, y = c.x, c.y
    rough = 13 * (noise(x / 22, 0.3, 60, 5) - 0.5)
    for top_x, top, steep in sorted(PEAKS, key=lambda peak: peak[1], reverse=True):
        ridge = (
            top
            + np.abs(x - top_x) * steep * (0.78 + 0.35 * noise(x / 17, top_x, 61, 3))
            + rough * smooth(0, 9, np.abs(x - top_x))
        )
        body = smooth(-0.4, 0.4, y - ridge)
        spine = top_x + (noise(y / 11, top_x, 62, 3) - 0.45) * 0.55 * (y - top)
        lit = smooth(2.2, -2.2, x - spine + 4 * (noise(x / 5, y / 5, 63, 3) - 0.5))
        gullies = noise((x + 0.6 * (y - top) * np.sign(x - top_x)) / 4.5, (y - top) / 24, 64, 3)
        snow = smooth(0.36, 0.56, gullies + 0.42 * smooth(30, 0, y - top) - 0.10)
        rock = blend([(0, "131f30"), (1, "2c4a58")], lit)
        ice = blend([(0, "31567c"), (1, "c9fff0")], lit)
        stone = rock + snow[..., None] * (ice - rock)
        haze = (0.15 + 0.65 * smooth(24, 88, y - top))[..., None]
        stone = stone * 0.55 + haze * (colour("123c4c") * 0.8 - stone * 0.55)
        c.light += body[..., None] * (stone - c.light)


def _firs(c, foot, low, high, step, tint, seed):
    """A row of firs standing on the line `foot`."""
    for i in range(int(260 / step)):
        x = -10 + step * (i + hashed(i, 0, seed))
        _fir(c, x, foot + 2, low + (high - low) * hashed(i, 1, seed) ** 1.6, tint, seed + i)


def _fir(c, x, foot, height, tint, seed):
    left, right = np.searchsorted(c.x[0], (x - height * 0.4, x + height * 0.4))
    above, below = np.searchsorted(c.y[:, 0], (foot - height - 1, foot + 1))
    px, py = c.x[:, left:right], c.y[above:below]
    down = (py - (foot - height)) / height
    tiers = 3 + height / 7
    saw = (down * tiers) % 1.0
    half = (
        height
        * (0.045 + 0.20 * down)
        * (0.55 + 0.6 * saw)
        * (0.85 + 0.3 * hashed(seed, np.floor(down * tiers).astype(int), 71))
    )
    mask = smooth(0.3, -0.3, np.abs(px - x) - half) * smooth(-0.02, 0.03, down)
    region = c.light[above:below, left:right]
    region += mask[..., None] * (colour(tint) - region)


def _cabin(c, x, foot):
    wall = polygon(c.x, c.y, [(x - 4.5, foot), (x - 4.5, foot - 4.5), (x + 4.5, foot - 4.5), (x + 4.5, foot)])
    roof = polygon(c.x, c.y, [(x - 6, foot - 4), (x, foot - 9), (x + 6, foot - 4)])
    c.cover(c.edge(wall), "1a1410")
    c.cover(c.edge(roof), "9cc8c8")
    for at in (x - 2.4, x + 1.9):
        pane = np.maximum(np.abs(c.x - at) - 0.9, np.abs(c.y - foot + 2.4) - 1.0)
        c.add(c.edge(pane), colour("ffb648") * 2.6)
    c.glow(x, foot - 2, 5, "ff8a20", 0.30)
    for i in range(16):
        up = i * 1.6
        c.glow(x + 3 + 0.10 * up + 1.2 * np.sin(up / 5), foot - 9 - up, 0.9 + up * 0.05, "7ab0a8", 0.11 * (1 - i / 16))


def _water(c):
    """The lake mirrors what stands above it, stretched and broken by ripples, and darkens toward us."""
    below = c.y[SHORE * c.n :] - SHORE
    ripple = noise(c.x / (5 + below * 0.7), below / (0.9 + below * 0.045), 80, 3) - 0.5
    c.reflect(SHORE, np.linspace(1.0, 3.6, 7), ripple, 1.5 + below * 1.1, 2 + below * 0.25)
    water = c.light[SHORE * c.n :]
    water *= (0.95 * np.exp(-below / 60))[..., None] * np.array([0.75, 0.95, 1.0])
    water += colour("04101c") * 0.6
    c.add(smooth(1.3, 0, np.abs(c.y - SHORE - 0.3)) * (0.05 + 0.12 * noise(c.x / 9, 0.5, 81, 2)), "a0ffe0")


def lake():
    c = Canvas(240, 268)
    c.light[:] = blend([(0, "050a1c"), (90, "081733"), (170, "0d3446"), (SHORE, "1a5a5c")], c.y) * 0.8
    _stars(c)
    _aurora(c)
    _mountains(c)
    _firs(c, 221, 4, 9, 2.4, "0c2a30", 70)
    _cabin(c, 150, SHORE - 0.5)
    _firs(c, SHORE - 1, 4, 15, 3.1, "04121a", 72)
    _water(c)
    for x, height, seed in ((7, 66, 90), (17, 38, 91), (-3, 50, 92), (231, 72, 93), (222, 40, 94), (240, 54, 95)):
        _fir(c, x, 246, height, "020a10", seed)
    bank = 243 + 30 * (np.minimum(c.x, 240 - c.x) / 60) ** 2 + 2 * noise(c.x / 5, 0.5, 96, 3)
    c.cover(smooth(-1, 1, c.y - bank), "020a10")
    c.bloom(3, 0.5, 0.35)
    return c.finished(), np.array([0.45, 0.9, 1.6])
