#!/usr/bin/python3
"""Checks the pictures, icon and sounds of resources/: formats, layouts, colours, contrast, spectra.

check_artwork.py [--rebuild]     --rebuild also runs the generator and compares every file byte for byte.
Exits 0 when all is well, else 1 after naming each fault.
"""
import argparse
import filecmp
import pathlib
import struct
import subprocess
import sys
import tempfile

import numpy as np

RESOURCES = pathlib.Path(__file__).resolve().parents[2] / "resources"
BACKDROPS = [f"backdrop_{i}.bmp" for i in range(3)]
WELL, VALUES = (22, 11, 132, 231), ((0, 249, 80, 267), (100, 249, 140, 267), (146, 249, 186, 267), (192, 249, 232, 267))
BOX_CORNERS = ((166, 2, 215, 160), (166, 182, 215, 215))  # corner pixels inclusive
CAPTIONS = {"NEXT": (168, 4, 182, 8), "HOLD": (199, 209, 213, 213), "SCORE": (62, 245, 80, 249),
            "LEVEL": (113, 245, 131, 249), "LINES": (164, 245, 180, 249), "TIME": (208, 245, 221, 249)}
SOUNDS = {"rotate": (2230, 300, 1500), "rows": (21150, 500, 4000), "lock": (566, 60, 500), "level": (21150, 350, 2500),
          "shift": (188, 700, 2500)}  # samples; the spectrum's centre of gravity lies between these (Hz)
PICTURES = [*BACKDROPS, "title.bmp", "about.bmp", "tiles.bmp"]
FILES = [*PICTURES, "glimra.ico", "glimra_128.png", *(f"{name}.wav" for name in SOUNDS)]
RING = np.pad(np.zeros((9, 9), dtype=bool), 1, constant_values=True)  # a tile's outermost pixels
faults = []


def expect(truth, message):
    if not truth:
        faults.append(message)


