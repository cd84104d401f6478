"""Compares what a Windows program reads over the network with what the native one reads in files.

same_over_network.py SERVER MAKE_SAMPLE ATLAS NATIVE_DUMP WORK WINDOWS_DUMP...
Sections of the sample data sets and of a measured climatology: the dumps must be the same, byte for
byte.
"""
import os
import shutil
import subprocess
import sys

import dap_server

SCENARIOS = (
    ('ocean.nc', 'temp', '285.25,32 292.75,35.1', '3', '1000x600'),
    ('ocean.nc', 'salt', '285.25,33 292.75,33', '5', '1000x600'),
    ('ocean4.nc', 'salt', '285.25,32 292.75,35.1', '9', '1000x600', 'contours'),
    ('ocean.nc', 'temp', '285.25,32 289,33.5 292.75,35.1', '3', '1000x600', 'profiles-single'),
    ('atlas.nc', 'TEMP', '150,-50 250,50', '1', '1000x600'),
    ('atlas.nc', 'TEMP', '180,-60 180,60', '7', '640x480'),
    ('atlas.nc', 'TEMP', '130,2 280,2', '12', '333x777'),
    ('atlas.nc', 'TEMP', '30,-60 120,-20 180,5 350,60', '4', '1920x1080', 'profiles'),
)


def contents(name):
    with open(name, 'rb') as file:
        return file.read()


def main(server, make_sample, atlas, native, work, *windows):
    folder = os.path.join(work, 'served')
    shutil.rmtree(work, ignore_errors=True)
    os.makedirs(folder)
    subprocess.run([make_sample, folder], check=True)
    os.symlink(atlas, os.path.join(folder, 'atlas.nc'))
    different = []
    with dap_server.serving(server, folder, os.path.join(work, 'log')) as address:
        environment = dap_server.environment()
        for file, *scenario in SCENARIOS:
            native_out = os.path.join(work, 'native.txt')
            windows_out = os.path.join(work, 'windows.txt')
            subprocess.run([native, native_out, os.path.join(folder, file), *scenario], check=True)
            subprocess.run([*windows, dap_server.windows_path(windows_out), address + file,
                            *scenario], env=environment, check=True)
            expected = contents(native_out)
            if len(expected) < 1000 or contents(windows_out) != expected:
                different.append(' '.join((file, *scenario)))
            os.remove(windows_out)
    for scenario in different:
        print('not the same over the network:', scenario)
    return 1 if different else 0


if __name__ == '__main__':
    sys.exit(main(*sys.argv[1:]))
