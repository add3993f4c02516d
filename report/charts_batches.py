"""Batches: how much faster than peers, and what a transform costs by how many a call has."""

from charts import batch_panel, chart, series, view
from families import BATCH_LAYOUTS, BATCH_PEERS, FAMILIES, PARTIES, PRECISIONS
from measurements import rounded

MOST_SHOWN = 64  # transforms of a call


def ratios(measurements, family, precision, layout, count, peer):
    """[x, peer's time / our time]"""
    by_x = measurements.batches.get((family.id, precision, layout, count), {})
    return [[x, times[peer] / times["ours"]] for x, times in sorted(by_x.items())]


def counts_of(measurements, family):
    """Transforms of the calls that were measured beside peers, the most first."""
    return sorted({count for measured, _, _, count in measurements.batches
                   if measured == family.id}, reverse=True)


def _panels(family, series_of):
    return [batch_panel(family, precision, layout, series_of(precision, layout))
            for precision in PRECISIONS for layout in BATCH_LAYOUTS]


def _ratio_view(measurements, family):
    if not family.has_batches:
        return view(family, [], note=_note(family))
    counts = counts_of(measurements, family)

    def series_of(precision, layout):
        return [series(f"{peer}_few" if count < max(counts) else peer,
                       f"{PARTIES[peer]} / this library, {count} transforms",
                       [[x, rounded(y)] for x, y in
                        ratios(measurements, family, precision, layout, count, peer)])
                for count in counts for peer in BATCH_PEERS]
    return view(family, _panels(family, series_of), note=_note(family))


def _cost_view(measurements, family):
    x_axis = {"kind": "linear", "label": "transforms of a call", "heading": "count "}
    if not family.has_batches:
        return view(family, [], note=_note(family), x_axis=x_axis)

    def series_of(precision, layout):
        sizes = sorted(size for measured, *where, size in measurements.batch_costs
                       if measured == family.id and where == [precision, layout])
        found = []
        for role, size in enumerate(sizes):
            by_count = sorted(measurements.batch_costs[family.id, precision, layout, size].items())
            # Those around 256 would stand on one another.
            by_count = [point for point in by_count if point[0] <= MOST_SHOWN]
            name = f"{family.x_heading}{size}"
            found.append(series(f"cost_{role}", name,
                                [[count, rounded(times["ours"])] for count, times in by_count]))
            found.append(series(f"cost_{role}_single", f"{name}, single calls in a loop",
                                [[count, rounded(times["single_calls"])]
                                 for count, times in by_count]))
        return found
    return view(family, _panels(family, series_of), x_axis=x_axis)


def _note(family):
    if not family.has_batches:
        return f"There are no batches of the {family.name}."
    if family.id == "wht":
        return ("FFTW's transform is one of as many dimensions of length 2 as the order tells."
                " Columns of single calls are copied in and out.")
    if family.id in ("real_fwd", "real_inv"):
        return ("In columns FFTW's spectra have complex elements side by side, ours rows of real"
                " parts and rows of imaginary ones. Columns of single calls are copied in and out.")
    return "Columns of single calls are copied in and out."


def charts(measurements):
    return [
        chart("batches", "Batches: how many times as fast",
              "Time of each peer divided by the time of this library for the same batch, one transform"
              " behind the other (contiguous) or side by side (columns). FFTW transforms it by a plan"
              " for many.",
              {"label": "time of the peer / ours", "unit": "\u00d7", "log": True, "reference": 1},
              {family.id: _ratio_view(measurements, family) for family in FAMILIES}),
        chart("batch_cost", "Batches: time for one transform, by how many a call has",
              "The time of a call divided by the transforms it has.",
              {"label": "nanoseconds", "unit": "ns", "log": True},
              {family.id: _cost_view(measurements, family) for family in FAMILIES}),
    ]
