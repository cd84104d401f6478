"""Tables of whole processes: cold starts, peak memory, the control under Wine, and peers."""

import json
from pathlib import Path

from results import Missing
from sections import COLUMNS, WITHIN, each_row, floor_of
from table import Table, Target

CELL_BYTES = 6  # of the section grid: a single and a mark
PICTURES = 4    # that a control draws on, four bytes a pixel
CACHE_MB = 64   # of chunks or values read ahead, at most
BASE = "draw/base"

# The drawings whose processes are measured: name, data set, path, size. The paths have the cells
# that the benchmarks' own have.
REGIONAL = "285.025,20.017 332.42,25.5 334.89,53.23"
GLOBAL = "108,-54 252,36"
LONG = "100.001,10.005 299.99,10.015"
DRAWINGS = (
    ("regional-classic", REGIONAL, (1000, 600)),
    ("regional-classic", REGIONAL, (3840, 2160)),
    ("regional-blocks", REGIONAL, (1000, 600)),
    ("regional-levels", REGIONAL, (1000, 600)),
    ("global", GLOBAL, (1000, 600)),
    ("long", LONG, (1000, 600)),
)


def drawing_name(name, size):
    return f"draw/{name}/{size[0]}x{size[1]}"


def plan(kelvane, folder, tiny, output, runs):
    """Lines for alternate: every drawing, and one of next to nothing to compare memory with."""
    def line(name, file, path, size, count):
        words = [name, str(count), kelvane, "draw", file, "--var", "temp", "--path", path, "--size",
                 f"{size[0]}x{size[1]}", "-o", output]
        return "\t".join(words) + "\n"
    lines = [line(BASE, f"{tiny}/regional-classic.nc", "286,21 299,29", (200, 150), runs)]
    lines += [line(drawing_name(name, size), f"{folder}/{name}.nc", path, size, runs)
              for name, path, size in DRAWINGS]
    return "".join(lines)


def cold_starts(processes, benchmarks):
    table = Table("kelvane draw, from nothing to the picture file",
                  ("", "wall ms, median", "least", "processor ms", "floor of its frame, ms"))
    table.add("next to nothing (30 x 20 x 6 grid), 200x150", processes.median(BASE),
              processes.least(BASE), processes.median(BASE, "cpu"), None)
    def add(name, size):
        def row():
            full, picture = drawing_name(name, size), f"{size[0]}x{size[1]}"
            table.add(f"{name}, {picture}", processes.median(full), processes.least(full),
                      processes.median(full, "cpu"), floor_of(benchmarks, name, picture))
        return row
    each_row(add(name, size) for name, _, size in DRAWINGS)
    return table


def memory(processes, cells):
    """cells: number of cells of a data set's section, by name."""
    table = Table(
        "Peak memory of kelvane draw", ("", "peak MB", "growth MB", "bound MB", "share of bound",
                                        "target", ""),
        "The growth is over the drawing of next to nothing. The bound: three times the section "
        f"grid ({CELL_BYTES} bytes a cell) plus the {PICTURES} pictures; for netCDF-4 also the "
        f"{CACHE_MB} MB that a chunk cache may have.")
    def add(name, size):
        def row():
            full = drawing_name(name, size)
            peak = processes.median(full, "peak") / 1024
            grown = peak - processes.median(BASE, "peak") / 1024
            if name not in cells:
                raise Missing(name)
            bound = (3 * CELL_BYTES * cells[name] + PICTURES * 4 * size[0] * size[1]) / 2**20
            if name in ("regional-blocks", "regional-levels", "global"):
                bound += CACHE_MB
            table.add(full.removeprefix("draw/").replace("/", ", "), peak, grown, bound,
                      figure=grown / bound, target=Target(1))
        return row
    each_row(add(name, size) for name, _, size in DRAWINGS)
    return table


def windows(path):
    """The control on a form: the file has a JSON object a line, one for each data set."""
    table = Table(
        "A frame of the 32-bit control under Wine", COLUMNS,
        "On a form of 1000x600, wall time, the least of the frames; the floor as above, by the "
        "same library in the same process.")
    for line in Path(path).read_text(encoding="utf-8").splitlines():
        figures = json.loads(line)
        floor = min(*figures["columns"], *figures["box"]) + min(figures["fill"])
        target = Target(WITHIN) if figures["name"] == "regional-classic" else None
        for what, times in (("AdvanceTime", figures["frame"]), ("ReDraw", figures["redraw"]),
                            ("ReDraw with contour lines", figures["contours"])):
            table.add(f"{what}, {figures['name']}, {figures['cells']}", min(times), floor,
                      figure=min(times) / floor, target=target)
    return table
