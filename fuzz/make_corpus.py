#!/usr/bin/env python3
"""Makes the first inputs of the fuzzers image, dialog, dib and window_place.

    make_corpus.py IMAGE

IMAGE is the program's resources as a build makes them, build/release/glimra.res: the dialogs are its own, the small
image has the smallest of its resources, with the numbers that the fuzzer tries.
"""
import pathlib
import struct
import sys

CORPUS = pathlib.Path(__file__).parent / "corpus"
BITMAP, ICON, MENU, DIALOG, STRINGS, ACCELERATORS, DATA, ICONS = 2, 3, 4, 5, 6, 9, 10, 14


def number(value):
    return struct.pack("<HH", 0xFFFF, value)


def entry(kind, name, data):
    key = kind + name
    key += bytes(-len(key) % 4)
    padding = bytes(-len(data) % 4)
    return struct.pack("<II", len(data), 24 + len(key)) + key + bytes(16) + data + padding


def resources(image):
    """Type, number and bytes of each resource whose type is a number."""
    at = 0
    while at < len(image):
        size, header, mark, kind, _, name = struct.unpack_from("<II4H", image, at)
        if mark == 0xFFFF:
            yield kind, name, image[at + header:at + header + size]
        at += header + (size + 3) // 4 * 4


def dib(bits, colours, width, height, rest):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, 0, 0, 0, colours, 0) + rest


def main():
    if len(sys.argv) != 2 or sys.argv[1] == "--help":
        print(__doc__)
        sys.exit(len(sys.argv) != 2)
    own = {(kind, name): data for kind, name, data in resources(pathlib.Path(sys.argv[1]).read_bytes())}
    palette = dib(8, 3, 3, 2, bytes.fromhex("0000ff00 07ff0000 07030700 02020900 00010200"))
    group = bytearray(own[ICONS, 101])
    group[4:6], group[6:20] = b"\1\0", group[20:]  # only the second picture, which is small
    parts = [(MENU, 1, own[MENU, 102]), (DATA, 1, b"\1\0" + own[DATA, 102][2:]), (ICONS, 1, bytes(group)),
             (ICON, 2, own[ICON, 2]), (STRINGS, 1, own[STRINGS, 1]), (ACCELERATORS, 3, own[ACCELERATORS, 3])]
    image = entry(number(0), number(0), b"") + b"".join(entry(number(a), number(b), data) for a, b, data in parts)
    image += entry("WAVE\0".encode("utf-16-le"), number(2), b"RIFF")
    image += entry(number(BITMAP), "Logo\0".encode("utf-16-le"), palette)
    seeds = {"image/every-kind.res": image, "dib/palette.dib": palette,
             "dib/true-colour.dib": dib(24, 0, 1, 2, bytes.fromhex("ff0000ff ffbead00")),
             "window_place/usual.txt": b"480 640 100 60\n",
             "window_place/left-of-the-screen.txt": b"480 640 -1200 -7\n"}
    seeds |= {f"dialog/{name}.dialog": data for (kind, name), data in own.items() if kind == DIALOG}
    for name, data in seeds.items():
        (CORPUS / name).parent.mkdir(parents=True, exist_ok=True)
        (CORPUS / name).write_bytes(data)


if __name__ == "__main__":
    main()
