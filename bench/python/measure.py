#!/usr/bin/python3
"""Measures the Python package side by side with numpy.fft and scipy.fft.

A call makes its result array, as users' calls do. The parties take turns on the same array, and of each
the fastest call counts, since disturbances only ever add time. A time counts only after the result has
been compared with SciPy's. A copy of the array shows what its way through memory takes.
"""

import argparse
import itertools
import json
import math
import platform
import re
import sys
from pathlib import Path
from time import perf_counter_ns

import numpy as np
import scipy
import scipy.fft

import qsvgen
from cases import LAYOUTS, all_cases

PEERS = ("scipy", "numpy")
TOLERANCE = {"32": 1e-5, "64": 1e-13}
VECTOR_CALLS = 2000  # of one measurement


def calls_of(case, array):
    """Each party's call, without arguments; all do the same."""
    def bound(function):
        if case.layout == "vector" and case.function != "irfft":
            return lambda: function(array)
        if case.function == "irfft":
            return lambda: function(array, case.length, case.axis)
        return lambda: function(array, axis=case.axis)
    return {"ours": bound(getattr(qsvgen, case.function)),
            "scipy": bound(getattr(scipy.fft, case.function)),
            "numpy": bound(getattr(np.fft, case.function)),
            # Reads and writes as many bytes, but for the two elements by which a half spectrum is longer.
            "copy": array.copy}


def nanoseconds_of(call, repeats):
    """Of a call, once the loop has begun."""
    counter = itertools.repeat(None, repeats)
    begin = perf_counter_ns()
    for _ in counter:
        call()
    return (perf_counter_ns() - begin) / repeats


def check(case, calls):
    ours, wanted = calls["ours"](), calls["scipy"]()
    error = np.abs(ours - wanted).max() / np.abs(wanted).max()
    if ours.dtype != wanted.dtype or error > TOLERANCE[case.precision]:
        sys.exit(f"measure.py: {case.name}: {ours.dtype} with an error of {error:.2g}")


def measured(case, rounds):
    calls = calls_of(case, case.array())
    check(case, calls)
    repeats = VECTOR_CALLS if case.layout == "vector" else 1
    times = {party: math.inf for party in calls}
    for _ in range(rounds):
        for party, call in calls.items():
            times[party] = min(times[party], nanoseconds_of(call, repeats))
    return {"family": case.family, "type": case.type, "layout": case.layout, "length": case.length,
            **{f"{party}_ns": time / case.transforms for party, time in times.items()}}


def geometric_mean(values):
    values = list(values)
    return math.exp(sum(map(math.log, values)) / len(values))


def summary(results):
    """Lines: means over the lengths of how many times as long a peer takes."""
    lines = [f"{'transform':17} {'type':5} {'layout':7} {'ours, 16':>10}  {'scipy.fft / ours':>24}"
             f"  {'numpy.fft / ours':>24}",
             f"{'':17} {'':5} {'':7} {'':>10}  {'mean':>6} {'worst':>8} {'best':>8}  {'mean':>6} {'worst':>8} {'best':>8}"]
    def key(row):
        return row["family"], row["type"], row["layout"]
    for where, group in itertools.groupby(results, key):
        rows = list(group)
        line = f"{where[0]:17} {where[1]:5} {where[2]:7} "
        line += next((f"{row['ours_ns']:7.1f} ns" for row in rows if row["length"] == 16), "").rjust(10)
        for peer in PEERS:
            ratios = [row[f"{peer}_ns"] / row["ours_ns"] for row in rows]
            line += f"  {geometric_mean(ratios):6.2f} {min(ratios):8.2f} {max(ratios):8.2f}"
        lines.append(line)
    lines.append("")
    for layouts, name in ((("rows", "middle"), "batches"), (("vector",), "one vector")):
        rows = [row for row in results if row["layout"] in layouts]
        if rows:
            means = ", ".join(
                f"{peer}.fft / ours {geometric_mean(row[f'{peer}_ns'] / row['ours_ns'] for row in rows):.2f}"
                for peer in PEERS)
            lines.append(f"geometric mean of {len(rows)} cases, {name}: {means}")
            if "vector" not in layouts:
                copies = [geometric_mean(row[f"{party}_ns"] / row["copy_ns"] for row in rows)
                          for party in ("ours", "scipy")]
                lines.append(f"a copy of the array alone: ours / copy {copies[0]:.2f}, scipy.fft / copy {copies[1]:.2f}")
    return lines


def context(quick):
    cpu = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text())
    return {"cpu": cpu[1] if cpu else platform.processor(), "target_code": qsvgen.target_code(),
            "python": platform.python_version(), "numpy": np.__version__, "scipy": scipy.__version__,
            "quick": quick}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--out", type=Path, required=True, help="stem of the file to write: .json")
    parser.add_argument("--filter", default="", help="only cases whose names match, e.g. dft_real/fwd/15/32f/rows")
    parser.add_argument("--quick", action="store_true", help="fewer rounds")
    options = parser.parse_args()
    about = context(options.quick)
    for name, value in about.items():
        print(f"{name:12} {value}")
    cases = [case for case in all_cases() if re.search(options.filter, case.name)]
    if not cases:
        sys.exit(f"measure.py: no case matches '{options.filter}'")
    results = [measured(case, 7 if options.quick else 60) for case in cases]
    options.out.with_name(options.out.name + ".json").write_text(
        json.dumps({"context": about, "layouts": list(LAYOUTS), "results": results}, indent=1) + "\n")
    print()
    print("\n".join(summary(results)))


if __name__ == "__main__":
    main()
