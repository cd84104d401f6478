"""What is in the packages for Windows: which file goes where, under which name."""

from dataclasses import dataclass
from pathlib import Path, PurePosixPath

import pages

# Texts that Windows programs read, some of them (form designers among them) only with the line
# ends of that system.
TEXTS = {'', '.bas', '.cls', '.cs', '.csproj', '.dpr', '.frm', '.hta', '.html', '.js', '.kew',
         '.manifest', '.pas', '.ps1', '.py', '.rc', '.reg', '.sln', '.txt', '.vbp', '.vbs', '.xml',
         '.dfm', '.lpr', '.config'}

ARCHITECTURES = ('x86', 'x64')
BITS = {'x86': 32, 'x64': 64}


@dataclass(frozen=True)
class PackedFile:
    """One file of a package: its place there, with slashes, and its bytes."""
    place: str
    data: bytes


def windows_text(data):
    return data.replace(b'\r\n', b'\n').replace(b'\n', b'\r\n')


def _packed(place, data):
    if PurePosixPath(place).suffix.lower() in TEXTS:
        data = windows_text(data)
    return PackedFile(place, data)


def _files_below(folder):
    """The files of a folder in a fixed order, without what editors and interpreters leave."""
    return sorted(path for path in folder.rglob('*')
                  if path.is_file() and '__pycache__' not in path.parts
                  and not path.name.startswith('.') and not path.name.endswith('~'))


def _document_sources(root):
    """Documents and their pictures: source -> place in the package, pages as Markdown."""
    places = {root / 'packaging/windows.md': 'README.md',
              root / 'packaging/README.md': 'docs/packages.md'}
    for page in ('docs/dialogs.md', 'docs/host.md'):
        if (root / page).exists():
            places[root / page] = page
    for folder in ('docs/guide', 'docs/dialogs', 'docs/host'):
        for path in _files_below(root / folder):
            if path.suffix in ('.md', '.png'):
                places[path] = path.relative_to(root).as_posix()
    return places


def common_files(root, version, sample):
    """What both bitnesses have: documents, samples, the example data set and its colour key."""
    places = _document_sources(root)
    for path in _files_below(root / 'hosts/scripts'):
        places[path] = 'samples/' + path.relative_to(root / 'hosts/scripts').as_posix()
    places[root / 'docs/gallery/ocean.kew'] = 'data/ocean.kew'
    places[sample] = 'data/ocean.nc'
    places[root / 'LICENSE'] = 'LICENSE.txt'
    packed = []
    for source, place in places.items():
        data = source.read_bytes()
        if source.suffix == '.md':
            data = pages.page(data.decode('utf-8'), source, place, places, version).encode('utf-8')
            place = pages.html_name(place)
        packed.append(_packed(place, data))
    return sorted(packed, key=lambda one: one.place)


def program_files(build):
    """What one bitness has of its own, from the build folder of that bitness."""
    return [_packed(name, (Path(build) / name).read_bytes())
            for name in ('KelvaneCtl.manifest', 'KelvaneCtl.ocx', 'KelvaneHost.exe')]
