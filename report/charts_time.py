"""Speed: times of all parties, and by what factor the peers are slower or faster."""

from charts import chart, panel, series, view
from families import FAMILIES, PARTIES, peers_of
from measurements import rounded


def ratios(measurements, family, precision, peer):
    """[x, peer's time / our time], with gaps where the peer has no such transform."""
    by_x = measurements.times[family.id, precision]
    return [[x, times[peer] / times["ours"] if peer in times else None]
            for x, times in sorted(by_x.items())]


def _ratio_view(measurements, family):
    def series_of(precision):
        return [series(peer, f"{PARTIES[peer]} / this library",
                       [[x, rounded(y)] for x, y in ratios(measurements, family, precision, peer)])
                for peer in peers_of(family)]
    return view(family, [panel(family, precision, series_of(precision))
                         for precision in ("32", "64")],
                note=_note(family))


def _time_view(measurements, family):
    def series_of(precision):
        by_x = sorted(measurements.times[family.id, precision].items())
        return [series(party, PARTIES[party],
                       [[x, rounded(times.get(party))] for x, times in by_x])
                for party in ("ours", *peers_of(family))]
    return view(family, [panel(family, precision, series_of(precision))
                         for precision in ("32", "64")],
                note=_note(family))


def _note(family):
    if family.id == "wht":
        return ("FFTW and KissFFT have no Walsh-Hadamard transform. The loop is a copy and three"
                " nested loops in place, by the same compiler at \u2011O3.")
    if family.id == "dct4":
        return ("KissFFT has no DCT-IV. REDFT11 is FFTW's own; the composed one is FFTW's complex"
                " DFT of half the length between two loops of twiddle factors, at \u2011O3."
                " A plan of FFTW's may take 20 s.")
    if family.id == "hartley":
        return "KissFFT has no Hartley transform. FFTW's is its DHT."
    if family.id == "real_inv":
        return ("KissFFT transforms real signals of even length only, and has no inverse of them in"
                " double precision.")
    if family.id == "real_fwd":
        return "KissFFT transforms real signals of even length only."
    return ""


def charts(measurements):
    return [
        chart("speedup", "How many times as fast",
              "Time of each peer divided by the time of this library. Above the line at 1 this"
              " library is the faster one.",
              {"label": "time of the peer / ours", "unit": "×", "log": True, "reference": 1},
              {family.id: _ratio_view(measurements, family) for family in FAMILIES}),
        chart("time", "Time for one transform",
              "Out of place, unscaled, on aligned arrays that earlier calls have brought into the"
              " caches; the fastest of many batches of calls.",
              {"label": "nanoseconds", "unit": "ns", "log": True},
              {family.id: _time_view(measurements, family) for family in FAMILIES}),
    ]
