#!/usr/bin/python3
"""Makes the packages from finished builds: installers, zip and tar archives, checksums."""

import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True

import archives
import contents
import control_identity
import installer

ROOT = Path(__file__).resolve().parent.parent


def project_version(root):
    """The version in the one place that states it."""
    text = (root / 'CMakeLists.txt').read_text(encoding='utf-8')
    match = re.search(r'project\(Kelvane VERSION (\d+\.\d+\.\d+) ', text)
    if not match:
        raise ValueError('CMakeLists.txt states no version of three numbers')
    return match.group(1)


def source_time(root):
    """The time that everything in the packages has: SOURCE_DATE_EPOCH, or the commit's."""
    stated = os.environ.get('SOURCE_DATE_EPOCH')
    if stated is None:
        try:
            stated = subprocess.run(['git', '-C', root, 'log', '-1', '--format=%ct'], check=True,
                                    text=True, stdout=subprocess.PIPE).stdout
        except (OSError, subprocess.CalledProcessError):
            raise SystemExit('error: no commit tells the time of the packages; '
                             'set SOURCE_DATE_EPOCH') from None
    return int(stated)


def make_sample(native, folder):
    """The example data set, made by the native build's generator."""
    subprocess.run([native / 'make_sample', folder], check=True, stdout=subprocess.DEVNULL)
    return folder / 'ocean.nc'


def make_installer(options, architecture, common, out):
    programs = contents.program_files(options.builds[architecture])
    with tempfile.TemporaryDirectory() as work:
        installer.build(architecture, options.version, control_identity.read_identity(ROOT),
                        sorted(common + programs, key=lambda one: one.place),
                        (ROOT / 'hosts/form/kelvane.ico').read_bytes(), options.epoch, work, out)


def make_zip(options, common, out):
    files = list(common)
    for architecture, build in options.builds.items():
        files += [contents.PackedFile(f'{architecture}/{one.place}', one.data)
                  for one in contents.program_files(build)]
    archives.write_zip(out, f'Kelvane-{options.version}', files, options.epoch)


def make_tar(options, scratch, out):
    stage = scratch / 'linux'
    subprocess.run(['cmake', '--install', options.native, '--strip', '--prefix', '/'], check=True,
                   env=dict(os.environ, DESTDIR=str(stage)), stdout=subprocess.DEVNULL)
    documents = stage / 'share/doc/kelvane'
    documents.mkdir(parents=True)
    shutil.copyfile(ROOT / 'LICENSE', documents / 'LICENSE')
    text = (ROOT / 'packaging/linux.md').read_text(encoding='utf-8')
    (stage / 'README.md').write_text(text.replace('@VERSION@', options.version), encoding='utf-8')
    archives.write_tar_gz(out, f'kelvane-{options.version}-linux-amd64', stage, options.epoch)


def make_all(options, scratch):
    """Makes what the builds given allow; returns the files."""
    out = options.out
    made = []
    if options.builds:
        common = contents.common_files(ROOT, options.version, make_sample(options.native, scratch))
        for architecture in options.builds:
            made.append(out / f'Kelvane-{options.version}-{architecture}.msi')
            make_installer(options, architecture, common, made[-1])
        if not options.installers_only:
            made.append(out / f'Kelvane-{options.version}-windows.zip')
            make_zip(options, common, made[-1])
    if not options.installers_only:
        made.append(out / f'kelvane-{options.version}-linux-amd64.tar.gz')
        make_tar(options, scratch, made[-1])
        archives.write_checksums(out / 'SHA256SUMS', made)
        made.append(out / 'SHA256SUMS')
    return made


def parse(arguments):
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument('--native', type=Path, required=True, help='the native build folder')
    for architecture in contents.ARCHITECTURES:
        parser.add_argument(f'--{architecture}', type=Path,
                            help=f'the Windows build folder for {architecture}')
    parser.add_argument('--version', default=project_version(ROOT),
                        help='instead of the version of the project')
    parser.add_argument('--installers-only', action='store_true')
    parser.add_argument('out', type=Path, help='the folder that the packages are written to')
    options = parser.parse_args(arguments)
    options.builds = {architecture: getattr(options, architecture)
                      for architecture in contents.ARCHITECTURES
                      if getattr(options, architecture) is not None}
    options.epoch = source_time(ROOT)
    return options


def main(arguments):
    options = parse(arguments)
    options.out.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as scratch:
        for path in make_all(options, Path(scratch)):
            print(path)


if __name__ == '__main__':
    main(sys.argv[1:])
