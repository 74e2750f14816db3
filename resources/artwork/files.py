"""Writes the picture, icon and sound files without a library for them: the bytes depend on no library's version."""
import struct
import zlib

import numpy as np


def _packed_rows(pixels, align=4):
    """The rows of a picture bottom-up, each padded to a multiple of `align` bytes."""
    rows = []
    for row in pixels[::-1]:
        data = row.tobytes()
        rows.append(data + bytes(-len(data) % align))
    return b"".join(rows)


def _info_header(width, height, bits, size):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, size, 0, 0, 0, 0)


def _palette_table(palette):
    """256 entries blue, green, red, 0; the unused ones black."""
    table = b"".join(bytes((b, g, r, 0)) for r, g, b in palette.tolist())
    return table.ljust(1024, b"\0")


def _write_bmp(path, width, height, bits, table, rows):
    offset = 14 + 40 + len(table)
    with open(path, "wb") as file:
        file.write(struct.pack("<2sIHHI", b"BM", offset + len(rows), 0, 0, offset))
        file.write(_info_header(width, height, bits, len(rows)) + table + rows)


def write_bmp_8(path, indices, palette):
    """An 8-bit bitmap: `indices` is (height, width) of uint8, `palette` is (n, 3) of red, green, blue."""
    height, width = indices.shape
    _write_bmp(path, width, height, 8, _palette_table(palette), _packed_rows(indices))


def write_bmp_24(path, rgb):
    """A 24-bit bitmap of a (height, width, 3) uint8 picture."""
    height, width, _ = rgb.shape
    _write_bmp(path, width, height, 24, b"", _packed_rows(rgb[:, :, ::-1].copy()))


def write_ico(path, images):
    """An icon of 8-bit images, each (indices, palette, opaque); the screen shows through where it is not opaque."""
    directory, bodies = b"", b""
    offset = 6 + 16 * len(images)
    for indices, palette, opaque in images:
        height, width = indices.shape
        colours = _packed_rows(indices)
        mask = _packed_rows(np.packbits(~opaque, axis=1))
        header = _info_header(width, 2 * height, 8, len(colours) + len(mask))
        body = header + _palette_table(palette) + colours + mask
        directory += struct.pack("<BBBBHHII", width, height, 0, 0, 1, 8, len(body), offset)
        bodies += body
        offset += len(body)
    with open(path, "wb") as file:
        file.write(struct.pack("<HHH", 0, 1, len(images)) + directory + bodies)


def write_png(path, rgba):
    """A PNG of a (height, width, 4) uint8 picture, stored without compression: the same bytes with any zlib."""
    height, width, _ = rgba.shape

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    rows = b"".join(b"\0" + row.tobytes() for row in rgba)
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n")
        file.write(chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)))
        file.write(chunk(b"IDAT", zlib.compress(rows, 0)) + chunk(b"IEND", b""))


def write_wav(path, samples, rate=22050):
    """8-bit mono PCM: a 44-byte header, then the samples (uint8, an even number) to the end of the file."""
    data = samples.tobytes()
    with open(path, "wb") as file:
        file.write(
            struct.pack(
                "<4sI4s4sIHHIIHH4sI",
                b"RIFF",
                36 + len(data),
                b"WAVE",
                b"fmt ",
                16,
                1,
                1,
                rate,
                rate,
                1,
                8,
                b"data",
                len(data),
            )
        )
        file.write(data)
