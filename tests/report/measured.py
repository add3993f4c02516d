"""What the page must show, straight from what the measuring programs wrote: shares nothing with the
modules that compose the page."""

import json
import math
import re

FAMILIES = {"dft_complex/fwd": "complex_fwd", "dft_complex/inv": "complex_inv",
            "dft_real/fwd": "real_fwd", "dft_real/inv": "real_inv", "hartley": "hartley",
            "walsh_hadamard": "wht", "dct4": "dct4"}
NAMES = {"fftw": "FFTW", "kissfft": "KissFFT", "redft11": "FFTW REDFT11",
         "composed": "composed of FFTW's complex DFT", "loop": "textbook loop"}
KERNELS = {"complex_fwd": "qsvgDFTFwd_CToC_{}_{}fc", "complex_inv": "qsvgDFTInv_CToC_{}_{}fc",
           "real_fwd": "qsvgDFTFwd_RToCCS_{}_{}f", "real_inv": "qsvgDFTInv_CCSToR_{}_{}f",
           "hartley": "qsvgHartley_{}_{}f", "wht": "qsvgWHT_{}_{}f"}
EPSILON = {"32": 2.0**-23, "64": 2.0**-52}


def four_digits(value):
    return float(f"{value:.4g}")


class Points(dict):
    """(chart, family, panel, series) -> {x: y}"""

    def add(self, chart, family, panel, series, x, y):
        if y is not None:
            self.setdefault((chart, family, panel, series), {})[str(x)] = four_digits(y)


def _times(folder):
    """(family, panel, x, our core cycles, {party: ns}) of everything that was timed"""
    def read(name):
        return json.loads((folder / name).read_text())
    for type_name in ("32fc", "64fc", "32f", "64f"):
        measured = read(f"transforms_{type_name}.json")
        for row in measured["results"]:
            yield (FAMILIES[row["family"]], type_name[:2], row["length"],
                   row["ours_cycles"] * measured["core_cycles_per_tsc_cycle"],
                   {"ours": row["ours_ns"], "fftw": row["peer_ns"], "kissfft": row["kissfft_ns"]})
    for row in read("walsh_hadamard.json")["results"]:
        yield ("wht", row["type"][:2], row["order"], row["ours_core_cycles"],
               {"ours": row["ours_ns"], "loop": row["loop_ns"]})
    measured = read("dct4.json")
    for row in measured["results"]:
        yield ("dct4", row["type"][:2], row["length"],
               row["ours_cycles"] * measured["core_cycles_per_tsc_cycle"],
               {"ours": row["ours_ns"], "redft11": row["redft11_ns"],
                "composed": row["composed_ns"]})


def _batches(folder, name):
    """(family, type, layout, count, x, {party: ns})"""
    for row in json.loads((folder / name).read_text())["results"]:
        yield (FAMILIES[row["family"]], row["type"], row["layout"], row["count"], row["size"],
               {party: row[f"{party}_ns"] for party in ("ours", "fftw", "single_calls")
                if f"{party}_ns" in row})


def _add_batches(points, folder):
    names = {"fftw": "FFTW", "single_calls": "single calls in a loop"}
    for family, type_name, layout, count, x, times in _batches(folder, "batch.json"):
        for peer, name in names.items():
            points.add("batches", family, f"{type_name[:2]}_{layout}",
                       f"{name} / this library, {count} transforms", x, times[peer] / times["ours"])
    costs = list(_batches(folder, "batch_counts.json"))
    # A curve has all counts.
    curves = {(family, type_name, layout, x) for family, type_name, layout, count, x, _ in costs
              if count == 3}
    for family, type_name, layout, count, x, times in costs:
        if (family, type_name, layout, x) not in curves or count > 64:
            continue
        panel, name = f"{type_name[:2]}_{layout}", f"{'order ' if family == 'wht' else 'N = '}{x}"
        points.add("batch_cost", family, panel, name, count, times["ours"])
        points.add("batch_cost", family, panel, f"{name}, single calls in a loop", count,
                   times["single_calls"])


def has_python(folder):
    """Whether the Python package was measured, which one target has."""
    return (folder / "python.json").exists()


def _add_python(points, folder):
    layouts = {"rows": "(10000, N)", "middle": "(100, N, 100)", "vector": "one vector"}
    for row in json.loads((folder / "python.json").read_text())["results"]:
        panel = f"{row['type'][:2]}_{layouts[row['layout']]}"
        for peer in ("scipy", "numpy"):
            points.add("python", FAMILIES[row["family"]], panel, f"{peer}.fft / this package", row["length"],
                       row[f"{peer}_ns"] / row["ours_ns"])


def batch_summary_of(folder):
    """(family, type, layout, count) -> mean and worst of FFTW and of single calls, as written"""
    ratios = {}
    for family, type_name, layout, count, x, times in _batches(folder, "batch.json"):
        ratios.setdefault((family, type_name, layout, str(count)), []).append(
            (x, times["fftw"] / times["ours"], times["single_calls"] / times["ours"]))
    summary = {}
    for key, rows in ratios.items():
        figures = []
        for column in (1, 2):
            mean = math.prod(row[column] for row in rows) ** (1 / len(rows))
            least, at = min((row[column], row[0]) for row in rows)
            order = "order " if key[0] == "wht" else ""
            figures += [f"{four_digits(mean):.2f}", f"{four_digits(least):.2f} ({order}{at})"]
        summary[key] = figures
    return summary


def points_of(folder):
    points = Points()
    for family, panel, x, cycles, times in _times(folder):
        points.add("cycles", family, panel, "measured", x, cycles)
        points.add("time", family, panel, "this library", x, times["ours"])
        for peer, name in NAMES.items():
            if times.get(peer) is not None:
                points.add("time", family, panel, name, x, times[peer])
                points.add("speedup", family, panel, f"{name} / this library", x,
                           times[peer] / times["ours"])
    _add_batches(points, folder)
    if has_python(folder):
        _add_python(points, folder)
    for row in json.loads((folder / "accuracy.json").read_text())["results"]:
        family, panel = FAMILIES[row["family"]], row["type"][:2]
        x = int(math.log2(row["length"])) if family == "wht" else row["length"]
        for party, name in {"ours": "this library", **NAMES}.items():
            if party in row:
                points.add("accuracy", family, panel, name, x, row[party] / EPSILON[panel])
    symbols = {name: int(size, 16) for size, name in re.findall(
        r"^\w+ (\w+) T (qsvg\w+)$", (folder / "symbols.txt").read_text(), re.MULTILINE)}
    for family, panel, x, _, _ in _times(folder):
        if family in KERNELS:
            size = symbols[KERNELS[family].format(x, panel)]
            points.setdefault(("size", family, panel, "exported function"), {})[str(x)] = size
    return points


def means_of(folder):
    """(family, panel, party) -> geometric mean of the ratios of times"""
    logarithms = {}
    for family, panel, _, _, times in _times(folder):
        for peer in NAMES:
            if times.get(peer) is not None:
                logarithms.setdefault((family, panel, peer), []).append(
                    math.log(times[peer] / times["ours"]))
    return {key: four_digits(math.exp(sum(values) / len(values)))
            for key, values in logarithms.items()}
