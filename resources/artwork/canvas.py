"""A canvas of linear light, drawn at three times the size and averaged down, and what to draw on it with.

Coordinates are those of the finished picture, y downward, whatever the oversampling. Colours are "rrggbb".
Every random choice comes from an integer hash, so a picture is the same on every machine.
"""
import numpy as np

OVERSAMPLING = 3


def colour(code):
    """The linear light of an sRGB colour "rrggbb"."""
    c = np.array([int(code[i : i + 2], 16) for i in (0, 2, 4)]) / 255
    return np.where(c <= 0.04045, c / 12.92, ((c + 0.055) / 1.055) ** 2.4)


def smooth(low, high, value):
    """0 below `low`, 1 above `high`, a smooth step between (either way round)."""
    t = np.clip((value - low) / (high - low), 0.0, 1.0)
    return t * t * (3 - 2 * t)


def blend(stops, value):
    """A colour gradient: `stops` is a list of (position, "rrggbb"), `value` an array."""
    positions = [position for position, _ in stops]
    lights = np.array([colour(code) for _, code in stops])
    return np.stack([np.interp(value, positions, lights[:, i]) for i in range(3)], axis=-1)


def hashed(x, y, seed):
    """A number from 0 to 1 that depends only on the integers x, y (arrays or numbers) and the seed."""
    mixed = np.asarray(x, dtype=np.int64) * 374761393 + np.asarray(y, dtype=np.int64) * 668265263 + seed * 1442695041
    h = np.atleast_1d(mixed & 0xFFFFFFFF).astype(np.uint64)
    for shift, factor in ((15, 2246822519), (13, 3266489917), (16, 668265263)):
        h = ((h ^ (h >> np.uint64(shift))) * np.uint64(factor)) & np.uint64(0xFFFFFFFF)
    return ((h >> np.uint64(8)) / 16777216.0).reshape(mixed.shape)


def noise(x, y, seed, octaves=4, gain=0.5):
    """Smooth noise from 0 to 1 with one hill per unit of x and y in its first octave."""
    total, weight, scale = 0.0, 1.0, 1.0
    norm = 0.0
    for octave in range(octaves):
        total = total + weight * _lattice(x * scale, y * scale, seed + 31 * octave)
        norm += weight
        weight *= gain
        scale *= 2.03
    return total / norm


def _lattice(x, y, seed):
    x, y = np.broadcast_arrays(np.asarray(x, dtype=np.float64), np.asarray(y, dtype=np.float64))
    left, top = np.floor(x), np.floor(y)
    u, v = x - left, y - top
    u, v = u * u * (3 - 2 * u), v * v * (3 - 2 * v)
    left, top = left.astype(np.int64), top.astype(np.int64)
    upper = hashed(left, top, seed) * (1 - u) + hashed(left + 1, top, seed) * u
    lower = hashed(left, top + 1, seed) * (1 - u) + hashed(left + 1, top + 1, seed) * u
    return upper * (1 - v) + lower * v


def polygon(x, y, points):
    """The signed distance of every (x, y) to a closed polygon, negative inside."""
    best = np.full(np.broadcast(x, y).shape, 1e18)
    inside = np.zeros(best.shape, dtype=bool)
    for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
        dx, dy = bx - ax, by - ay
        t = np.clip(((x - ax) * dx + (y - ay) * dy) / max(dx * dx + dy * dy, 1e-12), 0, 1)
        best = np.minimum(best, (x - ax - t * dx) ** 2 + (y - ay - t * dy) ** 2)
        if ay != by:
            crosses = (y >= min(ay, by)) & (y < max(ay, by)) & (x < ax + (y - ay) * dx / dy)
            inside ^= crosses
    return np.where(inside, -1.0, 1.0) * np.sqrt(best)


def stroke(x, y, points):
    """The distance of every (x, y) to a line through `points`."""
    best = np.full(np.broadcast(x, y).shape, 1e18)
    for (ax, ay), (bx, by) in zip(points, points[1:]):
        dx, dy = bx - ax, by - ay
        t = np.clip(((x - ax) * dx + (y - ay) * dy) / max(dx * dx + dy * dy, 1e-12), 0, 1)
        best = np.minimum(best, (x - ax - t * dx) ** 2 + (y - ay - t * dy) ** 2)
    return np.sqrt(best)


