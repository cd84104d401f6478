#!/usr/bin/python3
"""The 64-bit installer on a 32-bit machine."""

from installer_case import VERSION, InstallerCase, main


class RefusalTest(InstallerCase):

    def test_the_64_bit_one_is_refused_by_32_bit_windows(self):
        self.assertFalse(self.machine.is64)
        package = self.options.packages / f'refused/Kelvane-{VERSION}-x64.msi'
        # 1633: not made for this type of processor.
        self.assertEqual(self.machine.msiexec('/i', self.machine.windows_path(package)),
                         1633 % 256)
        self.assert_as_before()


if __name__ == '__main__':
    main()
