"""Archives that hold nothing of the moment and the machine they are made on."""

import gzip
import hashlib
import io
import tarfile
import time
import zipfile
from pathlib import Path


def write_zip(out, top, files, epoch):
    """A zip archive of packed files below the folder top."""
    # The format counts in steps of two seconds, from 1980.
    moment = max(time.gmtime(epoch - epoch % 2)[:6], (1980, 1, 1, 0, 0, 0))
    with zipfile.ZipFile(out, 'w') as archive:
        for one in sorted(files, key=lambda file: file.place):
            entry = zipfile.ZipInfo(f'{top}/{one.place}', moment)
            entry.create_system = 0  # without the permissions of another system
            archive.writestr(entry, one.data, zipfile.ZIP_DEFLATED, 9)


def write_tar_gz(out, top, folder, epoch):
    """The files below folder as top/..., owned by root, with plain permissions."""
    packed = io.BytesIO()
    with tarfile.open(fileobj=packed, mode='w', format=tarfile.USTAR_FORMAT) as archive:
        for path in [folder, *sorted(folder.rglob('*'))]:
            entry = tarfile.TarInfo((Path(top) / path.relative_to(folder)).as_posix())
            entry.mtime = epoch
            entry.uname = entry.gname = 'root'
            if path.is_dir():
                entry.type, entry.mode = tarfile.DIRTYPE, 0o755
                archive.addfile(entry)
                continue
            data = path.read_bytes()
            entry.size = len(data)
            entry.mode = 0o755 if path.stat().st_mode & 0o100 else 0o644
            archive.addfile(entry, io.BytesIO(data))
    with open(out, 'wb') as file, gzip.GzipFile('', 'wb', 9, file, mtime=epoch) as compressed:
        compressed.write(packed.getvalue())


def write_checksums(out, files):
    """A list for sha256sum --check."""
    lines = [f'{hashlib.sha256(Path(one).read_bytes()).hexdigest()}  {Path(one).name}\n'
             for one in sorted(files)]
    Path(out).write_text(''.join(lines), encoding='ascii')
