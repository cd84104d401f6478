"""The machine that the figures come from."""

import os
import platform
import subprocess
from pathlib import Path


def _field(path, name):
    for line in Path(path).read_text(encoding="utf-8").splitlines():
        key, _, value = line.partition(":")
        if key.strip() == name:
            return value.strip()
    return "unknown"


def _first_line(*command):
    try:
        result = subprocess.run(command, capture_output=True, text=True, check=False)
    except OSError:
        return "unknown"
    return (result.stdout.splitlines() or ["unknown"])[0]


def _system():
    for line in Path("/etc/os-release").read_text(encoding="utf-8").splitlines():
        if line.startswith("PRETTY_NAME="):
            return line.split("=", 1)[1].strip('"')
    return platform.system()


def description():
    """Lines of name and value."""
    gigabytes = int(_field("/proc/meminfo", "MemTotal").split()[0]) / 2**20
    return [
        ("processor", f"{_field('/proc/cpuinfo', 'model name')}, {os.cpu_count()} cores"),
        ("memory", f"{gigabytes:.0f} GiB"),
        ("system", f"{_system()}, Linux {platform.release()}"),
        ("compiler", _first_line("c++", "--version")),
        ("load at the end of the run", f"{os.getloadavg()[0]:.1f} (1 minute)"),
    ]
