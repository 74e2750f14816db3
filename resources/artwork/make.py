#!/usr/bin/python3
"""Rebuilds every picture, icon and sound of the program, byte for byte, into resources/ (or the given folder)."""
import argparse
import pathlib

import numpy as np

from about import about
from files import write_bmp_24, write_bmp_8, write_ico, write_png, write_wav
from icon import icon
from layout import backdrop
from quantize import choose_palette, dither
from scene_deep import deep
from scene_harbour import harbour
from scene_lake import lake
from tiles import tile_sheet
from title import title
import sounds


def icon_image(size):
    """An icon as indices, palette and what is opaque; the rest is black, index 0."""
    rgba = icon(size)
    opaque = rgba[:, :, 3] > 0
    picture = rgba[:, :, :3].astype(np.int64) * 16
    palette = choose_palette(picture[opaque], np.zeros((1, 3), dtype=np.int64))
    indices = np.zeros(opaque.shape, dtype=np.uint8)
    indices[opaque] = dither(picture, palette, opaque)
    return indices, palette, opaque


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", nargs="?", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent)
    folder = parser.parse_args().folder
    for index, scene in enumerate((lake, harbour, deep)):
        write_bmp_8(folder / f"backdrop_{index}.bmp", *backdrop(*scene()))
    write_bmp_8(folder / "title.bmp", *title())
    write_bmp_8(folder / "about.bmp", *about())
    write_bmp_24(folder / "tiles.bmp", tile_sheet())
    write_ico(folder / "glimra.ico", [icon_image(32), icon_image(16)])
    write_png(folder / "glimra_128.png", icon(128))
    for name in ("rotate", "rows", "lock", "level", "shift"):
        write_wav(folder / f"{name}.wav", getattr(sounds, name)())


if __name__ == "__main__":
    main()
