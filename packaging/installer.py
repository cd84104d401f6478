"""Makes the installer of one bitness."""

import hashlib
import os
import struct
import subprocess
from pathlib import Path

import summary_information
from installer_source import (CLASSES, SETTINGS_KEY, SETTINGS_VALUE, InstallerSource, derived_id,
                              file_id)

PROGRAMS = ('.exe', '.ocx', '.dll')


def file_version(data):
    """The version in a program's resources, as four numbers with dots."""
    at = data.find(struct.pack('<II', 0xFEEF04BD, 0x00010000))
    if at < 0:
        raise ValueError('a program without a version resource')
    high, low = struct.unpack_from('<II', data, at + 8)
    return f'{high >> 16}.{high & 0xFFFF}.{low >> 16}.{low & 0xFFFF}'


def _run(command, folder):
    """Runs a tool that reports some of its failures on the error stream alone."""
    # The archive in the installer states local times.
    environment = dict(os.environ, TZ='UTC', LC_ALL='C.UTF-8')
    done = subprocess.run(command, cwd=folder, env=environment, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    if done.returncode != 0 or 'CRITICAL' in done.stdout or 'WARNING' in done.stdout:
        raise RuntimeError(f'{command[0]} failed:\n{done.stdout}')


def _stage(files, folder, epoch):
    """Writes the packed files under flat names with the given time; returns place -> name."""
    names = {}
    for number, one in enumerate(files):
        names[one.place] = f'{number}'
        path = folder / names[one.place]
        path.write_bytes(one.data)
        path.chmod(0o644)
        os.utime(path, (epoch, epoch))
    return names


def _searches(architecture):
    """What the installer looks up: (property, key, value, whether in the 64-bit view)."""
    # An upgrade stays in the folder that was chosen for the version before it.
    yield 'PREVIOUSFOLDER', SETTINGS_KEY, SETTINGS_VALUE, architecture == 'x64'
    if architecture == 'x64':
        # In Windows the names of classes are the same in both views of the registry. Wine's
        # installer service sees others in the 32-bit view; then this one is not there.
        yield 'WIDENAMES', CLASSES + 'Msi.Package', '', True
        yield 'NARROWNAMES', CLASSES + 'Msi.Package', '', False


def _corrections(architecture, files, conditions):
    """What wixl leaves out or gets wrong, as statements on the tables."""
    yield from (
        # A failed upgrade puts the old version back only when it is removed inside of the
        # transaction.
        "UPDATE `InstallExecuteSequence` SET `Sequence` = 1501 "
        "WHERE `Action` = 'RemoveExistingProducts'",
        # The only feature can be neither left out nor advertised.
        "UPDATE `Feature` SET `Attributes` = 24 WHERE `Feature` = 'Kelvane'",
    )
    for one in files:
        if one.place.endswith(PROGRAMS):
            key = file_id(one.place)
            yield (f"UPDATE `File` SET `Version` = '{file_version(one.data)}', "
                   f"`Language` = '1033' WHERE `File` = '{key}'")
            yield f"DELETE FROM `MsiFileHash` WHERE `File_` = '{key}'"
    for name, condition in conditions.items():
        yield f"UPDATE `Component` SET `Condition` = '{condition}' WHERE `Component` = '{name}'"
    for name, key, value, wide in _searches(architecture):
        yield ("INSERT INTO `RegLocator` (`Signature_`, `Root`, `Key`, `Name`, `Type`) VALUES "
               f"('{name.title()}', 2, '{key}', '{value}', {18 if wide else 2})")
        yield ("INSERT INTO `AppSearch` (`Property`, `Signature_`) VALUES "
               f"('{name}', '{name.title()}')")
    for action, name, value in (('TakePreviousFolder', 'INSTALLDIR', '[PREVIOUSFOLDER]'),
                                ('TellInstallFolder', 'ARPINSTALLLOCATION', '[INSTALLDIR]')):
        yield ("INSERT INTO `CustomAction` (`Action`, `Type`, `Source`, `Target`) VALUES "
               f"('{action}', 51, '{name}', '{value}')")
    for table in ('InstallExecuteSequence', 'InstallUISequence'):
        for action, condition, place in (
                ('AppSearch', '', 50),
                ('TakePreviousFolder', 'PREVIOUSFOLDER AND NOT INSTALLDIR', 710)):
            yield (f"INSERT INTO `{table}` (`Action`, `Condition`, `Sequence`) VALUES "
                   f"('{action}', '{condition}', {place})")
    yield ("INSERT INTO `InstallExecuteSequence` (`Action`, `Condition`, `Sequence`) VALUES "
           "('TellInstallFolder', '', 1010)")
    # What is found before the elevated part of an installation begins must reach it.
    secure = ['INSTALLDIR', 'WIX_DOWNGRADE_DETECTED', 'WIX_UPGRADE_DETECTED']
    secure += [name for name, *_ in _searches(architecture)]
    yield (f"UPDATE `Property` SET `Value` = '{';'.join(secure)}' "
           "WHERE `Property` = 'SecureCustomProperties'")


def build(architecture, version, identity, files, icon, epoch, work, out):
    """Writes the installer to out; work is an empty folder, epoch the time it states."""
    work = Path(work)
    names = _stage(files, work, epoch)
    (work / 'kelvane.ico').write_bytes(icon)
    source = InstallerSource(architecture, version, identity)
    components = {one.place: source.add_file(one.place, names[one.place]) for one in files}
    source.register_control(components['KelvaneCtl.ocx'])
    source.add_shortcut(components['KelvaneHost.exe'])
    text = source.text()
    (work / 'kelvane.wxs').write_text(text, encoding='utf-8')
    _run(['wixl', '--arch', architecture, '-o', 'kelvane.msi', 'kelvane.wxs'], work)
    statements = list(_corrections(architecture, files, source.conditions))
    _run(['msibuild', 'kelvane.msi'] + [part for one in statements for part in ('-q', one)], work)

    # Another content is another package, the same content the same.
    contents = hashlib.sha256(text.encode('utf-8') + '\n'.join(statements).encode('utf-8') + icon)
    for one in files:
        contents.update(one.place.encode('utf-8') + b'\0' + hashlib.sha256(one.data).digest())
    code = derived_id('package', contents.hexdigest(), str(epoch))
    summary_information.fix(work / 'kelvane.msi', code, epoch)
    Path(out).write_bytes((work / 'kelvane.msi').read_bytes())
