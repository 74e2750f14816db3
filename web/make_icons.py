#!/usr/bin/python3
"""Rebuilds the icons of the page from the program's artwork, into this folder."""
import pathlib
import struct
import sys
import zlib

import numpy as np

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "resources" / "artwork"))
from icon import icon  # noqa: E402


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def palette_of(pixels, count):
    """The `count` colours that suit the pixels best, by halving the box of colours that is widest."""
    boxes = [pixels]
    while len(boxes) < count:
        box = boxes.pop(max(range(len(boxes)), key=lambda i: np.ptp(boxes[i], axis=0).max() * len(boxes[i]) ** 0.5))
        box = box[box[:, np.ptp(box, axis=0).argmax()].argsort(kind="stable")]
        boxes += [box[:len(box) // 2], box[len(box) // 2:]]
    return np.array([box.mean(axis=0).round() for box in boxes])


def nearest(pixels, palette):
    """For each pixel the number of the colour that is nearest."""
    parts = [((part[:, None] - palette) ** 2).sum(axis=2).argmin(axis=1) for part in np.array_split(pixels, 64)]
    return np.concatenate(parts)


def png(rgba):
    """A picture of 256 colours: a third of the bytes, and no one sees it."""
    height, width, _ = rgba.shape
    pixels = rgba.reshape(-1, 4).astype(float)
    palette = palette_of(pixels, 256)
    for _ in range(4):  # each colour to the middle of the pixels that are nearest to it
        numbers = nearest(pixels, palette)
        palette = np.array([pixels[numbers == i].mean(axis=0).round() if (numbers == i).any() else colour
                            for i, colour in enumerate(palette)])
    palette = palette[palette.sum(axis=1).argsort(kind="stable")].astype("uint8")
    rows = nearest(pixels, palette.astype(float)).astype("uint8").reshape(height, width)
    data = b"".join(b"\0" + row.tobytes() for row in rows)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 3, 0, 0, 0)) +
            chunk(b"PLTE", palette[:, :3].tobytes()) + chunk(b"tRNS", palette[:, 3].tobytes()) +
            chunk(b"IDAT", zlib.compress(data, 9)) + chunk(b"IEND", b""))


for size in (192, 512):
    (HERE / f"icon-{size}.png").write_bytes(png(icon(size)))
