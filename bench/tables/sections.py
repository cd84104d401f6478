"""Tables of section_bench: what opening, reading and drawing cost beside the bare calls."""

import math

from results import Missing
from table import Table, Target

SETS = ("regional-classic", "regional-blocks", "regional-levels", "regional-records",
        "regional-steps", "regional-times", "regional-small-chunks", "global", "long")
COLUMNS = ("", "ours ms", "floor ms", "ratio", "target", "")
WITHIN = 1.5  # of the floor, for a frame and its parts
LAYOUT = 2.0  # of the quicker way of bare reading, for every layout
LARGE = 3.0   # fills of the picture, for drawing a very large section again


def bare_read(benchmarks, kind, name):
    """The quicker of the two ways to fetch a section's values."""
    return min(benchmarks.time(f"bare/{way}/{kind}/{name}") for way in ("columns", "box"))


def floor_of(benchmarks, name, size):
    return bare_read(benchmarks, "general", name) + benchmarks.time(f"bare/fill/{size}")


def _row(table, benchmarks, title, name, floor, target):
    ours = benchmarks.time(name)
    table.add(title, ours, floor, figure=ours / floor, target=target)


def each_row(rows):
    """Rows that were measured; the others are left out."""
    for row in rows:
        try:
            row()
        except Missing:
            continue


def frames(benchmarks):
    table = Table(
        "A frame and its parts", COLUMNS,
        "The floor is the bare netCDF calls that fetch the section's values, the quicker of a call "
        "a column and of one call for the box around the path, with the file opened and closed, "
        "and one fill of the picture's pixels.")
    def add(title, what, name, size, target):
        def row():
            full = f"{what}/{name}/{size}"
            columns = int(benchmarks.counter(full, "columns"))
            levels = int(benchmarks.counter(full, "levels"))
            _row(table, benchmarks, f"{title}, {name}, {columns:,} x {levels} cells, {size}", full,
                 floor_of(benchmarks, name, size), target)
        return row
    within = Target(WITHIN)
    rows = []
    for size in ("1000x600", "3840x2160"):
        rows += [add("AdvanceTime", "frame", "regional-classic", size, within),
                 add("ReDraw", "redraw", "regional-classic", size, within),
                 add("ReDraw with contour lines", "contours", "regional-classic", size, within),
                 add("ReDraw of profiles", "profiles", "regional-classic", size, None),
                 add("AdvanceTime", "frame", "long", size, None)]
    rows += [add("AdvanceTime", "frame", name, "1000x600", None)
             for name in ("regional-blocks", "regional-levels", "global")]
    rows += [add(f"ReDraw, key of {count:,}", f"key-{count}", "regional-classic", "1000x600", None)
             for count in (10, 1000, 30000)]
    each_row(rows)
    return table


def large(benchmarks):
    table = Table("Drawing beside one fill of the picture", COLUMNS,
                  "Everything that drawing does without reading. With the keys no legend is drawn, "
                  "which would have a box and a label for each division.")
    def add(what, name, size, target, with_key=""):
        def row():
            full = f"{what}/{name}/{size}"
            columns = int(benchmarks.counter(full, "columns"))
            levels = int(benchmarks.counter(full, "levels"))
            _row(table, benchmarks,
                 f"ReDraw, {name}, {columns:,} x {levels} cells, {size}{with_key}", full,
                 benchmarks.time(f"bare/fill/{size}"), target)
        return row
    each_row(add("redraw", name, size, Target(LARGE) if name == "long" else None)
             for size in ("1000x600", "3840x2160") for name in ("regional-classic", "long"))
    each_row(add(f"key-{count}-without-legend", "long", "1000x600", None, f", key of {count:,}")
             for count in (10, 1000, 30000))
    return table


