"""Reads a folder of measurements: what the measuring programs wrote, unchanged."""

import csv
import json
import math
import re
from pathlib import Path

from families import FAMILIES

TRANSFORM_TYPES = ("32fc", "64fc", "32f", "64f")


class MeasurementError(Exception):
    """Something is missing or is not what a measuring program writes; says what to do next."""


def rounded(value):
    """Four significant digits; what is not a number stays a gap."""
    if value is None or not math.isfinite(value):
        return None
    return value if isinstance(value, int) else float(f"{value:.4g}")


class Measurements:
    """Times, errors, counts and sizes by family, precision and x (length, or order of a WHT)."""

    def __init__(self, folder):
        self.folder = Path(folder)
        self.machine = self._json("machine.json")
        self.times = {}  # (family, precision) -> {x: {party: ns}}
        self.core_cycles = {}  # (family, precision) -> {x: cycles of the core}
        self.wht_bounds = {}  # (precision, order) -> cycles
        self.context = {}
        self.clocks = []  # core cycles in one of the time stamp counter, of each run
        self._read_transforms()
        self._read_walsh_hadamard()
        self._read_dct4()
        self.batches = {}  # (family, precision, layout, count) -> {x: {party: ns of a transform}}
        self.batch_costs = {}  # (family, precision, layout, x) -> {count: {party: ns of a transform}}
        self._read_batches()
        self.python = {}  # (family, precision, layout) -> {x: {party: ns of a transform}}
        self._read_python()
        self.errors = self._read_errors()
        counts = self._json("counts.json")
        self.expected = {row["kernel"]: row for row in counts["expected"]}
        self.dct4_plans = {(row["type"][:2], row["length"]): row for row in counts["dct4_plans"]}
        self.manifests = {
            name: {row["kernel"]: row for row in self._csv(f"manifest_{name}.csv")}
            for name in {family.manifest for family in FAMILIES}
        }
        self.instructions = {
            row["function"]: int(row["instructions"]) for row in self._csv("instructions.csv")
        }
        self.code_bytes = self._read_symbols()

    def _path(self, name):
        path = self.folder / name
        if not path.is_file():
            raise MeasurementError(
                f"'{path}' is missing: run scripts/report without --from, to measure anew")
        return path

    def _json(self, name):
        try:
            return json.loads(self._path(name).read_text())
        except json.JSONDecodeError as error:
            raise MeasurementError(
                f"'{self.folder / name}' is cut off or damaged ({error}): run scripts/report"
                " without --from, to measure anew") from error

    def _csv(self, name):
        with self._path(name).open(newline="") as file:
            return list(csv.DictReader(file))

    def _add(self, family, precision, x, times, cycles):
        key = (family, precision)
        self.times.setdefault(key, {})[x] = {
            party: ns for party, ns in times.items() if ns is not None}
        self.core_cycles.setdefault(key, {})[x] = cycles

    def _read_transforms(self):
        ids = {family.measured_as: family.id for family in FAMILIES}
        for type_name in TRANSFORM_TYPES:
            measured = self._json(f"transforms_{type_name}.json")
            self.context[type_name] = measured["context"]
            clock = measured["core_cycles_per_tsc_cycle"]
            self.clocks.append(clock)
            for row in measured["results"]:
                self._add(ids[row["family"]], type_name[:2], row["length"],
                          {"ours": row["ours_ns"], "fftw": row["peer_ns"],
                           "kissfft": row["kissfft_ns"]}, row["ours_cycles"] * clock)

    def _read_walsh_hadamard(self):
        measured = self._json("walsh_hadamard.json")
        self.clocks.append(measured["core_cycles_per_tsc_cycle"])
        for row in measured["results"]:
            precision = row["type"][:2]
            self._add("wht", precision, row["order"],
                      {"ours": row["ours_ns"], "loop": row["loop_ns"]}, row["ours_core_cycles"])
            self.wht_bounds[precision, row["order"]] = row["bound"]

    def _read_dct4(self):
        measured = self._json("dct4.json")
        clock = measured["core_cycles_per_tsc_cycle"]
        self.clocks.append(clock)
        for row in measured["results"]:
            self._add("dct4", row["type"][:2], row["length"],
                      {"ours": row["ours_ns"], "redft11": row["redft11_ns"],
                       "composed": row["composed_ns"]}, row["ours_cycles"] * clock)

    def _read_batches(self):
        ids = {family.measured_as: family.id for family in FAMILIES}

        def read(name):
            measured = self._json(name)
            self.clocks.append(measured["core_cycles_per_tsc_cycle"])
            for row in measured["results"]:
                times = {party: row.get(f"{party}_ns")
                         for party in ("ours", "fftw", "single_calls")}
                yield (ids[row["family"]], row["type"][:2], row["layout"]), row, times

        self.context["batch"] = self._json("batch.json")["context"]
        for where, row, times in read("batch.json"):
            self.batches.setdefault((*where, row["count"]), {})[row["size"]] = times
        for where, row, times in read("batch_counts.json"):
            self.batch_costs.setdefault((*where, row["size"]), {})[row["count"]] = times
        # Of most lengths only what lies around a power of two was measured.
        self.batch_costs = {where: by_count for where, by_count in self.batch_costs.items()
                            if 2 in by_count}

    def _read_python(self):
        # Targets without the package have none.
        if not (self.folder / "python.json").is_file():
            return
        measured = self._json("python.json")
        self.context["python"] = measured["context"]
        ids = {family.measured_as: family.id for family in FAMILIES}
        for row in measured["results"]:
            key = (ids[row["family"]], row["type"][:2], row["layout"])
            self.python.setdefault(key, {})[row["length"]] = {
                party: row[f"{party}_ns"] for party in ("ours", "scipy", "numpy")}

    def _read_errors(self):
        ids = {family.measured_as: family.id for family in FAMILIES}
        errors = {}
        for row in self._json("accuracy.json")["results"]:
            family, length = ids[row["family"]], row["length"]
            x = length.bit_length() - 1 if family == "wht" else length
            by_party = {party: row[party] for party in row
                        if party not in ("family", "type", "length", "inputs")}
            errors.setdefault((family, row["type"][:2]), {})[x] = by_party
        return errors

    def _read_symbols(self):
        """Bytes of each function, by its name as C++ writes it."""
        pattern = re.compile(r"^[0-9a-f]+ ([0-9a-f]+) [tTwW] (.+)$")
        matches = map(pattern.match, self._path("symbols.txt").read_text().splitlines())
        return {match[2]: int(match[1], 16) for match in matches if match}
