#!/usr/bin/python3
"""Rebuilds the icons of the page from the program's artwork, into this folder (or the given one)."""
import argparse
import pathlib
import struct
import sys
import zlib

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "resources" / "artwork"))
from icon import icon  # noqa: E402


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(rgba):
    height, width, _ = rgba.shape
    rgba = rgba & 0xFC | rgba >> 6  # six bits of each colour: half the size, and no one sees it
    rows = rgba.astype("int16")
    rows[:, 1:] -= rgba[:, :-1]  # each pixel as the difference from its neighbour: smaller
    data = b"".join(b"\1" + row.astype("uint8").tobytes() for row in rows)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(data, 9)) + chunk(b"IEND", b""))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", nargs="?", type=pathlib.Path, default=HERE)
    folder = parser.parse_args().folder
    for size in (192, 512):
        (folder / f"icon-{size}.png").write_bytes(png(icon(size)))


main()