class Canvas:
    """`light` is (height, width, 3) of linear light; x is a row and y a column of pixel positions."""

    def __init__(self, width, height, oversampling=OVERSAMPLING):
        self.width, self.height, self.n = width, height, oversampling
        self.x = ((np.arange(width * self.n) + 0.5) / self.n)[None, :]
        self.y = ((np.arange(height * self.n) + 0.5) / self.n)[:, None]
        self.light = np.zeros((height * self.n, width * self.n, 3))

    def add(self, mask, tint):
        """Adds light: `mask` times the colour (a code or linear light)."""
        tint = colour(tint) if isinstance(tint, str) else tint
        self.light += mask[..., None] * tint

    def cover(self, mask, tint):
        """Paints over: where `mask` is 1 the colour replaces what is there."""
        tint = colour(tint) if isinstance(tint, str) else tint
        self.light += mask[..., None] * (tint - self.light)

    def edge(self, distance, soft=0.35):
        """The anti-aliased inside of a signed distance."""
        return smooth(soft, -soft, distance)

    def glow(self, cx, cy, radius, tint, power=1.0):
        """A round glow that falls off smoothly and ends at four radii."""
        tint = colour(tint) if isinstance(tint, str) else tint
        x0, x1 = np.searchsorted(self.x[0], (cx - 4 * radius, cx + 4 * radius))
        y0, y1 = np.searchsorted(self.y[:, 0], (cy - 4 * radius, cy + 4 * radius))
        square = (self.x[:, x0:x1] - cx) ** 2 + (self.y[y0:y1] - cy) ** 2
        fall = np.maximum(np.exp(-square / (2 * radius * radius)) - 0.000336, 0)
        self.light[y0:y1, x0:x1] += power * fall[..., None] * tint

    def sparkle(self, cx, cy, size, tint, power=1.0):
        """A four-pointed gleam: two thin crossed rays and a bright heart."""
        tint = colour(tint) if isinstance(tint, str) else tint
        dx, dy = np.abs(self.x - cx), np.abs(self.y - cy)
        for along, across in ((dx, dy), (dy, dx)):
            ray = np.maximum(1 - along / size, 0) ** 2 * np.exp(
                -((across / (0.25 + 0.35 * np.maximum(1 - along / size, 0))) ** 2)
            )
            self.light += power * ray[..., None] * tint
        self.glow(cx, cy, size * 0.14, tint, power)

    def reflect(self, shore, stretches, ripple, tall, wide):
        """Mirrors what stands above the row `shore` into the rows below: a mean of images stretched by each factor.

        `ripple` (-0.5 to 0.5 for every sample below the shore) shifts it by `tall` rows and `wide` columns.
        """
        edge = int(shore * self.n)
        count, width = self.light.shape[0] - edge, self.light.shape[1]
        below = (np.arange(count) / self.n)[:, None]
        sideways = np.clip(np.arange(width)[None, :] + (ripple * wide * self.n).astype(np.int64), 0, width - 1)
        image = np.zeros((count, width, 3))
        for stretch in stretches:
            rise = below * stretch + ripple * tall
            image += self.light[np.clip(edge - 1 - (rise * self.n).astype(np.int64), 0, edge - 1), sideways]
        self.light[edge:] = image / len(stretches)

    def bloom(self, radius, threshold, amount):
        """Lets what is brighter than `threshold` shine into its surroundings."""
        bright = np.maximum(self.light - threshold, 0)
        self.light += amount * blurred(bright, radius * self.n)

    def finished(self):
        """The picture at its own size, tone-mapped so that strong light turns white softly: 0 to 1."""
        n = self.n
        shape = (self.height, n, self.width, n, 3)
        return 1 - np.exp(-1.15 * self.light.reshape(shape).mean(axis=(1, 3)))


def blurred(picture, radius):
    """Three box blurs, nearly a Gaussian of that radius (in samples)."""
    size = max(int(radius), 1)
    for axis in (0, 1) * 3:
        pad = [(0, 0)] * 3
        pad[axis] = (size + 1, size)
        summed = np.cumsum(np.pad(picture, pad, mode="edge"), axis=axis)
        ahead = np.take(summed, range(2 * size + 1, summed.shape[axis]), axis=axis)
        behind = np.take(summed, range(0, summed.shape[axis] - 2 * size - 1), axis=axis)
        picture = (ahead - behind) / (2 * size + 1)
    return picture
