#!/usr/bin/python3
"""One installer on one machine: installed, used, repaired, replaced, refused and removed."""

import re
import shutil
import time
from pathlib import Path

from installer_case import BITS, NEWER, ROOT, VERSION, InstallerCase, differences, main


class InstallerTest(InstallerCase):

    def setUp(self):
        super().setUp()
        self.architecture = self.options.architecture
        self.name = f'Kelvane ({BITS[self.architecture]}-bit)'

    def test_installs_a_control_that_draws_and_leaves_nothing_behind(self):
        self.install(self.architecture)
        for place in ('KelvaneCtl.ocx', 'KelvaneCtl.manifest', 'KelvaneHost.exe', 'LICENSE.txt',
                      'README.html', 'samples/section.vbs', 'data/ocean.nc', 'data/ocean.kew'):
            self.assertTrue((self.folder(self.architecture) / place).is_file(), place)
        self.assert_draws(self.architecture)
        self.remove(self.architecture)
        self.assert_as_before()

    def test_registers_what_the_control_registers_itself(self):
        self.install(self.architecture)
        by_installer = self.registered()
        kept = self.machine.drive / 'KelvaneCtl.ocx'
        shutil.copyfile(self.folder(self.architecture) / 'KelvaneCtl.ocx', kept)
        self.remove(self.architecture)
        self.assertEqual(self.registered(), {})

        folder = self.folder(self.architecture)
        folder.mkdir()
        self.addCleanup(shutil.rmtree, folder)
        shutil.move(kept, folder / 'KelvaneCtl.ocx')
        regsvr32 = self.machine.system_program(self.architecture, 'regsvr32.exe')
        module = self.windows_folder(self.architecture) + '\\KelvaneCtl.ocx'
        self.assertEqual(self.machine.run(regsvr32, '/s', module)[0], 0)
        by_itself = self.registered()
        self.assertEqual(self.machine.run(regsvr32, '/u', '/s', module)[0], 0)
        self.assertGreater(len(by_itself), 25)
        if self.architecture == 'x64':
            # This installer service finds the names for 32-bit programs in another place than these
            # programs do; in Windows it is the same place, and they are there already.
            by_installer = {key: values for key, values in by_installer.items()
                            if 'WOW6432NODE\\KELVANE.' not in key}
        self.assertEqual(differences(by_itself, by_installer), [])

    def test_is_listed_among_the_programs(self):
        self.install(self.architecture)
        entry = self.entries()[self.name]
        self.assertEqual(entry['"DisplayVersion"'], f'"{VERSION}"')
        self.assertEqual(entry['"Publisher"'], '"The Kelvane authors"')
        self.assertEqual(entry['"NoModify"'], 'dword:00000001')
        self.assertEqual(entry['"InstallLocation"'].replace('\\\\', '\\'),
                         f'"{self.windows_folder(self.architecture)}\\"')
        icons = [values['"ProductIcon"'] for values in self.machine.registry().values()
                 if '"ProductIcon"' in values]
        self.assertEqual(len(icons), 1)
        path = icons[0].strip('"').replace('\\\\', '/').replace('C:', str(self.machine.drive))
        self.assertEqual(Path(path).read_bytes(), (ROOT / 'hosts/form/kelvane.ico').read_bytes())
        self.remove(self.architecture)
        self.assertNotIn(self.name, self.entries())

    def test_puts_its_program_into_the_start_menu(self):
        self.install(self.architecture)
        links = [name for name in self.machine.files()
                 if re.search(r'Start Menu/Programs/.*\.lnk$', name) and 'Kelvane' in name]
        self.assertEqual(len(links), 1, links)
        self.assertTrue(links[0].endswith(f'/{self.name}.lnk'))
        link = (self.machine.drive / links[0]).read_bytes()
        target = self.windows_folder(self.architecture) + '\\KelvaneHost.exe'
        self.assertTrue(target.encode('utf-16-le') in link or target.encode('ascii') in link)

    def test_installs_a_program_that_shows_its_window_and_closes(self):
        self.install(self.architecture)
        program = self.machine.start(
            self.windows_folder(self.architecture) + '\\KelvaneHost.exe')
        self.addCleanup(program.communicate)
        self.addCleanup(program.kill)
        # A program is asked to close through its windows: what ends has had one.
        for _ in range(60):
            time.sleep(0.5)
            self.machine.run('taskkill', '/im', 'KelvaneHost.exe')
            if program.poll() is not None:
                break
        self.assertEqual(program.poll(), 0)
        self.remove(self.architecture)
        # What stays are the user's own settings, for the next version.
        settings = [values for key, values in self.machine.registry().items()
                    if key.endswith('\\SOFTWARE\\KELVANE\\KELVANEHOST')]
        self.assertIn('"Window"', settings[0])
        self.machine.run('reg', 'delete', 'HKCU\\Software\\Kelvane', '/f')
        self.assert_as_before()

    def test_repairs_what_was_lost(self):
        self.install(self.architecture)
        complete = self.registered()
        self.machine.run('reg', 'delete', 'HKLM\\Software\\Classes\\Kelvane.KelvaneCtl', '/f')
        (self.folder(self.architecture) / 'KelvaneCtl.ocx').unlink()
        (self.folder(self.architecture) / 'samples/section.vbs').unlink()
        self.assertNotIn('temp', self.draw(self.architecture)[1])
        # What msiexec /f stands for; the letter itself is unknown to the tests' installer service.
        self.install(self.architecture, 'REINSTALL=ALL', 'REINSTALLMODE=omus')
        self.assertEqual(differences(complete, self.registered()), [])
        self.assert_draws(self.architecture)
        self.remove(self.architecture)
        self.assert_as_before()

    def test_installs_again_over_itself(self):
        self.install(self.architecture)
        state = self.registered(), self.machine.files()
        self.install(self.architecture)
        self.assertEqual(differences(state[0], self.registered()), [])
        self.assertEqual(differences(state[1], self.machine.files()), [])
        self.remove(self.architecture)
        self.assert_as_before()

    def test_replaces_an_older_version(self):
        self.install(self.architecture)
        self.install(self.architecture, version=NEWER)
        self.assertEqual(self.entries()[self.name]['"DisplayVersion"'], f'"{NEWER}"')
        # A page that tells its version is the newer one's.
        page = (self.folder(self.architecture) / 'README.html').read_text(encoding='utf-8')
        self.assertIn(NEWER, page)
        self.assert_draws(self.architecture)
        self.remove(self.architecture, version=NEWER)
        self.assert_as_before()

    def test_stays_in_the_folder_that_was_chosen(self):
        chosen = 'C:\\Ocean tools'
        self.install(self.architecture, f'INSTALLDIR={chosen}')
        self.assert_draws(self.architecture, chosen)
        self.install(self.architecture, version=NEWER)
        self.assert_draws(self.architecture, chosen)
        self.assertFalse(self.folder(self.architecture).exists())
        self.remove(self.architecture, version=NEWER)
        self.assert_as_before()

    def test_does_not_replace_a_newer_version(self):
        self.install(self.architecture, version=NEWER)
        state = self.registered(), self.machine.files()
        self.assertNotEqual(self.msiexec('/i', self.architecture), 0)
        self.assertEqual(differences(state[0], self.registered()), [])
        self.assertEqual(differences(state[1], self.machine.files()), [])
        self.assertEqual(self.entries()[self.name]['"DisplayVersion"'], f'"{NEWER}"')
        self.assert_draws(self.architecture)

    def test_leaves_what_the_user_has_put_beside_it(self):
        self.install(self.architecture)
        mine = self.folder(self.architecture) / 'data/mine.nc'
        mine.write_bytes(b'CDF')
        self.remove(self.architecture)
        self.assertEqual(mine.read_bytes(), b'CDF')
        shutil.rmtree(self.folder(self.architecture))
        self.assert_as_before()


if __name__ == '__main__':
    main()