def layouts(benchmarks):
    table = Table(
        "Reading a section, by layout", ("", "ours ms", "by column ms", "box ms", "ratio",
                                         "target", ""),
        "Beside both ways of bare reading; the ratio is to the quicker one. The calls by column "
        "have a chunk cache as large as they want (512 MB), ours at most 64 MB.")
    def add(kind, name):
        def row():
            ours = benchmarks.time(f"read/{kind}/{name}")
            table.add(f"{name}, {kind} path", ours, benchmarks.time(f"bare/columns/{kind}/{name}"),
                      benchmarks.time(f"bare/box/{kind}/{name}"),
                      figure=ours / bare_read(benchmarks, kind, name), target=Target(LAYOUT))
        return row
    each_row(add(kind, name) for kind in ("general", "row", "column") for name in SETS)
    def default():
        table.add("regional-levels by column with the library's own chunk cache", None,
                  benchmarks.time("default-cache/regional-levels"))
    each_row([default])
    return table


def opening(benchmarks):
    table = Table("Opening, to the catalogue", COLUMNS,
                  "The floor: opening, everything that the header tells, the coordinates, closing.")
    each_row(lambda name=name: _row(table, benchmarks, name, f"open/{name}",
                                    benchmarks.time(f"bare/open/{name}"), None) for name in SETS)
    return table


def files(benchmarks):
    table = Table("Writing a picture file", ("", "processor ms", "wall ms"),
                  "PNG, forced to the disk and renamed.")
    def add(size):
        name = f"png/regional-classic/{size}"
        table.add(size, benchmarks.time(name), benchmarks.wall(name))
    each_row(lambda size=size: add(size) for size in ("1000x600", "3840x2160"))
    return table


def slope(benchmarks, small, large, growth):
    """The power of the size by which a cost grows between two sizes that differ by a factor."""
    return math.log(benchmarks.time(large) / benchmarks.time(small)) / math.log(growth)


def growth(benchmarks):
    table = Table(
        "Growth", ("", "size", "ms", "ns each", "allocations", "slope", "target", ""),
        "The slope is the power by which the cost grows over the last factor of four in size: 1 is "
        "linear, less is better.")
    limit = Target(1.15)
    def lengths(what, unit, of_cells):
        def row():
            name, small = f"growth/{what}/1", f"growth/{what}/4"
            columns = benchmarks.counter(name, "columns")
            each = columns * benchmarks.counter(name, "levels") if of_cells else columns
            ratio = columns / benchmarks.counter(small, "columns")
            table.add(what, f"{int(each):,} {unit}", benchmarks.time(name),
                      benchmarks.time(name) * 1e6 / each,
                      f"{benchmarks.counter(name, 'allocations'):.0f}",
                      figure=slope(benchmarks, small, name, ratio), target=limit)
        return row
    def divisions():
        name, small = "growth/key/30000", "growth/key/7500"
        table.add("ReDraw with a key", "30,000 divisions", benchmarks.time(name),
                  benchmarks.time(name) * 1e6 / 30000,
                  f"{benchmarks.counter(name, 'allocations'):.0f}",
                  figure=slope(benchmarks, small, name, 4), target=limit)
    def joining(kind):
        def row():
            name, small = f"join/{kind}/1000000", f"join/{kind}/250000"
            table.add(f"joining contour pieces: {benchmarks.label(name)}", "1,000,000 pieces",
                      benchmarks.time(name), benchmarks.time(name), "",
                      figure=slope(benchmarks, small, name, 4), target=Target(1.25))
        return row
    each_row([lengths("EndSection", "columns", False), lengths("ReadVSData", "cells", True),
              lengths("ReDraw", "cells", True), divisions,
              *[joining(kind) for kind in range(6)]])
    return table


def allocations(benchmarks):
    table = Table("Allocations of our own code",
                  ("", "cells", "allocations", "a cell", "target", ""),
                  "Between a section and one of four times as many columns.")
    def add(what):
        def row():
            name, small = f"growth/{what}/1", f"growth/{what}/4"
            def cells(of):
                return benchmarks.counter(of, "columns") * benchmarks.counter(of, "levels")
            asked = benchmarks.counter(name, "allocations")
            more = asked - benchmarks.counter(small, "allocations")
            table.add(what, f"{int(cells(name)):,}", f"{asked:.0f}",
                      figure=more / (cells(name) - cells(small)), target=Target(0.01))
        return row
    each_row([add("ReadVSData"), add("ReDraw")])
    return table
