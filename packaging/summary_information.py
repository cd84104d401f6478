"""Fixes what a fresh installer database says about the moment of its making.

The package code is a random identifier and both time stamps are those of the clock. They lie in the
database's summary information, in fields of fixed sizes, and are replaced where they stand: the
file's layout stays as it is.
"""

import struct

# The set's identifier, then the place where it begins: 28 bytes for the header of a stream of one
# property set, which the writers of these databases always lay out alike.
_FORMAT = bytes.fromhex('E0859FF2F94F6810AB9108002B27B3D9')
_HEADER = struct.Struct('<HHI16sI16sI')

_PACKAGE_CODE, _CREATED, _SAVED = 9, 12, 13
_TEXT, _TIME = 0x1E, 0x40

# Seconds between the first of January 1601 and 1970.
_EPOCH = 11_644_473_600


def _set_start(data):
    """Where the one property set of the summary information begins in the file."""
    at = -1
    starts = []
    while (at := data.find(_FORMAT, at + 1)) >= 0:
        header = at - 28
        if header < 0:
            continue
        order, _, _, _, sets, _, offset = _HEADER.unpack_from(data, header)
        if order == 0xFFFE and sets == 1 and offset == _HEADER.size:
            starts.append(header + offset)
    if len(starts) != 1:
        raise ValueError(f'{len(starts)} summary informations where one is expected')
    return starts[0]


def fix(path, package_code, epoch):
    """Gives the database a package code in braces, and epoch (seconds, UTC) as both times."""
    with open(path, 'rb') as file:
        data = bytearray(file.read())
    start = _set_start(data)
    time = struct.pack('<Q', (epoch + _EPOCH) * 10_000_000)
    code = package_code.encode('ascii')
    wanted = {_PACKAGE_CODE: (_TEXT, 8, code), _CREATED: (_TIME, 4, time),
              _SAVED: (_TIME, 4, time)}
    _, count = struct.unpack_from('<II', data, start)
    for index in range(count):
        identifier, offset = struct.unpack_from('<II', data, start + 8 + 8 * index)
        if identifier not in wanted:
            continue
        kind, skip, value = wanted.pop(identifier)
        at = start + offset
        if struct.unpack_from('<I', data, at)[0] != kind:
            raise ValueError(f'summary property {identifier} has another type')
        if kind == _TEXT and struct.unpack_from('<I', data, at + 4)[0] != len(value) + 1:
            raise ValueError('the package code has another length')
        data[at + skip:at + skip + len(value)] = value
    if wanted:
        raise ValueError(f'the summary information lacks {sorted(wanted)}')
    with open(path, 'wb') as file:
        file.write(data)
