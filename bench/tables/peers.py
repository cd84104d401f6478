"""Tables of the comparison with other programs."""

import json
import sys
from pathlib import Path

from results import Processes
from sections import each_row
from table import Table, Target

PYTHON = "xarray and matplotlib"
OURS = "kelvane"
# Cases with targets: how many times quicker than Python a cold start is to be. Where every program
# has the same tens of megabytes to unpack, it is to be quicker, no more.
JUDGED = {"atlas": 20, "regional": 20, "level-chunks": 1}


def cases(processes):
    return sorted({name.split("/")[1] for name in processes.names("cold/")})


def programs(processes, case):
    names = [name.split("/")[2] for name in processes.names(f"cold/{case}/")]
    return sorted(names, key=lambda name: name != OURS)


def cold(processes, case, python):
    table = Table(f"From nothing to a PNG: {case}",
                  ("", "wall ms, median", "processor ms", "peak MB", "processor: times ours",
                   "wall: times ours", "target", ""))
    mine = f"cold/{case}/{OURS}"
    for program in programs(processes, case):
        def row(program=program):
            name = f"cold/{case}/{program}"
            target = None
            if program != OURS and python:
                target = Target(python if program == PYTHON else 1, least=True)
            table.add(program, processes.median(name), processes.median(name, "cpu"),
                      processes.median(name, "peak") / 1024, processes.ratio(name, mine, "cpu"),
                      figure=processes.ratio(name, mine), target=target)
        each_row([row])
    return table


def frame_time(processes, case, program, figure="wall"):
    """The cost of a further time step: many steps less one step, of the same program. The least
    of each, since what disturbs a difference only ever adds to its parts."""
    many = processes.least(f"steps/{case}/{program}", figure)
    one = processes.least(f"cold/{case}/{program}", figure)
    return (many - one) / (processes.steps - 1)


def frames(processes, case, judged):
    table = Table(f"A further time step, with its PNG: {case}",
                  ("", "wall ms", "processor ms", "processor: times ours", "wall: times ours",
                   "target", ""))
    rows = []
    for program in programs(processes, case):
        def row(program=program):
            mine, mine_cpu = (frame_time(processes, case, OURS, figure)
                              for figure in ("wall", "cpu"))
            theirs, theirs_cpu = (frame_time(processes, case, program, figure)
                                  for figure in ("wall", "cpu"))
            target = Target(2, least=True) if program != OURS and judged else None
            table.add(program, theirs, theirs_cpu, theirs_cpu / mine_cpu,
                      figure=theirs / mine, target=target)
        rows.append(row)
    each_row(rows)
    return table


def tables(path):
    """Every case's two tables. The file has the processes, and beside them how many steps the
    longer runs draw and which case has targets."""
    runs = Processes()
    runs.load(path)
    about = runs.take("about")
    runs.steps = about["steps"]
    made = []
    for case in cases(runs):
        python = about["judged"].get(case)
        made += [cold(runs, case, python), frames(runs, case, bool(python))]
    return made


def main():
    """peers.py PART STEPS: prints the processes of a run with what the tables must know of it."""
    runs = json.loads(Path(sys.argv[1]).read_text(encoding="utf-8"))
    runs["about"] = {"steps": int(sys.argv[2]), "judged": JUDGED}
    print(json.dumps(runs))


if __name__ == "__main__":
    main()
