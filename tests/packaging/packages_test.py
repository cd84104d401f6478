#!/usr/bin/python3
"""What is in the packages, without installing any."""

import argparse
import hashlib
import os
import re
import shutil
import subprocess
import sys
import tarfile
import tempfile
import unittest
import zipfile
from datetime import datetime, timezone
from pathlib import Path, PurePosixPath
from urllib.parse import unquote

sys.dont_write_bytecode = True

import installer_tables
from make_test_packages import EPOCH, ROOT, make_packages

VERSION = make_packages.project_version(ROOT)
TEMPLATES = {'x86': 'Intel;1033', 'x64': 'x64;1033'}
SEQUENCE = ['FindRelatedProducts', 'AppSearch', 'LaunchConditions', 'TakePreviousFolder',
            'CostInitialize', 'FileCost', 'CostFinalize', 'TellInstallFolder', 'InstallValidate',
            'InstallInitialize', 'RemoveExistingProducts', 'ProcessComponents',
            'UnpublishFeatures', 'RemoveRegistryValues', 'RemoveShortcuts', 'RemoveFiles',
            'InstallFiles', 'CreateShortcuts', 'WriteRegistryValues', 'RegisterProduct',
            'PublishFeatures', 'PublishProduct', 'InstallFinalize']


def arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument('--packages', type=Path, required=True)
    parser.add_argument('--native', type=Path, required=True)
    parser.add_argument('builds', nargs='+', metavar='ARCHITECTURE=BUILD',
                        help='the Windows builds; the first is the one that is looked at')
    options = parser.parse_args()
    options.builds = dict(build.split('=') for build in options.builds)
    return options


