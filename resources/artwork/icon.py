"""The program's icon in its three sizes."""
import numpy as np

from tiles import BLOCKS, tile


def icon(size):
    """The icon as red, green, blue, alpha bytes, `size` by `size`."""
    rgba = np.zeros((size, size, 4), dtype=np.uint8)
    rgba[2:-2, 2:-2] = (20, 28, 72, 255)
    return rgba
