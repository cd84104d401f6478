"""The Windows machine of a Wine prefix: its programs, its installer, its registry and its files."""

import os
import re
import subprocess
from pathlib import Path

# What Windows keeps for itself whenever a program runs.
SYSTEM_KEYS = re.compile(
    r'HKEY_LOCAL_MACHINE\\(SYSTEM|HARDWARE)\b'
    r'|HKEY_CURRENT_CONFIG\b'
    r'|HKEY_(USERS\\[^\\]+|CURRENT_USER)\\SOFTWARE\\WINE\b')

# The lists in which the installer service keeps products; they stay when they have become empty.
INSTALLER_LISTS = re.compile(
    r'HKEY_LOCAL_MACHINE\\SOFTWARE\\CLASSES\\INSTALLER(\\(FEATURES|PRODUCTS|UPGRADECODES))?$'
    r'|HKEY_LOCAL_MACHINE\\SOFTWARE\\MICROSOFT\\WINDOWS\\CURRENTVERSION\\INSTALLER'
    r'(\\(UPGRADECODES|FOLDERS|USERDATA(\\S-1-5-18(\\(COMPONENTS|PRODUCTS))?)?))?$')


def kept_key(key, values):
    """Whether a registry key counts when two states of the machine are compared."""
    return not SYSTEM_KEYS.match(key) and not (INSTALLER_LISTS.match(key) and not values)


def kept_file(name):
    """Whether a file or folder counts; the installer service keeps its own folder."""
    return name != 'windows/Installer' and not re.match(r'(users/[^/]+/Temp|windows/temp)/', name)


class WineMachine:
    """Needs KELVANE_PREFIX: a prefix of the test's own, best with a waiting server."""

    def __init__(self, runner):
        self._runner = runner
        self.drive = Path(os.environ['KELVANE_PREFIX']) / 'drive_c'
        self.is64 = (self.drive / 'windows/syswow64').exists()

    def program_files(self, architecture):
        """The name of the folder of programs on drive C."""
        return 'Program Files (x86)' if self.is64 and architecture == 'x86' else 'Program Files'

    @staticmethod
    def windows_path(path):
        """An absolute path as Windows programs know it."""
        return 'Z:' + str(path).replace('/', '\\')

    def system_program(self, architecture, name):
        """One of the system's programs that are there for each bitness."""
        folder = 'syswow64' if self.is64 and architecture == 'x86' else 'system32'
        return f'C:\\windows\\{folder}\\{name}'

    def start(self, *arguments):
        return subprocess.Popen([self._runner, *map(str, arguments)], stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def run(self, *arguments):
        """Runs a program to its end; returns its status and what it wrote."""
        process = self.start(*arguments)
        text, _ = process.communicate(timeout=300)
        return process.returncode, text.decode('utf-8', 'replace').replace('\r\n', '\n')

    def msiexec(self, *arguments):
        """The installer without questions; returns its status, which is its error modulo 256."""
        return self.run('msiexec', *arguments, '/qn')[0]

    def registry(self):
        """What counts of all hives: key in capitals -> {value name: data}."""
        export = self.drive / 'registry.txt'
        if self.run('regedit', '/E', 'C:\\registry.txt')[0] != 0:
            raise RuntimeError('the registry cannot be exported')
        text = export.read_text(encoding='utf-16').replace('\r\n', '\n').replace('\\\n  ', '')
        export.unlink()
        keys, values = {}, None
        for line in text.splitlines():
            if line.startswith('[') and line.endswith(']'):
                values = keys.setdefault(line[1:-1].upper(), {})
            elif values is not None and line:
                name, _, data = line.partition('=')
                values[name] = data
        return {key: values for key, values in keys.items() if kept_key(key, values)}

    def files(self):
        """Every file and folder on drive C that counts."""
        found = set()
        for folder, folders, names in os.walk(self.drive):
            relative = os.path.relpath(folder, self.drive)
            found.update(os.path.normpath(os.path.join(relative, name))
                         for name in folders + names)
        return set(filter(kept_file, found))

    def warm_up(self):
        """Has the system write what it writes once, so that it is there before and after."""
        script = self.drive / 'warm.vbs'
        script.write_text('WScript.Quit 0\n')
        for architecture in ('x86', 'x64') if self.is64 else ('x86',):
            self.run(self.system_program(architecture, 'cscript.exe'), '//nologo', 'C:\\warm.vbs')
        script.unlink()


def differences(before, after):
    """What is gone, new or changed between two registries or two sets of files; as lines."""
    if isinstance(before, set):
        return sorted([f'gone: {name}' for name in before - after] +
                      [f'new: {name}' for name in after - before])
    lines = [f'gone: {key}' for key in before if key not in after]
    for key, values in after.items():
        if key not in before:
            lines.append(f'new: {key} {values}')
        elif before[key] != values:
            lines.append(f'changed: {key} {before[key]} -> {values}')
    return sorted(lines)
