"""The table on top: geometric means and worst cases; and the picture of them."""

import math

import charts_batches
import charts_cycles
import charts_operations
import charts_size
import charts_time
from families import BATCH_LAYOUTS, BATCH_PEERS, FAMILIES, PARTIES, PRECISIONS, peers_of
from measurements import rounded


def _geometric_mean(values):
    return math.exp(sum(map(math.log, values)) / len(values))


def _spread(points):
    """Of [x, value]: geometric mean, least and largest, and where these are."""
    known = [(value, x) for x, value in points if value is not None]
    if not known:
        return None
    least, largest = min(known), max(known)
    return {"mean": rounded(_geometric_mean([value for value, _ in known])),
            "least": rounded(least[0]), "least_at": least[1],
            "largest": rounded(largest[0]), "largest_at": largest[1],
            "behind": sum(value < 1 for value, _ in known), "of": len(known)}


def _error_spread(measurements, family, precision):
    """Our error as a multiple of the first peer's."""
    peer = peers_of(family)[0]
    errors = measurements.errors[family.id, precision]
    return _spread([[x, by_party["ours"] / by_party[peer]]
                    for x, by_party in sorted(errors.items()) if by_party[peer] > 0])


def _operations(measurements, family, precision):
    found = charts_operations.counts(measurements, family, precision)
    def total(columns):
        return sum(columns)
    return {"fewer": sum(total(row[:2]) < total(row[2:]) for row in found.values()),
            "equal": sum(total(row[:2]) == total(row[2:]) for row in found.values()),
            "more": sum(charts_operations.exceeds(family, precision, row)
                        for row in found.values())}


def _code_bytes(measurements, family, precision):
    found = charts_size.sizes(measurements, family, precision)
    return sum(own + (twin or 0) for own, twin in found.values())


def rows(measurements):
    """A row for each family and precision."""
    found = []
    for family in FAMILIES:
        for precision in PRECISIONS:
            found.append({
                "family": family.name,
                "precision": PRECISIONS[precision],
                "type": family.type(precision),
                "at": "order " if family.id == "wht" else "",
                "speed": [{"role": peer, "name": PARTIES[peer],
                           "spread": _spread(charts_time.ratios(measurements, family, precision,
                                                                peer))}
                          for peer in peers_of(family)],
                "error": _error_spread(measurements, family, precision),
                "error_peer": PARTIES[peers_of(family)[0]],
                "cycles": _spread(charts_cycles.times_bound(measurements, family, precision)),
                "operations": _operations(measurements, family, precision),
                "code_bytes": _code_bytes(measurements, family, precision),
            })
    return found


def batch_rows(measurements):
    """A row for each family, precision, layout and count."""
    return [{"family": family.name, "type": family.type(precision), "layout": layout,
             "count": count, "at": "order " if family.id == "wht" else "",
             "peers": [_spread(charts_batches.ratios(measurements, family, precision, layout, count,
                                                     peer)) for peer in BATCH_PEERS]}
            for family in FAMILIES if family.has_batches for precision in PRECISIONS
            for layout in BATCH_LAYOUTS
            for count in reversed(charts_batches.counts_of(measurements, family))]


def overview(summary_rows):
    """The speed columns of the table as the page draws them."""
    return [{"label": f"{row['family']} ({row['type']})", "at": row["at"],
             "peers": [peer for peer in row["speed"] if peer["spread"] is not None]}
            for row in summary_rows]