class PackagesTest(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls.options = arguments()
        cls.architecture, build = next(iter(cls.options.builds.items()))
        cls.build = Path(build)
        cls.wide = cls.architecture == 'x64'
        cls.installer = cls.options.packages / f'Kelvane-{VERSION}-{cls.architecture}.msi'
        cls.zip = cls.options.packages / f'Kelvane-{VERSION}-windows.zip'
        cls.tar = cls.options.packages / f'kelvane-{VERSION}-linux-amd64.tar.gz'

    def setUp(self):
        self.maxDiff = None
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.scratch = Path(folder.name)

    def table(self, name):
        return installer_tables.table(self.installer, name)

    def zip_files(self):
        """What the zip archive has for this bitness: place -> bytes."""
        files = {}
        with zipfile.ZipFile(self.zip) as archive:
            for name in archive.namelist():
                place = PurePosixPath(name).relative_to(f'Kelvane-{VERSION}')
                if place.parts[0] == self.architecture:
                    place = place.relative_to(self.architecture)
                elif place.parts[0] in TEMPLATES:
                    continue
                files[place.as_posix()] = archive.read(name)
        return files

    def test_installer_has_the_files_of_the_zip(self):
        folder = installer_tables.extract(self.installer, self.scratch)
        extracted = {path.relative_to(folder).as_posix(): path.read_bytes()
                     for path in folder.rglob('*') if path.is_file()}
        self.assertEqual(sorted(extracted), sorted(self.zip_files()))
        self.assertEqual(extracted, self.zip_files())
        for program in ('KelvaneCtl.ocx', 'KelvaneHost.exe'):
            self.assertEqual(extracted[program], (self.build / program).read_bytes())

    def test_components_have_identifiers_of_their_own(self):
        components = self.table('Component')
        keyed = {'CommonLibrary': '4', 'CommonNames': '4'}
        if self.wide:
            keyed['SeparateNames'] = '260'
        self.assertEqual(len(components), len(self.table('File')) + len(keyed))
        identifiers = [row['ComponentId'] for row in components]
        self.assertEqual(len(set(identifiers)), len(identifiers))
        for row in components:
            self.assertRegex(row['ComponentId'], r'^\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\}$')
            # 4: its key is in the registry; 256: it belongs to 64-bit programs.
            self.assertEqual(row['Attributes'],
                             keyed.get(row['Component'], '256' if self.wide else '0'), row)

    def test_what_is_common_are_the_same_components_in_both_installers(self):
        found = {row['Component']: row['ComponentId'] for row in self.table('Component')}
        # Frozen: older versions of the other bitness have them too.
        self.assertEqual(found['CommonNames'], '{CA805647-7590-585D-92EE-0F086728A9A0}')
        self.assertEqual(found['CommonLibrary'], '{7CBE43D5-8C3C-55C3-902E-44DDDB0D9B86}')

    def test_names_are_common_unless_both_views_have_names_of_their_own(self):
        conditions = {row['Component']: row['Condition'] for row in self.table('Component')
                      if row['Condition']}
        self.assertEqual(conditions, {
            'SeparateNames': 'WIDENAMES AND NOT NARROWNAMES'} if self.wide else {})

    def test_programs_state_their_versions(self):
        hashed = {row['File_'] for row in self.table('MsiFileHash')}
        for row in self.table('File'):
            program = row['FileName'].endswith(('.ocx', '.exe'))
            self.assertEqual(row['Version'], VERSION + '.0' if program else '', row)
            self.assertEqual(row['Language'], '1033' if program else '', row)
            self.assertEqual(row['File'] in hashed, not program, row)

    def test_names_have_short_names_that_differ(self):
        component = {row['Component']: row['Directory_'] for row in self.table('Component')}
        seen = set()
        for row in self.table('File'):
            short = row['FileName'].split('|')[0]
            self.assertRegex(short, r'^[A-Za-z0-9_~-]{1,8}(\.[A-Za-z0-9_~-]{1,3})?$')
            place = component[row['Component_']], short.upper()
            self.assertNotIn(place, seen)
            seen.add(place)

    def test_actions_come_in_their_order(self):
        rows = self.table('InstallExecuteSequence')
        names = [row['Action'] for row in sorted(rows, key=lambda row: int(row['Sequence']))]
        self.assertEqual([name for name in names if name in SEQUENCE], SEQUENCE)

    def test_product_and_upgrades(self):
        properties = {row['Property']: row['Value'] for row in self.table('Property')}
        bits = 64 if self.wide else 32
        expected = {'ProductName': f'Kelvane ({bits}-bit)', 'ProductVersion': VERSION,
                    'Manufacturer': 'The Kelvane authors', 'ALLUSERS': '1', 'ARPNOMODIFY': '1',
                    'UpgradeCode': '{A0C2F7D4-58E6-4E0B-9D35-7C41F2E6B9D8}' if self.wide
                    else '{6E4A1D0C-93B5-4B1B-8B43-0B8B5B7E2A61}'}
        self.assertEqual({name: properties.get(name) for name in expected}, expected)
        searched = {row['Property'] for row in self.table('AppSearch')}
        self.assertIn('PREVIOUSFOLDER', searched)
        self.assertLessEqual(searched | {'INSTALLDIR', 'WIX_DOWNGRADE_DETECTED'},
                             set(properties['SecureCustomProperties'].split(';')))
        older, newer = self.table('Upgrade')
        self.assertEqual((older['VersionMin'], older['VersionMax'], older['Attributes']),
                         ('', VERSION, '1'))
        self.assertEqual((newer['VersionMin'], newer['VersionMax'], newer['Attributes']),
                         (VERSION, '', '2'))
        texts = {row['Condition']: row['Description'] for row in self.table('LaunchCondition')}
        self.assertIn('A newer version', texts['NOT WIX_DOWNGRADE_DETECTED'])
        self.assertEqual('Installed OR VersionNT64' in texts, self.wide)

    def test_summary_states_no_moment_but_the_given_one(self):
        summary = installer_tables.summary(self.installer)
        self.assertEqual(summary['Template'], TEMPLATES[self.architecture])
        wanted = datetime.fromtimestamp(EPOCH, timezone.utc).strftime('%a %b %e %H:%M:%S %Y')
        self.assertEqual((summary['Created'], summary['Last saved']), (wanted, wanted))
        self.assertIn('kelvane.cab', installer_tables.streams(self.installer))

    def test_pages_lead_to_what_is_there(self):
        files = self.zip_files()
        pages = [place for place in files if place.endswith('.html')]
        self.assertIn('README.html', pages)
        links = 0
        for place in pages:
            text = files[place].decode('utf-8')
            for link in re.findall(r'(?:href|src)="([^"]*)"', text):
                if re.match(r'[a-z]+:', link):
                    continue
                path, _, anchor = unquote(link).partition('#')
                target = os.path.normpath(PurePosixPath(place).parent / path) if path else place
                self.assertIn(target, files, f'{place} links to {link}')
                if anchor:
                    self.assertIn(f'id="{anchor}"', files[target].decode('utf-8'),
                                  f'{place} links to {link}')
                links += 1
        self.assertGreater(links, 0)

    def test_texts_have_the_line_ends_of_windows(self):
        for place, data in self.zip_files().items():
            if place.endswith(('.txt', '.html', '.vbs', '.frm', '.vbp', '.bas')):
                self.assertNotRegex(data, rb'(?<!\r)\n', place)

    def test_tar_has_the_tool_that_runs(self):
        with tarfile.open(self.tar) as archive:
            self.assertTrue(all(entry.uid == 0 and entry.mtime == EPOCH for entry in archive))
            archive.extractall(self.scratch)
        folder = self.scratch / f'kelvane-{VERSION}-linux-amd64'
        told = subprocess.run([folder / 'bin/kelvane', '--version'], check=True, text=True,
                              stdout=subprocess.PIPE).stdout
        self.assertIn(VERSION, told)
        for place in ('share/man/man1/kelvane.1', 'share/doc/kelvane/LICENSE', 'README.md'):
            self.assertTrue((folder / place).is_file(), place)
        # Its page names every library that is not part of the smallest system.
        needed = subprocess.run(['objdump', '-p', folder / 'bin/kelvane'], check=True, text=True,
                                stdout=subprocess.PIPE).stdout
        page = (folder / 'README.md').read_text(encoding='utf-8')
        for library in re.findall(r'NEEDED\s+(\S+)', needed):
            name = re.match(r'lib([a-z+]+)', library).group(1)
            if name not in ('c', 'm', 'gcc', 'z'):
                self.assertIn('lib' + name, page)

    def test_checksums_are_those_of_the_files(self):
        lines = (self.options.packages / 'SHA256SUMS').read_text().splitlines()
        told = dict(reversed(line.split('  ')) for line in lines)
        installers = [self.options.packages / f'Kelvane-{VERSION}-{architecture}.msi'
                      for architecture in self.options.builds]
        for path in (*installers, self.zip, self.tar):
            self.assertEqual(told.pop(path.name), hashlib.sha256(path.read_bytes()).hexdigest())
        self.assertEqual(told, {})

    def test_same_builds_make_the_same_packages(self):
        builds, made = [], [self.zip, self.tar]
        for architecture, build in self.options.builds.items():
            copy = self.scratch / architecture
            copy.mkdir()
            for name in ('KelvaneCtl.manifest', 'KelvaneCtl.ocx', 'KelvaneHost.exe'):
                shutil.copyfile(Path(build) / name, copy / name)  # with today's time
            builds.append(f'--{architecture}={copy}')
            made.append(self.options.packages / f'Kelvane-{VERSION}-{architecture}.msi')
        out = self.scratch / 'out'
        environment = dict(os.environ, SOURCE_DATE_EPOCH=str(EPOCH), TZ='Asia/Kathmandu',
                           LC_ALL='C', TMPDIR=str(self.scratch))
        subprocess.run([ROOT / 'packaging/make_packages.py', '--native', self.options.native,
                        *builds, out], check=True, env=environment, umask=0o077,
                       stdout=subprocess.DEVNULL)
        names = [path.name for path in made] + ['SHA256SUMS']
        self.assertEqual(sorted(path.name for path in out.iterdir()), sorted(names))
        for name in names:
            self.assertTrue((out / name).read_bytes() ==
                            (self.options.packages / name).read_bytes(), name)


if __name__ == '__main__':
    arguments()
    unittest.main(argv=sys.argv[:1], verbosity=2)
