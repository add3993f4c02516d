#!/usr/bin/env python3
"""Draws where the transforms of batches stand in memory: draw_batches.py FOLDER"""

import pathlib
import sys

from draw_layouts import CELL, COLOURS, HEIGHT, LABEL, cell, framed

# Transform k, and what belongs to none.
COLOURS |= {0: "#cfe3f5", 1: "#f8dcc4", 2: "#dbead0", None: "#ffffff"}
STEP = HEIGHT + 24
WIDTH_OF_TITLES = 520


def row(top, label, cells):
    """`cells` are place, index, text and kind, the place in cells from the left."""
    lines = [f'<text x="{LABEL - 12}" y="{top + 22}" class="label">{label}</text>']
    for place, index, text, kind in cells:
        lines += cell(LABEL + CELL * place, top, text, kind, index)
    return lines


def picture(title, rows):
    """`rows` are pairs of a label and its cells."""
    cells = 1 + max(place for _, cells in rows for place, *_ in cells)
    width = max(LABEL + CELL * cells + 10, WIDTH_OF_TITLES)
    lines = [line for place, (label, cells) in enumerate(rows) for line in row(38 + STEP * place, label, cells)]
    return framed(title, width, 44 + STEP * len(rows), lines)


def name(transform, element):
    return f"{'abc'[transform]}{element}"


def contiguous():
    cells = [(4 * k + j, 4 * k + j, name(k, j), k) for k in range(3) for j in range(4)]
    return picture("One behind the other: length 4, count 3, stride 1, distance 4", [("array", cells)])


def columns():
    rows = [(f"row {j}", [(k, 3 * j + k, name(k, j), k) for k in range(3)]) for j in range(4)]
    return picture("Columns: length 4, count 3, stride 3, distance 1", rows)


def padded():
    rows = [(f"row {k}", [(j, 6 * k + j, name(k, j) if j < 4 else "", k if j < 4 else None) for j in range(6)])
            for k in range(3)]
    return picture("Rows of longer rows: length 4, count 3, stride 1, distance 6", rows)


def frames():
    recording = [(n, n, f"x{n}", "zero") for n in range(8)]
    rows = [(f"transform {k}", [(2 * k + j, 2 * k + j, name(k, j), k) for j in range(4)]) for k in range(3)]
    return picture("Frames that overlap: length 4, count 3, stride 1, distance 2",
                   [("recording", recording), *rows])


def in_place():
    signals = [(6 * k + j, 6 * k + j, name(k, j) if j < 4 else "", k if j < 4 else None)
               for k in range(2) for j in range(6)]
    parts = ["R0", "0", "R1", "I1", "R2", "0"]
    spectra = [(6 * k + j, 6 * k + j, part, k) for k in range(2) for j, part in enumerate(parts)]
    return picture("In place, spectra in CCS: length 4, count 2, stride 1, distance 6",
                   [("before", signals), ("after", spectra)])


def main():
    folder = pathlib.Path(sys.argv[1])
    for draw in (contiguous, columns, padded, frames, in_place):
        (folder / f"batch_{draw.__name__}.svg").write_text(draw())


if __name__ == "__main__":
    main()
