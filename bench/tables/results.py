"""What the benchmark programs and the timed processes left in files."""

import json
from pathlib import Path

# What the benchmark library adds to a name to say how it was timed.
SUFFIXES = ("/process_time", "/real_time", "/iterations:1", "/repeats:")


class Missing(Exception):
    """A figure that was not measured, by its name."""


def plain_name(name):
    for suffix in SUFFIXES:
        name = name.split(suffix)[0]
    return name


class Benchmarks:
    """Repetitions of benchmarks, by name; times are the least processor time, in milliseconds."""

    MILLISECONDS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}

    def __init__(self):
        self._runs = {}
        self.errors = {}

    def load(self, path):
        for run in json.loads(Path(path).read_text(encoding="utf-8"))["benchmarks"]:
            if run.get("run_type", "iteration") != "iteration":
                continue
            name = plain_name(run["name"])
            if run.get("error_occurred"):
                self.errors[name] = run.get("error_message", "")
                continue
            unit = self.MILLISECONDS[run["time_unit"]]
            self._runs.setdefault(name, []).append(
                dict(run, cpu=run["cpu_time"] * unit, wall=run["real_time"] * unit))

    def names(self, start):
        return [name for name in self._runs if name.startswith(start)]

    def _all(self, name):
        if name not in self._runs:
            raise Missing(name)
        return self._runs[name]

    def time(self, name):
        return min(run["cpu"] for run in self._all(name))

    def wall(self, name):
        return min(run["wall"] for run in self._all(name))

    def counter(self, name, counter):
        return self._all(name)[-1][counter]

    def label(self, name):
        return self._all(name)[-1].get("label", "")


class Processes:
    """Whole runs of programs, by name: medians over the rounds."""

    def __init__(self):
        self._runs = {}

    def load(self, path):
        self._runs.update(json.loads(Path(path).read_text(encoding="utf-8")))

    def take(self, name):
        """Removes and gives what the file has beside the processes."""
        return self._runs.pop(name)

    def names(self, start=""):
        return [name for name in self._runs if name.startswith(start)]

    def has(self, name):
        return name in self._runs and self._runs[name]["failures"] == 0 and self._runs[name]["wall"]

    def list(self, name, figure):
        if not self.has(name):
            raise Missing(name)
        return self._runs[name][figure]

    def median(self, name, figure="wall"):
        ordered = sorted(self.list(name, figure))
        middle = len(ordered) // 2
        return ordered[middle] if len(ordered) % 2 else (ordered[middle - 1] + ordered[middle]) / 2

    def least(self, name, figure="wall"):
        return min(self.list(name, figure))

    def ratio(self, one, other, figure="wall"):
        """The median of one by another, round by round: both had the same machine."""
        pairs = sorted(a / b for a, b in zip(self.list(one, figure), self.list(other, figure)))
        middle = len(pairs) // 2
        return pairs[middle] if len(pairs) % 2 else (pairs[middle - 1] + pairs[middle]) / 2
