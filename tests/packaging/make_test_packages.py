#!/usr/bin/python3
"""Makes what the tests of the packages take apart and install:

make_test_packages.py NATIVE-BUILD OUT ARCHITECTURE=WINDOWS-BUILD...
"""

import os
import shutil
import sys
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / 'packaging'))

import make_packages

NEWER = '99.0.0'
EPOCH = 1_750_000_001  # an odd second, which not every format can say


def main(native, out, *builds):
    shutil.rmtree(out, ignore_errors=True)
    os.environ['SOURCE_DATE_EPOCH'] = str(EPOCH)
    given = [f'--{build}' for build in builds]
    common = ['--native', native, *given, out]
    make_packages.main(common)
    make_packages.main(['--installers-only', '--version', NEWER, *common])
    if builds[0].startswith('x86='):
        # What a 32-bit machine refuses, it refuses before it looks at the programs inside.
        folder = builds[0].partition('=')[2]
        make_packages.main(['--native', native, '--installers-only', f'--x64={folder}',
                            str(Path(out) / 'refused')])


if __name__ == '__main__':
    main(*sys.argv[1:])
