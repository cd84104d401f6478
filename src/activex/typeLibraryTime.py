"""Puts the time of the compilation out of a type library.

    typeLibraryTime.py LIBRARY.tlb

The compiler of interface descriptions records when it ran, as a text and as a number of seconds, and
has no option against it. Both become the beginning of 1970, so that the same description makes the
same bytes.
"""

import re
import struct
import sys
import time

DAY = 24 * 60 * 60
# VT_UI4, in front of the number.
KIND = struct.pack("<H", 19)


def without_time(library):
    text = re.search(rb"Created by WIDL version \S+ at (\w{3} \w{3} [ \d]\d \d\d:\d\d:\d\d \d{4})\n",
                     library)
    if text is None:
        raise ValueError("no time of the compilation")
    made = time.mktime(time.strptime(text[1].decode("ascii")))
    # The number is the only one behind the text that is about the same time; the text is in local
    # time, which an hour may have twice.
    for at in range(text.end(), len(library) - 5):
        if library[at:at + 2] == KIND:
            (seconds,) = struct.unpack_from("<I", library, at + 2)
            if abs(seconds - made) < DAY:
                break
    else:
        raise ValueError("no number with the time of the compilation")
    result = bytearray(library)
    result[text.start(1):text.end(1)] = b"Thu Jan  1 00:00:00 1970"
    result[at + 2:at + 6] = bytes(4)
    return bytes(result)


def main(path):
    with open(path, "rb") as file:
        library = file.read()
    try:
        changed = without_time(library)
    except ValueError as problem:
        sys.exit(f"{path}: {problem}")
    with open(path, "wb") as file:
        file.write(changed)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("usage: typeLibraryTime.py LIBRARY.tlb")
    main(sys.argv[1])
