"""What the tests of the installers share: the packages, the machine, and a clean end."""

import argparse
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True

from wine_machine import WineMachine, differences

ROOT = Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / 'packaging'))

import control_identity
import make_packages
from make_test_packages import NEWER

BITS = {'x86': 32, 'x64': 64}
VERSION = make_packages.project_version(ROOT)
CLASSES = 'HKEY_LOCAL_MACHINE\\SOFTWARE\\CLASSES\\'


def arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument('--packages', type=Path, required=True)
    parser.add_argument('--runner', required=True)
    parser.add_argument('--architecture', choices=BITS, required=True)
    parser.add_argument('tests', nargs='*')
    return parser.parse_args()


class InstallerCase(unittest.TestCase):
    """Every test begins on a machine without the product and must leave it as it was."""

    @classmethod
    def setUpClass(cls):
        cls.options = arguments()
        cls.machine = WineMachine(cls.options.runner)
        cls.machine.warm_up()
        cls.before = cls.machine.registry(), cls.machine.files()
        cls.identity = control_identity.read_identity(ROOT)

    def setUp(self):
        self.maxDiff = None
        self.addCleanup(self.remove_everything)

    def remove_everything(self):
        """So that a test that failed does not fail the next one too."""
        # The installer service keeps a copy of every installer until its product is removed.
        if not list((self.machine.drive / 'windows/Installer').glob('*.msi')):
            return
        for architecture in BITS:
            for version in (VERSION, NEWER):
                package = self.package(architecture, version)
                if package.exists():
                    self.machine.msiexec('/x', self.machine.windows_path(package))

    def package(self, architecture, version=VERSION):
        return self.options.packages / f'Kelvane-{version}-{architecture}.msi'

    def msiexec(self, option, architecture, *more, version=VERSION):
        package = self.machine.windows_path(self.package(architecture, version))
        return self.machine.msiexec(option, package, *more)

    def install(self, architecture, *more, version=VERSION):
        self.assertEqual(self.msiexec('/i', architecture, *more, version=version), 0)

    def remove(self, architecture, version=VERSION):
        self.assertEqual(self.msiexec('/x', architecture, version=version), 0)

    def assert_as_before(self):
        registry, files = self.before
        self.assertEqual(differences(registry, self.machine.registry()), [])
        self.assertEqual(differences(files, self.machine.files()), [])

    def folder(self, architecture):
        """Where the product is installed unless told otherwise, on the prefix's drive."""
        return self.machine.drive / self.machine.program_files(architecture) / 'Kelvane'

    def windows_folder(self, architecture):
        return f'C:\\{self.machine.program_files(architecture)}\\Kelvane'

    def draw(self, architecture, folder=None):
        """Runs the installed sample program on the installed data set."""
        folder = folder or self.windows_folder(architecture)
        return self.machine.run(
            self.machine.system_program(architecture, 'cscript.exe'), '//nologo',
            folder + '\\samples\\section.vbs', folder + '\\data\\ocean.nc')

    def assert_draws(self, architecture, folder=None):
        status, text = self.draw(architecture, folder)
        self.assertEqual(status, 0, text)
        self.assertIn('temp', text)

    def entries(self):
        """The list of installed programs: their values, by name."""
        found = {}
        for key, values in self.machine.registry().items():
            if '\\CURRENTVERSION\\UNINSTALL\\' in key and '"DisplayName"' in values:
                found[values['"DisplayName"'].strip('"')] = values
        return found

    def registered(self):
        """What is registered of the control, in all views of the registry."""
        known = [self.identity.class_id, self.identity.library_id, self.identity.interface_id,
                 self.identity.events_id, self.identity.prog_id.upper() + '\\',
                 self.identity.versioned_prog_id.upper() + '\\']
        return {key: values for key, values in self.machine.registry().items()
                if key.startswith(CLASSES) and '\\INSTALLER\\' not in key
                and any(name in key + '\\' for name in known)}


def main():
    unittest.main(argv=[sys.argv[0], *arguments().tests], verbosity=2)
