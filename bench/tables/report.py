#!/usr/bin/env python3
"""Makes the tables of a run of the benchmarks.

    report.py [--markdown] [--only-peers] FOLDER

FOLDER holds what the run left: benchmarks-*.json, processes.json, windows.json, peers.json;
tables of what is not there are left out. With --markdown the tables are a document, which begins
with a description of this machine. Exit status 0, whatever the figures are.
"""

import argparse
from pathlib import Path

import machine
import peers
import processes
import sections
from results import Benchmarks, Missing, Processes


def section_cells(benchmarks):
    cells = {}
    for name in sections.SETS:
        try:
            full = f"read/general/{name}"
            cells[name] = int(benchmarks.counter(full, "columns") *
                              benchmarks.counter(full, "levels"))
        except Missing:
            continue
    return cells


def all_tables(folder):
    benchmarks = Benchmarks()
    for file in sorted(folder.glob("benchmarks-*.json")):
        benchmarks.load(file)
    tables = [make(benchmarks) for make in (
        sections.frames, sections.large, sections.layouts, sections.opening, sections.files,
        sections.growth, sections.allocations)]
    if (folder / "processes.json").exists():
        runs = Processes()
        runs.load(folder / "processes.json")
        tables += [processes.cold_starts(runs, benchmarks),
                   processes.memory(runs, section_cells(benchmarks))]
    if (folder / "windows.json").exists():
        tables.append(processes.windows(folder / "windows.json"))
    if (folder / "peers.json").exists():
        tables += peers.tables(folder / "peers.json")
    return [table for table in tables if table.rows], benchmarks.errors


def summary(tables):
    judged = sum(table.judged for table in tables)
    missed = sum(table.missed for table in tables)
    return f"{judged - missed} of {judged} targets are met, {missed} missed."


def markdown(tables):
    facts = "".join(f"| {name} | {value} |\n" for name, value in machine.description())
    return "\n".join([f"| machine | |\n|---|---|\n{facts}", summary(tables) + "\n",
                      *[table.markdown() for table in tables]])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--markdown", action="store_true")
    parser.add_argument("--only-peers", action="store_true")
    parser.add_argument("folder", type=Path)
    arguments = parser.parse_args()
    if arguments.only_peers:
        tables, errors = peers.tables(arguments.folder / "peers.json"), {}
    else:
        tables, errors = all_tables(arguments.folder)
    if arguments.markdown:
        print(markdown(tables), end="")
    else:
        print("\n".join(table.plain() for table in tables))
        print(summary(tables))
    for name, message in errors.items():
        print(f"\nnot measured: {name}: {message}")


if __name__ == "__main__":
    main()
