"""Runs a Windows program with the DAP server of a folder beside it.

with_server.py SERVER WORK COMMAND...
The program finds the address in KELVANE_DAP_ADDRESS and the folder, which it may fill, in
KELVANE_DAP_FOLDER.
"""
import os
import shutil
import subprocess
import sys

import dap_server


def main(server, work, *command):
    folder = os.path.join(work, 'served')
    shutil.rmtree(work, ignore_errors=True)
    os.makedirs(folder)
    with dap_server.serving(server, folder, os.path.join(work, 'log')) as address:
        environment = dap_server.environment()
        environment['KELVANE_DAP_ADDRESS'] = address
        environment['KELVANE_DAP_FOLDER'] = dap_server.windows_path(folder)
        result = subprocess.run(command, env=environment, stderr=subprocess.PIPE, text=True,
                                errors='replace', check=False)
    if result.stderr:
        print('this appeared on the standard error, which is the host\'s own:', result.stderr, sep='\n')
    return result.returncode or (1 if result.stderr else 0)


if __name__ == '__main__':
    sys.exit(main(*sys.argv[1:]))
