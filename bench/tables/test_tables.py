#!/usr/bin/env python3
"""The tables hold to the figures they are made of.

    test_tables.py
"""

import json
import tempfile
import unittest
from pathlib import Path

import peers
import processes
import sections
from results import Benchmarks, Processes
from table import Table, Target, number


def run(name, cpu, **more):
    return dict({"name": name + "/process_time/real_time", "run_type": "iteration",
                 "cpu_time": cpu, "real_time": 2 * cpu, "time_unit": "ms"}, **more)


class Tables(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def write(self, name, content):
        path = self.folder / name
        path.write_text(json.dumps(content), encoding="utf-8")
        return path

    def benchmarks(self, *runs):
        made = Benchmarks()
        made.load(self.write("benchmarks.json", {"benchmarks": runs}))
        return made

    def test_numbers_have_three_digits(self):
        self.assertEqual([number(value) for value in (12345.6, 123.4, 12.34, 1.234, 0.1234)],
                         ["12,346", "123", "12.3", "1.23", "0.123"])

    def test_targets_bind_on_their_side(self):
        self.assertEqual(Target(2).verdict(2), "met")
        self.assertEqual(Target(2).verdict(2.1), "MISSED")
        self.assertEqual(Target(2, least=True).verdict(1.9), "MISSED")

    def test_the_least_of_the_repetitions_counts(self):
        made = self.benchmarks(run("a", 3.0), run("a", 2.0),
                               run("a", 9.0, run_type="aggregate"))
        self.assertEqual(made.time("a"), 2.0)
        self.assertEqual(made.wall("a"), 4.0)

    def test_a_frame_stands_beside_the_quicker_way_and_a_fill(self):
        size = {"columns": 10, "levels": 5}
        made = self.benchmarks(run("frame/regional-classic/1000x600", 12.0, **size),
                               run("bare/columns/general/regional-classic", 9.0),
                               run("bare/box/general/regional-classic", 5.0),
                               run("bare/fill/1000x600", 1.0))
        table = sections.frames(made)
        self.assertEqual(len(table.rows), 1)
        self.assertEqual(table.rows[0][1:], ["12.0", "6.00", "2.00", "at most 1.50", "MISSED"])
        self.assertEqual((table.judged, table.missed), (1, 1))

    def test_what_failed_is_told_and_left_out(self):
        made = self.benchmarks(run("open/long", 1.0, error_occurred=True, error_message="gone"),
                               run("bare/open/long", 1.0))
        self.assertEqual(sections.opening(made).rows, [])
        self.assertEqual(made.errors, {"open/long": "gone"})

    def test_the_slope_is_a_power(self):
        made = self.benchmarks(run("small", 1.0), run("large", 16.0))
        self.assertAlmostEqual(sections.slope(made, "small", "large", 4), 2.0)

    def test_memory_is_held_to_the_grid_and_the_pictures(self):
        def peak(megabytes):
            return {"wall": [1], "cpu": [1], "peak": [megabytes * 1024], "failures": 0}
        runs = Processes()
        runs.load(self.write("processes.json", {processes.BASE: peak(20),
                                                "draw/regional-classic/1000x600": peak(40)}))
        table = processes.memory(runs, {"regional-classic": 2**20})
        bound = 18 + 4 * 4 * 1000 * 600 / 2**20
        self.assertEqual(table.rows[0][1:5], ["40.0", "20.0", number(bound), number(20 / bound)])

    def test_the_control_is_held_to_its_own_floor(self):
        line = {"name": "regional-classic", "cells": "9 columns", "frame": [14, 12], "redraw": [2],
                "contours": [30, 24], "columns": [40], "box": [9, 11], "fill": [3]}
        table = processes.windows(self.write("windows.json", line))
        self.assertEqual([row[3:] for row in table.rows],
                         [["1.00", "at most 1.50", "met"], ["0.167", "at most 1.50", "met"],
                          ["2.00", "at most 1.50", "MISSED"]])

    def test_a_further_step_is_what_more_steps_add(self):
        def took(milliseconds):
            return {"wall": [milliseconds], "cpu": [milliseconds], "peak": [1], "failures": 0}
        path = self.write("peers.json", {
            "cold/sea/kelvane": took(50), "steps/sea/kelvane": took(150),
            "cold/sea/other": took(500), "steps/sea/other": took(900),
            "cold/sea/broken": {"wall": [], "cpu": [], "peak": [], "failures": 1},
            "about": {"steps": 11, "judged": {"sea": 20}}})
        cold, further = peers.tables(path)
        self.assertEqual([row[0] for row in cold.rows], ["kelvane", "other"])
        self.assertEqual(cold.rows[1][4:], ["10.0", "10.0", "at least 1.00", "met"])
        self.assertEqual(further.rows[1][3:], ["4.00", "4.00", "at least 2.00", "met"])

    def test_markdown_has_a_cell_for_every_column(self):
        table = Table("Title", ("", "ms", "ratio", "target", ""))
        table.add("row", 1.5, figure=2.0, target=Target(3))
        table.add("short")
        lines = table.markdown().splitlines()
        self.assertEqual({line.count("|") for line in lines if line.startswith("|")}, {6})


if __name__ == "__main__":
    unittest.main()
