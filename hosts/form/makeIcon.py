#!/usr/bin/env python3
"""Draws kelvane.ico, a section through an eddy over the sea floor, beside this script."""

import math
import pathlib
import struct
import zlib

SIZES = (16, 20, 24, 32, 48, 64, 256)
SAMPLES = 4  # across and down, in a pixel
FRAME, FLOOR = (52, 73, 94), (120, 96, 72)
WATER = ((196, 55, 42), (240, 140, 50), (250, 215, 90), (110, 195, 165), (50, 120, 190),
         (35, 60, 130))


def colour_at(x, y):
    """The colour at a place in a square from 0 to 1, or None outside the picture."""
    margin = 0.06
    if not (margin <= x <= 1 - margin and margin <= y <= 1 - margin):
        return None
    if x < margin + 0.05 or y > 1 - margin - 0.05 or x > 1 - margin - 0.05 or y < margin + 0.05:
        return FRAME
    floor = 0.72 - 0.30 * math.exp(-((x - 0.72) / 0.10) ** 2) - 0.45 * max(0.0, 0.30 - x)
    if y > floor + 0.08:
        return FLOOR
    depth = y - 0.16 * math.exp(-((x - 0.40) / 0.16) ** 2)
    return WATER[min(max(int(depth * 9), 0), len(WATER) - 1)]


def pixel(column, row, size):
    total, hits = [0, 0, 0], 0
    for k in range(SAMPLES * SAMPLES):
        x = (column + (k % SAMPLES + 0.5) / SAMPLES) / size
        y = (row + (k // SAMPLES + 0.5) / SAMPLES) / size
        colour = colour_at(x, y)
        if colour is not None:
            hits += 1
            total = [a + b for a, b in zip(total, colour)]
    if hits == 0:
        return (0, 0, 0, 0)
    return tuple(c // hits for c in total) + (255 * hits // SAMPLES ** 2,)


def as_bitmap(size, rows):
    pixels = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask = bytes(((size + 31) // 32 * 4) * size)
    return struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0) + pixels + mask


def as_png(size, rows):
    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data
                + struct.pack(">I", zlib.crc32(kind + data)))
    lines = b"".join(b"\0" + bytes(c for p in row for c in p) for row in rows)
    head = struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head)
            + chunk(b"IDAT", zlib.compress(lines, 9)) + chunk(b"IEND", b""))


def main():
    images = []
    for size in SIZES:
        rows = [[pixel(column, row, size) for column in range(size)] for row in range(size)]
        images.append((size, (as_png if size == 256 else as_bitmap)(size, rows)))
    at = 6 + 16 * len(images)
    head, body = struct.pack("<HHH", 0, 1, len(images)), b""
    for size, data in images:
        head += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(data),
                            at + len(body))
        body += data
    (pathlib.Path(__file__).parent / "kelvane.ico").write_bytes(head + body)


if __name__ == "__main__":
    main()
