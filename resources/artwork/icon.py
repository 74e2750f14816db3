"""The program's icon in its three sizes: the emblem before a night sky."""
import numpy as np

from blocks import GOLD, TEE, piece
from canvas import Canvas, blend, colour, noise, smooth
from quantize import displayable, to_bytes


def icon(size):
    """The icon as red, green, blue, alpha bytes, `size` by `size`; in the small ones each pixel is opaque or clear."""
    c = Canvas(size, size, 6 if size > 64 else 8)
    u, v = c.x / size, c.y / size
    c.light[:] = blend([(0, "060a34"), (0.6, "0a2468"), (1, "084a70")], v + 0 * u) * 0.9
    foot = 0.80 - 0.30 * u + 0.05 * np.sin(9 * u)
    rays = 0.6 + 0.6 * noise(u * 9, v * 0.7, 121, 2)
    ribbon = smooth(foot + 0.07, foot - 0.04, v) * np.exp(np.minimum(v - foot, 0) / 0.22) * rays
    c.light += ribbon[..., None] * blend([(0, "3a30c0"), (0.7, "18d898")], v + 0 * u) * 0.75
    if size > 16:
        c.glow(size * 0.5, size * 0.56, size * 0.22, "ff9020", 0.14)
    cell = {16: 4, 32: 8}.get(size, size * 0.245)
    left, top = (size - 3 * cell) / 2, size * 0.56 - cell
    if size <= 32:
        left, top = round(left), round(top)
    piece(c, left, top, cell, TEE, GOLD)
    c.sparkle(
        left + 2.72 * cell, top + 0.12 * cell, size * (0.26 if size > 16 else 0.2), "fffbe8", 3.0 if size > 16 else 1.6
    )
    corner = 0.22
    qx, qy = np.abs(u - 0.5) - 0.5 + corner, np.abs(v - 0.5) - 0.5 + corner
    distance = size * (np.hypot(np.maximum(qx, 0), np.maximum(qy, 0)) + np.minimum(np.maximum(qx, qy), 0) - corner)
    edge = smooth(-max(size / 40, 0.9), 0, distance) * smooth(1.2, 0.2, v)
    c.light += (edge * 0.22)[..., None] * colour("88c0ff")
    n = c.n
    cover = smooth(0.5 / n, -0.5 / n, distance).reshape(size, n, size, n).mean(axis=(1, 3))
    rgba = np.zeros((size, size, 4), dtype=np.uint8)
    shown = (to_bytes(c.finished()) + 8) // 16
    rgba[:, :, :3] = shown if size > 64 else displayable(shown)
    rgba[:, :, 3] = np.floor(255 * cover + 0.5) if size > 64 else np.where(cover >= 0.5, 255, 0)
    rgba[rgba[:, :, 3] == 0] = 0
    return rgba
