"""Turns a rendered picture into a palette of at most 256 display colours and a dithered index per pixel.

The display keeps 5 bits of red, 6 of green and 5 of blue, so the palette holds only colours it can show: the
picture is seen as it was designed. After rounding, arithmetic is on integers, so every machine makes the same bytes.
"""
import numpy as np

WEIGHTS = np.array([3, 6, 2], dtype=np.int64)  # how visible an error in red, green, blue is
STEPS = 12  # colours that a pixel's dithering mixes


def to_bytes(light):
    """Linear light 0 to 1 as sRGB in 16ths of a byte step (int64, 0 to 4080)."""
    light = np.clip(light, 0.0, 1.0)
    srgb = np.where(light <= 0.0031308, 12.92 * light, 1.055 * np.power(light, 1 / 2.4) - 0.055)
    return np.floor(srgb * 4080 + 0.5).astype(np.int64)


def displayable(rgb):
    """The display's nearest colours to `rgb` (0 to 255), spread to eight bits the way the display does."""
    rgb = np.clip(np.asarray(rgb, dtype=np.int64), 0, 255)
    five = (rgb * 31 + 127) // 255
    six = (rgb * 63 + 127) // 255
    spread = (five << 3) | (five >> 2)
    spread[..., 1] = ((six << 2) | (six >> 4))[..., 1]
    return spread


def luminance(rgb):
    """WCAG relative luminance of sRGB bytes."""
    c = np.asarray(rgb, dtype=np.float64) / 255
    linear = np.where(c <= 0.04045, c / 12.92, ((c + 0.055) / 1.055) ** 2.4)
    return linear @ np.array([0.2126, 0.7152, 0.0722])


def _threshold_map(size=32):
    """Void and cluster: the ranks 0 to size*size-1, placed so that any prefix is spread evenly, without pattern."""
    offsets = (np.arange(size) + size // 2) % size - size // 2
    square = offsets[:, None] ** 2 + offsets[None, :] ** 2
    kernel = np.floor(np.exp(-square / 4.5) * 65536 + 0.5).astype(np.int64)
    field = np.zeros((size, size), dtype=np.int64)
    ranks = np.zeros((size, size), dtype=np.int64)
    taken = np.zeros((size, size), dtype=bool)
    for rank in range(size * size):
        emptiest = np.where(taken, np.int64(1) << 60, field)
        y, x = np.unravel_index(np.argmin(emptiest), emptiest.shape)
        taken[y, x] = True
        ranks[y, x] = rank
        field += np.roll(kernel, (y, x), axis=(0, 1))
    return ranks


THRESHOLDS = _threshold_map()


def _nearest(colours, palette):
    """The index of the palette colour nearest to each of `colours` (n, 3), both in 16ths."""
    found = np.empty(len(colours), dtype=np.int64)
    for at in range(0, len(colours), 4096):
        part = colours[at : at + 4096, None, :] - palette[None, :, :]
        found[at : at + 4096] = np.argmin((part * part * WEIGHTS).sum(axis=2), axis=1)
    return found


def choose_palette(picture, fixed, count=256, rounds=12):
    """At most `count` display colours for `picture` (16ths of byte steps); `fixed` colours come first."""
    shown = displayable((picture.reshape(-1, 3) + 8) // 16)
    unique, amounts = np.unique(shown, axis=0, return_counts=True)
    weights = np.floor(np.sqrt(amounts.astype(np.float64)) * 16).astype(np.int64)
    centres = _split_boxes(unique, weights, count - len(fixed))
    for _ in range(rounds):
        owner = _nearest(unique * 16, centres * 16)
        totals = np.bincount(owner, weights, len(centres)).astype(np.int64)
        sums = np.stack([np.bincount(owner, weights * unique[:, i], len(centres)) for i in range(3)], axis=1)
        kept = totals > 0
        centres = sums[kept].astype(np.int64) // totals[kept, None]
    centres = displayable(centres)
    palette = [tuple(colour) for colour in np.asarray(fixed).tolist()]
    palette += [colour for colour in map(tuple, centres.tolist()) if colour not in palette]
    return np.array(list(dict.fromkeys(palette)), dtype=np.int64)[:count]


def _split_boxes(colours, weights, count):
    """Cuts the colours into `count` boxes, always the one with the greatest weighted spread; their means."""
    boxes = [np.arange(len(colours))]

    def spread(box):
        range_ = (colours[box].max(axis=0) - colours[box].min(axis=0)) ** 2 * WEIGHTS
        return int(range_.max()) * int(weights[box].sum()), int(range_.argmax())

    measured = [spread(boxes[0])]
    while len(boxes) < count:
        widest = max(range(len(boxes)), key=lambda i: measured[i][0])
        if measured[widest][0] == 0:
            break
        box, axis = boxes.pop(widest), measured.pop(widest)[1]
        order = box[np.argsort(colours[box, axis], kind="stable")]
        middle = int(np.searchsorted(np.cumsum(weights[order]), weights[order].sum() / 2))
        middle = min(max(middle, 1), len(order) - 1)
        for half in (order[:middle], order[middle:]):
            boxes.append(half)
            measured.append(spread(half))
    means = [(colours[b] * weights[b, None]).sum(axis=0) // weights[b].sum() for b in boxes]
    return np.array(means, dtype=np.int64)


def dither(picture, palette, where=None, allowed=None):
    """Indices into `palette` for `picture` (16ths): each pixel mixes STEPS colours whose mean is its own.

    `where` (bool per pixel) picks the pixels to do, `allowed` (bool per palette colour) the colours to use, which
    ensures that a dark region stays dark. Both default to all. The result is one index per picked pixel.
    """
    height, width, _ = picture.shape
    where = np.ones((height, width), dtype=bool) if where is None else where
    usable = np.arange(len(palette)) if allowed is None else np.flatnonzero(allowed)
    choices = palette[usable] * 16
    target = picture[where]
    error = np.zeros_like(target)
    mixes = np.empty((STEPS, len(target)), dtype=np.int64)
    for step in range(STEPS):
        mixes[step] = _nearest(target + error * 5 // 8, choices)  # all of the error would mix in far colours
        error += target - choices[mixes[step]]
    brightness = (choices * WEIGHTS).sum(axis=1)[mixes]
    mixes = np.take_along_axis(mixes, np.argsort(brightness, axis=0, kind="stable"), axis=0)
    tiles = (-(-height // THRESHOLDS.shape[0]), -(-width // THRESHOLDS.shape[1]))
    threshold = np.tile(THRESHOLDS, tiles)[:height, :width][where]
    pick = threshold * STEPS // THRESHOLDS.size
    return usable[np.take_along_axis(mixes, pick[None, :], axis=0)[0]].astype(np.uint8)


def paletted(light, fixed):
    """A finished picture of linear light as indices and palette; the palette begins with the colours `fixed`."""
    picture = to_bytes(light)
    palette = choose_palette(picture, displayable(fixed))
    return dither(picture, palette).reshape(picture.shape[:2]), palette
