"""The native DAP server of tests/opendap, for as long as a test needs it."""
import contextlib
import os
import subprocess


def windows_path(path):
    """A file as Windows programs know it: drive Z is the root here."""
    return 'Z:' + os.path.abspath(path).replace('/', '\\')


@contextlib.contextmanager
def serving(server, folder, log):
    """Serves the netCDF files of a folder; gives the address of the folder, with a slash.

    The server ends when its standard input does, whatever becomes of this process.
    """
    with subprocess.Popen([server, folder, log], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                          text=True) as process:
        port = process.stdout.readline().strip()
        if not port:
            raise RuntimeError(f'{server} did not start')
        try:
            yield f'http://127.0.0.1:{port}/'
        finally:
            process.stdin.close()
            process.wait()


def environment():
    """What a program gets that talks to the server: no proxy in between."""
    return dict(os.environ, no_proxy='127.0.0.1')
