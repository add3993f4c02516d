"""Relative errors in units of the precision's epsilon."""

from charts import chart, panel, series, view
from families import FAMILIES, PARTIES, peers_of
from measurements import rounded

EPSILON = {"32": 2.0**-23, "64": 2.0**-52}


def _view(measurements, family):
    def series_of(precision):
        by_x = sorted(measurements.errors[family.id, precision].items())
        def points(party):
            return [[x, rounded(errors[party] / EPSILON[precision]) if party in errors else None]
                    for x, errors in by_x]
        return [series(party, PARTIES[party], points(party))
                for party in ("ours", *peers_of(family))]
    # Debian compiles it for the oldest processors of either architecture.
    kissfft = {"libqsvgent7": "KissFFT in single precision is the packaged library, whose code for the x87 unit"
                              " rounds intermediate results to 64 bits."}
    notes = {"wht": "Both give the same bits, so their errors are one.",
             "dct4": "FFTW by FFTW_MEASURE."}
    of_kissfft = kissfft.get(measurements.machine["library"], "") if "kissfft" in peers_of(family) else ""
    note = notes.get(family.id, of_kissfft)
    return view(family, [panel(family, precision, series_of(precision))
                         for precision in ("32", "64")], note=note)


def charts(measurements):
    return [chart(
        "accuracy", "Accuracy",
        "Relative error in the Euclidean norm, root mean square over random inputs that are uniform"
        " in [-1, 1], against an evaluation in 80-bit arithmetic that shares nothing with the"
        " library; in units of eps = 2\u207b\u00b2\u00b3 (single) and 2\u207b\u2075\u00b2 (double). Less is better.",
        {"label": "relative error / eps", "unit": "eps", "log": False},
        {family.id: _view(measurements, family) for family in FAMILIES})]
