"""Cycles of a transform beside what the processor's ports and its front end need at least."""

from charts import chart, panel, series, view
from families import FAMILIES
from measurements import rounded


def port_bound(measurements, family, precision, x):
    """Two arithmetic instructions, one lane move, two loads and one store a cycle."""
    if family.id == "wht":
        return measurements.wht_bounds[precision, x]
    if family.id == "dct4":
        row = measurements.dct4_plans[precision, x]
        return max(row["arithmetic"] / 2, row["shuffles"], row["loads"] / 2, row["stores"])
    row = measurements.manifests[family.manifest][family.kernel(x, precision)]
    number = {name: int(value) for name, value in row.items() if value.isdigit()}
    if family.manifest == "dft_complex":
        arithmetic = sum(number[name] for name in (
            "sums", "differences", "products", "wide_sums", "wide_differences", "wide_products"))
        shuffles = number["shuffles"]
    else:
        # Each output is multiplied by the scale, each bin that stands for two by 2.
        arithmetic = (number["sums"] + number["products"] + x + number["doubled_inputs"]
                      + number["conversions"])
        shuffles = number["conversions"]
    return max(arithmetic / 2, shuffles, number["loads"] / 2, number["stores"])


def front_end_bound(measurements, family, precision, x):
    """Four instructions a cycle; None where a function is not one straight line."""
    # The shortest functions hold a line for aligned arrays and one for others.
    if family.id in ("wht", "dct4") or x <= 5:
        return None
    kernel = family.kernel(x, precision)
    row = measurements.manifests[family.manifest][kernel]
    # A conversion is two operations of the machine.
    return (measurements.instructions[kernel] + int(row.get("conversions", 0))) / 4


def times_bound(measurements, family, precision):
    """[x, measured cycles / port bound]"""
    by_x = sorted(measurements.core_cycles[family.id, precision].items())
    return [[x, cycles / port_bound(measurements, family, precision, x)] for x, cycles in by_x]


def _view(measurements, family):
    def series_of(precision):
        by_x = sorted(measurements.core_cycles[family.id, precision].items())
        bound = [[x, rounded(port_bound(measurements, family, precision, x))] for x, _ in by_x]
        front = [[x, rounded(front_end_bound(measurements, family, precision, x))]
                 for x, _ in by_x]
        return [series("ours", "measured", [[x, rounded(cycles)] for x, cycles in by_x]),
                series("ports", "bound by the ports", bound),
                series("front_end", "bound by the front end", front)]
    note = {"wht": "Of all passes together, and of half the additions, half the loads and the stores"
                   " alone. The functions hold loops, so no front-end bound is told.",
            "dct4": "Operations of all stages of the plan, those that its tables feed among them;"
                    " the functions hold loops, so no front-end bound is told."}
    return view(family, [panel(family, precision, series_of(precision))
                         for precision in ("32", "64")],
                note=note.get(family.id, "The front end's bound is told from 6 points on: shorter"
                                         " functions hold their code twice."))


def charts(measurements):
    return [chart(
        "cycles", "Cycles, and what the machine takes at least",
        "Measured: cycles of the time stamp counter, multiplied by the core cycles in one of them,"
        " which a chain of dependent additions told in the same run. Ports: the largest of half the"
        " arithmetic instructions (conversions among them), the lane moves, half the loads, and the"
        " stores, as the kernel compiler counts them. Front end: a quarter of the instructions in"
        " the machine code, conversions counted twice.",
        {"label": "core cycles", "unit": "cycles", "log": True},
        {family.id: _view(measurements, family) for family in FAMILIES})]
