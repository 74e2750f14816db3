#!/usr/bin/python3
"""Rebuilds the icons that the desktop shows where 128 pixels are too many, byte for byte, into this folder (or the
given one). 128 by 128 is resources/glimra_128.png itself."""
import argparse
import pathlib
import sys

import numpy as np

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parents[1] / "resources/artwork"))
from files import write_png  # noqa: E402
from icon import icon  # noqa: E402


def shrunk(rgba, by):
    """Every `by` by `by` pixels made one, each counted as much as it is opaque."""
    size = rgba.shape[0] // by
    cover = rgba[:, :, 3:].astype(np.int64)
    blocks = (size, by, size, by, -1)
    total = cover.reshape(blocks).sum(axis=(1, 3))
    light = (rgba[:, :, :3] * cover).reshape(blocks).sum(axis=(1, 3))
    colour = (light + total // 2) // np.maximum(total, 1)
    alpha = (total + by * by // 2) // (by * by)
    return np.concatenate([colour, alpha], axis=2).astype(np.uint8)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", nargs="?", type=pathlib.Path, default=HERE)
    folder = parser.parse_args().folder
    for size in (16, 32):  # drawn for their size, as in glimra.ico
        write_png(folder / f"{size}.png", icon(size))
    for size, by in ((48, 4), (64, 2)):
        write_png(folder / f"{size}.png", shrunk(icon(size * by), by))


if __name__ == "__main__":
    main()
