"""Operations of each kernel beside the table that the tests hold them to."""

from charts import categories, chart, panel, series, view
from families import FAMILIES

BODIES = ("analysis", "synthesis", "dft", "inline")


def _copies(family, precision, length):
    """Short functions of complex doubles hold the arithmetic twice, and their rows count both."""
    return 2 if family.manifest == "dft_complex" and precision == "64" and length <= 4 else 1


def _of_dft(measurements, family, precision):
    """x -> (additions, products, those of the table)"""
    found = {}
    for length in measurements.times[family.id, precision]:
        row = measurements.manifests[family.manifest][family.kernel(length, precision)]
        copies = _copies(family, precision, length)
        additions = int(row["sums"]) + int(row.get("differences", 0))
        found[length] = (copies * additions, copies * int(row["products"]),
                         int(row["table_sums"]), int(row["table_products"]))
    return found


def _of_table(measurements, rows):
    return {x: (int(row["sums"]) + int(row["differences"]), int(row["products"]),
                measurements.expected[row["kernel"]]["additions"],
                measurements.expected[row["kernel"]]["products"])
            for x, row in rows.items()}


def counts(measurements, family, precision):
    manifest = measurements.manifests[family.manifest]
    suffix = family.type(precision)
    if family.id == "wht":
        orders = measurements.times[family.id, precision]
        return _of_table(measurements, {x: manifest[family.kernel(x, precision)] for x in orders})
    if family.id == "dct4":
        rows = {}
        for body in BODIES:
            for rule in range(1, 7):
                row = manifest.get(f"dct4_{body}_{rule}_{suffix}")
                if row is not None:
                    rows[f"{body} {2**rule}"] = row
        return _of_table(measurements, rows)
    return _of_dft(measurements, family, precision)


def exceeds(family, precision, found):
    additions, products, table_additions, table_products = found
    if family.manifest == "dft_complex" and precision == "32":
        return additions + products > table_additions + table_products
    return additions > table_additions or products > table_products


def _view(measurements, family):
    def series_of(precision):
        found = counts(measurements, family, precision)
        xs = list(found) if family.id == "dct4" else sorted(found)
        def column(index):
            return [[x, found[x][index]] for x in xs]
        return [series("ours", "additions", column(0)),
                series("table_additions", "additions, table", column(2)),
                series("products", "products", column(1)),
                series("table_products", "products, table", column(3))]
    panels = [panel(family, precision, series_of(precision)) for precision in ("32", "64")]
    if family.id == "dct4":
        return view(family, panels, note="Of each straight-line body, by its kind and its points;"
                    " plans run them in loops.", x_axis=categories("body"))
    notes = {"wht": "Of what a function writes out: bodies of long transforms run in loops.",
             "dft_complex": "Operations on vectors. In single precision the table bounds the two"
                            " together. Those in binary64 inside binary32 kernels (lengths 3 and 5)"
                            " are not in it; in double precision it counts both copies of the"
                            " arithmetic up to length 4.",
             "dft_real": "Without the products by the scale factor and by 2.",
             "hartley": "Without the products by the scale factor."}
    return view(family, panels, note=notes[family.id if family.id == "wht" else family.manifest])


def charts(measurements):
    return [chart(
        "operations", "Operations, and the table they are held to",
        "Additions and subtractions, and products, as the kernel compiler counts them, beside the"
        " table that a test holds every kernel to: none may take more.",
        {"label": "operations", "unit": "", "log": True},
        {family.id: _view(measurements, family) for family in FAMILIES})]
