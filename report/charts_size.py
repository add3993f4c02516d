"""Bytes of machine code, from the built library's symbols."""

from charts import categories, chart, panel, series, view
from families import FAMILIES

# The first pattern that a function's name holds tells its part.
DCT4_PARTS = (
    ("short transforms", ("qsvgDCT4_32f", "qsvgDCT4_64f")),
    ("analyses", ("::analyse<", "env5_compute", "::analyse_recursively(")),
    ("syntheses", ("::synthesise_direct<", "::synthesise_batches<", "env4_compute")),
    ("long analyses", ("::run_parts(", "::run_split(", "env7_compute", "env9_compute")),
    ("twiddled DFTs", ("::BlocksOfDfts<", "::transform_blocks(", "::run_dfts(", "env8_compute")),
    ("plans", ("",)),
)


def _dct4_parts(measurements, precision):
    """Part -> bytes of all its functions; every function of the DCT-IV is of one part."""
    marks = (f"real{precision}::", f"DCT4_{precision}f", f"DCT4Free_{precision}f",
             f"DCT4GetSize_{precision}f", f"DCT4Init_{precision}f", f"DCT4InitAlloc_{precision}f")
    parts = {name: 0 for name, _ in DCT4_PARTS}
    for function, size in measurements.code_bytes.items():
        if not any(mark in function for mark in marks):
            continue
        part = next(name for name, patterns in DCT4_PARTS
                    if any(pattern in function for pattern in patterns))
        parts[part] += size
    return parts


def sizes(measurements, family, precision):
    """x -> (bytes of the exported function, bytes of its twin for unaligned arrays or None)"""
    if family.id == "dct4":
        return {name: (size, None) for name, size in _dct4_parts(measurements, precision).items()}
    found = {}
    for x in sorted(measurements.times[family.id, precision]):
        kernel = family.kernel(x, precision)
        found[x] = (measurements.code_bytes[kernel],
                    measurements.code_bytes.get(f"owng{kernel[4:]}_unaligned"))
    return found


def _view(measurements, family):
    def series_of(precision):
        found = sizes(measurements, family, precision)
        return [series("ours", "exported function", [[x, own] for x, (own, _) in found.items()]),
                series("twin", "twin for unaligned arrays",
                       [[x, twin] for x, (_, twin) in found.items()])]
    panels = [panel(family, precision, series_of(precision)) for precision in ("32", "64")]
    if family.id == "dct4":
        for one in panels:
            one["series"][0]["name"] = "all functions of the part"
        return view(family, panels, note="All lengths share this code.",
                    x_axis=categories("part of the code"))
    note = ("Short transforms hold the code for unaligned arrays in the exported function."
            if family.id == "wht" or family.manifest == "dft_complex" else
            "Scalar code serves arrays anywhere, so there are no twins."
            + (" In the CCS layout; the other two are alike." if "real" in family.id else ""))
    return view(family, panels, note=note)


def charts(measurements):
    return [chart(
        "size", "Code size",
        "Bytes of machine code of each function, from the symbols of the built library.",
        {"label": "bytes", "unit": "bytes", "log": True},
        {family.id: _view(measurements, family) for family in FAMILIES})]
