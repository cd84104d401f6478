#!/usr/bin/env python3
"""The whole report, of tiny data sets: every table is made, nothing fails, and the layouts hold the
same values.

    test_report.py BENCH_FOLDER BUILD_FOLDER
"""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

BENCH, BUILD = Path(sys.argv[1]), Path(sys.argv[2])
TABLES = ("A frame and its parts", "Drawing beside one fill of the picture",
          "Reading a section, by layout", "Opening, to the catalogue", "Writing a picture file",
          "Growth", "Allocations of our own code", "kelvane draw, from nothing to the picture file",
          "Peak memory of kelvane draw")


class Report(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.data = Path(cls.folder.name) / "data"
        cls.done = subprocess.run(
            [BENCH / "report", "--build", BUILD, "--quick", "--markdown", "--data", cls.data,
             "--results", Path(cls.folder.name) / "results"],
            capture_output=True, text=True, check=False)

    def test_everything_was_measured(self):
        self.assertEqual(self.done.returncode, 0, self.done.stderr)
        self.assertNotIn("not measured", self.done.stdout)

    def test_every_table_is_there(self):
        headings = [line[3:] for line in self.done.stdout.splitlines() if line.startswith("## ")]
        self.assertEqual(headings, list(TABLES))

    def test_the_machine_is_told(self):
        self.assertRegex(self.done.stdout, r"\| processor \| .*cores \|")

    def test_targets_are_judged(self):
        self.assertRegex(self.done.stdout, r"\d+ of \d+ targets are met")

    def test_the_layouts_hold_the_same_values(self):
        def values(name):
            return subprocess.run(
                [BUILD / "kelvane", "values", self.data / "tiny" / f"{name}.nc", "--var", "temp",
                 "--path", "286,21 330,50", "--time", "2"],
                capture_output=True, text=True, check=True).stdout
        classic = values("regional-classic")
        self.assertGreater(len(classic.splitlines()), 100)
        for layout in ("blocks", "levels", "records", "steps", "times", "small-chunks"):
            with self.subTest(layout=layout):
                self.assertEqual(values(f"regional-{layout}"), classic)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
