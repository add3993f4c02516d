#!/usr/bin/env python3
"""Draws how the arrays of the transforms are laid out: draw_layouts.py FOLDER"""

import pathlib
import sys

CELL = 46
HEIGHT = 34
LABEL = 150
COLOURS = {"re": "#cfe3f5", "im": "#f8dcc4", "zero": "#ececec", "x": "#dbead0"}


def cell(left, top, text, kind, index):
    middle = left + CELL / 2
    return [
        f'<rect x="{left}" y="{top}" width="{CELL}" height="{HEIGHT}" fill="{COLOURS[kind]}"/>',
        f'<text x="{middle}" y="{top + 22}" class="value">{text}</text>',
        f'<text x="{middle}" y="{top + HEIGHT + 13}" class="index">{index}</text>',
    ]


def row(top, label, cells):
    lines = [f'<text x="{LABEL - 12}" y="{top + 22}" class="label">{label}</text>']
    for index, (text, kind) in enumerate(cells):
        lines += cell(LABEL + CELL * index, top, text, kind, index)
    return lines


def framed(title, width, height, lines):
    """The lines as a picture of its own, under their title."""
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}"'
        f' viewBox="0 0 {width} {height}" role="img" aria-label="{title}">',
        "<style>text{font-family:sans-serif;fill:#222}.title{font-size:14px;font-weight:bold}"
        ".label{font-size:13px;text-anchor:end}.value{font-size:13px;text-anchor:middle}"
        ".index{font-size:10px;text-anchor:middle;fill:#666}rect{stroke:#555}</style>",
        f'<rect width="{width}" height="{height}" style="fill:#fff;stroke:none"/>',
        f'<text x="10" y="22" class="title">{title}</text>',
        *lines, "</svg>", "",
    ])


def picture(title, rows):
    """`rows` are pairs of a label and its cells, each a text and a kind."""
    width = LABEL + CELL * max(len(cells) for _, cells in rows) + 10
    step = HEIGHT + 30
    lines = [line for place, (label, cells) in enumerate(rows) for line in row(38 + step * place, label, cells)]
    return framed(title, width, 40 + step * len(rows), lines)


def bins(first, last):
    return [part for k in range(first, last + 1) for part in ((f"R{k}", "re"), (f"I{k}", "im"))]


def spectra(length):
    zero = ("0", "zero")
    half = length // 2
    if length % 2:
        pack = [("R0", "re"), *bins(1, half)]
        rows = {"CCS": [("R0", "re"), zero, *bins(1, half)], "Pack, Perm": pack}
    else:
        middle = (f"R{half}", "re")
        inner = bins(1, half - 1)
        rows = {
            "CCS": [("R0", "re"), zero, *inner, middle, zero],
            "Pack": [("R0", "re"), *inner, middle],
            "Perm": [("R0", "re"), middle, *inner],
        }
    signal = [(f"x{n}", "x") for n in range(length)]
    return picture(f"Real input of {length} points and its spectrum", [("signal", signal), *rows.items()])


def interleaved():
    cells = [part for n in range(4) for part in ((f"re{n}", "re"), (f"im{n}", "im"))]
    return picture("4 complex elements, as an array of 8 real ones", [("Complex32, 64", cells)])


def hadamard():
    natural = [(f"{k:03b}", "x") for k in range(8)]
    changes = [[bin(k & n).count("1") % 2 for n in range(8)] for k in range(8)]
    sequency = [sum(a != b for a, b in zip(line, line[1:])) for line in changes]
    return picture(
        "Outputs of the Walsh-Hadamard transform of order 3",
        [("k, natural order", natural), ("changes of sign", [(str(s), "zero") for s in sequency])],
    )


def main():
    folder = pathlib.Path(sys.argv[1])
    pictures = {
        "layout_complex": interleaved(),
        "layout_even": spectra(8),
        "layout_odd": spectra(7),
        "layout_hadamard": hadamard(),
    }
    for name, text in pictures.items():
        (folder / f"{name}.svg").write_text(text)


if __name__ == "__main__":
    main()