def read_bmp(name, width, height, bits):
    """The picture as (height, width, 3) bytes, after checking the header."""
    data = (RESOURCES / name).read_bytes()
    offset, stride = 54 + (1024 if bits == 8 else 0), (width * bits // 8 + 3) // 4 * 4
    size = offset + stride * height
    header = struct.pack("<2sIIIIiiHHI", b"BM", size, 0, offset, 40, width, height, 1, bits, 0)
    expect(data[:34] == header and len(data) == size, f"{name}: header or length")
    rows = np.frombuffer(data, np.uint8, stride * height, offset).reshape(height, stride)[::-1, :width * bits // 8]
    if bits == 24:
        return rows.reshape(height, width, 3)[:, :, ::-1]
    return np.frombuffer(data, np.uint8, 1024, 54).reshape(256, 4)[:, 2::-1][rows]


def shown(rgb):
    """What the display makes of a colour: 5, 6 and 5 bits, spread to eight again."""
    wide = rgb.astype(int)
    five, six = wide >> 3, wide >> 2
    return np.stack([five[..., 0] << 3 | five[..., 0] >> 2, six[..., 1] << 2 | six[..., 1] >> 4,
                     five[..., 2] << 3 | five[..., 2] >> 2], axis=-1)


def luminance(rgb):
    c = shown(rgb) / 255
    return np.where(c <= 0.04045, c / 12.92, ((c + 0.055) / 1.055) ** 2.4) @ np.array([0.2126, 0.7152, 0.0722])


def contrast(a, b):
    return (np.maximum(a, b) + 0.05) / (np.minimum(a, b) + 0.05)


def check_tiles(sheet):
    for column in range(7):
        for row in range(5):
            tile = sheet[11 * row:11 * row + 11, 11 * column:11 * column + 11]
            expect((luminance(tile)[0, :10] >= luminance(tile)[10, 1:]).all(), f"tile {column}, look {row}: shading")
        block, ghost = (sheet[at:at + 11, 11 * column:11 * column + 11] for at in (0, 55))
        expect((ghost[RING] == block[RING]).all() and not ghost[~RING].any(), f"tile {column}: ghost")
        expect(ghost[RING].any(axis=1).all() and shown(ghost[RING]).any(axis=1).all(), f"tile {column}: black in the ring")
    expect(sheet[:55].any(axis=2).all(), "pure black in looks 0 to 4")


def check_ghosts(name, picture, sheet):
    """Every ghost must stand out in every cell."""
    worst = 1.0
    rings = [luminance(sheet[55:66, 11 * c:11 * c + 11])[RING] for c in range(7)]
    ground = luminance(picture)
    for cell in range(200):
        x, y = 22 + 11 * (cell % 10), 11 + 11 * (cell // 10)
        under = ground[y:y + 11, x:x + 11][RING]
        worst = min(worst, *((contrast(light, under) >= 2.5).mean() for light in rings))
    expect(worst >= 0.5, f"{name}: only {worst:.0%} of a ghost's ring reaches 2.5 to 1")
    print(f"{name}: {worst:.0%} of the faintest ghost's ring at 2.5 to 1")


def check_backdrop(name, picture):
    white = (picture == 255).all(axis=2)
    for left, top, right, bottom in BOX_CORNERS:
        frame = np.zeros(white.shape, dtype=bool)
        frame[top:bottom + 1, left:right + 1] = True
        frame[top + 1:bottom, left + 1:right] = False
        expect(white[frame].all(), f"{name}: box frame at {left}, {top}")
    for text, (left, top, right, bottom) in CAPTIONS.items():
        box = white[top:bottom + 1, left:right + 1]
        around = white[top - 1:bottom + 2, left - 1:right + 2].sum() - box.sum()
        expect(box.any(axis=1).all() and box[:, (0, -1)].any(axis=0).all() and around == 0, f"{name}: caption {text}")
        ground = luminance(picture)[top - 1:bottom + 2, left - 1:right + 2][~white[top - 1:bottom + 2, left - 1:right + 2]]
        expect(contrast(1.0, ground.max()) >= 4.5, f"{name}: {text} is hard to read")
    light = luminance(picture)
    rail = np.concatenate([light[11:231, 21], light[11:231, 132], light[231, 22:132]])
    expect(rail.min() > 0.5 and light[11:231, 22:132].max() < 0.05, f"{name}: the well's frame")
    light[249, white[249]] = 0  # the captions' lowest row, which the values do not reach
    worst = min(contrast(1.0, light[t:b, l:r]).min() for l, t, r, b in VALUES)
    expect(worst >= 4.5, f"{name}: white values reach only {worst:.1f} to 1")


def check_sound(name, count, low, high):
    data = (RESOURCES / f"{name}.wav").read_bytes()
    header = struct.pack("<4sI4s4sIHHIIHH4sI", b"RIFF", 36 + count, b"WAVE", b"fmt ", 16, 1, 1, 22050, 22050, 1, 8,
                         b"data", count)
    expect(data[:44] == header and len(data) == 44 + count, f"{name}.wav: header or length")
    signal = np.frombuffer(data, np.uint8, offset=44).astype(float) - 128
    expect(20 < np.abs(signal).max() < 0.9 * 127, f"{name}.wav: peak {np.abs(signal).max()}")
    expect(signal[0] == 0 and signal[-1] == 0 and np.abs(signal[[1, 2, -3, -2]]).max() <= 4, f"{name}.wav: clicks")
    expect(abs(signal.mean()) < 1.5, f"{name}.wav: offset {signal.mean():.2f}")
    power = np.abs(np.fft.rfft(signal)) ** 2
    centre = (power * np.fft.rfftfreq(count, 1 / 22050)).sum() / power.sum()
    expect(low < centre < high, f"{name}.wav: centre of gravity {centre:.0f} Hz")
    if name in ("rows", "level"):  # a rising figure: the opening's strongest tone lies below the middle's
        peaks = [np.abs(np.fft.rfft(part)).argmax() for part in (signal[200:2248], signal[7400:9448])]
        expect(peaks[0] < peaks[1], f"{name}.wav: does not rise {peaks}")


def check_icon():
    data = (RESOURCES / "glimra.ico").read_bytes()
    expect(data[:6] == struct.pack("<HHH", 0, 1, 2), "glimra.ico: not two images")
    for index, size in enumerate((32, 16)):
        width, height, _, _, _, bits, length, offset = struct.unpack("<BBBBHHII", data[6 + 16 * index:22 + 16 * index])
        header = struct.pack("<IiiHHI", 40, size, 2 * size, 1, 8, 0)
        expect((width, height, bits, length) == (size, size, 8, 40 + 1024 + size * size + size * 4), f"icon {size}")
        expect(data[offset:offset + 20] == header and offset + length <= len(data), f"icon {size}: header or length")


def check_rebuild():
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([sys.executable, RESOURCES / "artwork" / "make.py", folder], check=True)
        _, other, missing = filecmp.cmpfiles(folder, RESOURCES, FILES, shallow=False)
        expect(not other + missing, f"the generator makes other bytes: {other + missing}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--rebuild", action="store_true")
    options = parser.parse_args()
    sheet = read_bmp("tiles.bmp", 77, 66, 24)
    check_tiles(sheet)
    pictures = [read_bmp(name, 240, 268, 8) for name in BACKDROPS]
    for name, picture in zip(BACKDROPS, pictures):
        check_ghosts(name, picture, sheet)
        check_backdrop(name, picture)
    same = np.stack([(picture == 255).all(axis=2) for picture in pictures])
    for left, top, right, bottom in (*CAPTIONS.values(), (20, 11, 133, 232)):
        region = same[:, top:bottom + 1, left:right + 1]
        expect((region == region[0]).all(), f"frames or captions differ at {left}, {top}")
    for name, height in (("title.bmp", 268), ("about.bmp", 270)):
        picture = read_bmp(name, 240, height, 8)
        expect((shown(picture) == picture).all(), f"{name}: colours that the display cannot show")
        if name == "about.bmp":
            expect((picture[151:164, 131:196] == 255).all(), "about.bmp: no white plate for the version")
        else:  # the headings and the list stand here
            quiet = np.concatenate([luminance(picture)[54:236, :96].ravel(), luminance(picture)[54:236, 144:].ravel()])
            expect(contrast(1.0, quiet.max()) >= 4.5, f"title.bmp: not quiet under the text: {quiet.max():.2f}")
    for name, expected in SOUNDS.items():
        check_sound(name, *expected)
    check_icon()
    if options.rebuild:
        check_rebuild()
    print("\n".join(faults) or "artwork: all is well")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
