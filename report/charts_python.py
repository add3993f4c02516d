"""The Python package: how much faster than scipy.fft and numpy.fft."""

from charts import batch_panel, chart, series, view
from families import FAMILIES, PRECISIONS, PYTHON_LAYOUTS, PYTHON_PEERS
from measurements import rounded


def ratios(measurements, family, precision, layout, peer):
    """[length, peer's time / our time]"""
    by_length = measurements.python.get((family.id, precision, layout), {})
    return [[length, times[peer] / times["ours"]] for length, times in sorted(by_length.items())]


def _view(measurements, family):
    if not any(measured == family.id for measured, _, _ in measurements.python):
        return view(family, [], note=f"Neither scipy.fft nor numpy.fft has been measured with the {family.name}.")
    panels = [batch_panel(family, precision, title,
                          [series(peer, f"{name} / this package",
                                  [[length, rounded(ratio)] for length, ratio in
                                   ratios(measurements, family, precision, layout, peer)])
                           for peer, name in PYTHON_PEERS.items()])
              for precision in PRECISIONS for layout, title in PYTHON_LAYOUTS.items()]
    about = measurements.context["python"]
    return view(family, panels, note=f"SciPy {about['scipy']}, NumPy {about['numpy']}, Python {about['python']}; the"
                                     f" library is that of {about['target_code']}.")


def charts(measurements):
    if not measurements.python:
        return []
    return [chart("python", "Python: how many times as fast",
                  "Time of a call of scipy.fft or numpy.fft divided by that of the same call of the Python package;"
                  " each makes the array of its result.",
                  {"label": "time of the peer / ours", "unit": "\u00d7", "log": True, "reference": 1},
                  {family.id: _view(measurements, family) for family in FAMILIES})]
