"""Prints the figures of benchmark runs beside the wanted ones.

    ratio_table.py RESULT.json...

A benchmark says what is wanted of it by its label; cmake/VantryHelpers.cmake
lists the forms.
"""

import json
import re
import sys
from pathlib import Path

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def medians(result):
    """Median time in nanoseconds and label of each benchmark, by its name."""
    runs = {}
    for run in json.loads(Path(result).read_text())["benchmarks"]:
        if run.get("aggregate_name", "median") == "median":
            runs[run["run_name"]] = run["real_time"] * NANOSECONDS[run["time_unit"]], run.get("label", "")
    return runs


def time_of_base(runs, base, name):
    """The base has the arguments of the run itself, unless it names its own."""
    arguments = name[name.index("/"):] if "/" in name else ""
    for candidate in (base + arguments, base):
        if candidate in runs:
            return runs[candidate][0]
    sys.exit(f"{name} names {base}, which did not run")


def text_of(time):
    for unit in ("s", "ms", "us"):
        if time >= NANOSECONDS[unit]:
            return f"{time / NANOSECONDS[unit]:.2f} {unit}"
    return f"{time:.2f} ns"


def row(runs, name):
    time, label = runs[name]
    if wanted := re.fullmatch(r"at most ([\d.]+) times (\S+)", label):
        figure = time / time_of_base(runs, wanted[2], name)
        return f"{figure:.2f} times", figure <= float(wanted[1])
    if wanted := re.fullmatch(r"at least ([\d.]+) of the speed of (\S+)", label):
        figure = time_of_base(runs, wanted[2], name) / time
        return f"{figure:.2f} of the speed", figure >= float(wanted[1])
    if wanted := re.fullmatch(r"at most ([\d.]+) ns", label):
        return text_of(time), time <= float(wanted[1])
    return text_of(time), True


def main(results):
    table = [("benchmark", "measured", "wanted", "")]
    for result in results:
        runs = medians(result)
        for name in runs:
            measured, met = row(runs, name)
            table.append((f"{Path(result).stem} {name}", measured, runs[name][1], "" if met else "missed"))

    widths = [max(map(len, column)) for column in zip(*table)]
    for line in table:
        print("  ".join(text.ljust(width) for text, width in zip(line, widths)).rstrip())


main(sys.argv[1:])
