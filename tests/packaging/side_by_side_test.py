#!/usr/bin/python3
"""Both installers on one 64-bit machine: each is complete with and without the other."""

from installer_case import BITS, InstallerCase, differences, main


class SideBySideTest(InstallerCase):

    def test_each_stays_complete_without_the_other(self):
        alone = {}
        for architecture in BITS:
            self.install(architecture)
            alone[architecture] = self.registered()
            self.remove(architecture)
            self.assertEqual(self.registered(), {})
        for leaving, staying in (('x86', 'x64'), ('x64', 'x86')):
            with self.subTest(removed=leaving):
                self.install(leaving)
                self.install(staying)
                self.assertEqual(len(self.entries()), 2)
                for architecture in BITS:
                    self.assert_draws(architecture)
                    self.assertEqual([line for line in differences(
                        alone[architecture], self.registered()) if line.startswith('gone')], [])
                self.remove(leaving)
                self.assertEqual(differences(alone[staying], self.registered()), [])
                self.assert_draws(staying)
                self.remove(staying)
                self.assert_as_before()

    def test_each_is_in_the_folder_of_its_bitness(self):
        self.install('x86')
        self.install('x64')
        self.assertNotEqual(self.folder('x86'), self.folder('x64'))
        for architecture in BITS:
            module = (self.folder(architecture) / 'KelvaneCtl.ocx').read_bytes()
            header = int.from_bytes(module[0x3C:0x40], 'little')
            # The machine that the program is for: 386 or amd64.
            self.assertEqual(module[header + 4:header + 6],
                             {'x86': b'\x4c\x01', 'x64': b'\x64\x86'}[architecture])


if __name__ == '__main__':
    main()
