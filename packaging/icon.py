#!/usr/bin/python3
"""Draws kelvane.ico: layers of water over a sea floor, in four sizes."""

import math
import struct
import sys
from pathlib import Path

SIZES = (16, 24, 32, 48)
LAYERS = ((226, 74, 51), (246, 150, 60), (250, 218, 94), (96, 190, 120), (60, 140, 200),
          (40, 72, 150))
FLOOR = (92, 74, 60)
SAMPLES = 4  # by this many in each direction is every pixel's colour averaged


def colour(x, y):
    """The colour at a place in the unit square, y downward; None outside of the picture."""
    if not (0.04 <= x <= 0.96 and 0.06 <= y <= 0.94):
        return None
    mount = math.exp(-((x - 0.72) / 0.11) ** 2)
    if y > 0.94 - 0.10 * (1 - x) ** 2 - 0.34 * mount - 0.30 * max(0, 0.30 - x):
        return FLOOR
    # An eddy presses the layers down.
    depth = y - 0.06 - 0.16 * math.exp(-((x - 0.38) / 0.16) ** 2)
    layer = int(len(LAYERS) * max(depth, 0) ** 0.75)
    return LAYERS[min(layer, len(LAYERS) - 1)]


def pixel(column, row, size):
    """Blue, green, red and opacity of one pixel."""
    found = []
    for j in range(SAMPLES):
        for i in range(SAMPLES):
            place = colour((column + (i + 0.5) / SAMPLES) / size,
                           (row + (j + 0.5) / SAMPLES) / size)
            if place is not None:
                found.append(place)
    if not found:
        return bytes(4)
    red, green, blue = (round(sum(part) / len(found)) for part in zip(*found))
    return bytes((blue, green, red, round(255 * len(found) / SAMPLES ** 2)))


def image(size):
    """One picture in the form that icons hold: a bitmap from the bottom up, and its mask."""
    rows = [b''.join(pixel(column, row, size) for column in range(size))
            for row in reversed(range(size))]
    mask = bytes(size * ((size + 31) // 32 * 4))
    header = struct.pack('<IiiHHIIiiII', 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    return header + b''.join(rows) + mask


def main(out):
    images = [image(size) for size in SIZES]
    offset = 6 + 16 * len(SIZES)
    entries = b''
    for size, data in zip(SIZES, images):
        entries += struct.pack('<BBBBHHII', size % 256, size % 256, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    Path(out).write_bytes(struct.pack('<HHH', 0, 1, len(SIZES)) + entries + b''.join(images))


if __name__ == '__main__':
    main(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).with_name('kelvane.ico'))
