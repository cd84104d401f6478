"""Reads the tables of an installer and what it says about itself."""

import subprocess
from pathlib import Path


def table(package, name):
    """The rows of a table, each a dictionary from column to text; no rows without the table."""
    text = subprocess.run(['msiinfo', 'export', package, name], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, check=True).stdout.decode('utf-8')
    lines = text.replace('\r\n', '\n').split('\n')
    columns = lines[0].split('\t')
    return [dict(zip(columns, line.split('\t'))) for line in lines[3:] if line]


def summary(package):
    text = subprocess.run(['msiinfo', 'suminfo', package], stdout=subprocess.PIPE,
                          check=True).stdout.decode('utf-8')
    return dict(line.split(': ', 1) for line in text.splitlines() if ': ' in line)


def streams(package):
    text = subprocess.run(['msiinfo', 'streams', package], stdout=subprocess.PIPE,
                          check=True).stdout.decode('utf-8')
    return text.split()


def extract(package, folder):
    """Unpacks the files as the tables name them; returns the folder that holds the product's."""
    subprocess.run(['msiextract', '-C', folder, package], check=True, stdout=subprocess.DEVNULL)
    found = [path.parent for path in Path(folder).rglob('KelvaneCtl.ocx')]
    if len(found) != 1:
        raise ValueError(f'the control is there {len(found)} times')
    return found[0]
