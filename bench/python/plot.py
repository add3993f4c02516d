#!/usr/bin/python3
"""plot.py STEM: draws what measure.py has written to STEM.json, as STEM.svg: how many times as fast."""

import json
import sys

import matplotlib

matplotlib.use("svg")
import matplotlib.pyplot as plt  # noqa: E402

TITLES = {"rows": "(10000, N), last axis", "middle": "(100, N, 100), middle axis", "vector": "one vector of N"}
COLOURS = {"dft_complex/fwd": "#0063a6", "dft_complex/inv": "#007556", "dft_real/fwd": "#c24e00",
           "dft_real/inv": "#9b3f82"}
NAMES = {"dft_complex/fwd": "fft", "dft_complex/inv": "ifft", "dft_real/fwd": "rfft", "dft_real/inv": "irfft"}


def main():
    stem = sys.argv[1]
    with open(f"{stem}.json") as file:
        measured = json.load(file)
    about, results = measured["context"], measured["results"]
    layouts = [layout for layout in measured["layouts"] if any(row["layout"] == layout for row in results)]
    figure, panels = plt.subplots(1, len(layouts), figsize=(4.6 * len(layouts), 4.2), squeeze=False)
    for panel, layout in zip(panels[0], layouts):
        for family, colour in COLOURS.items():
            for precision, style in (("32", "-o"), ("64", "--s")):
                rows = [row for row in results if row["layout"] == layout and row["family"] == family
                        and row["type"].startswith(precision)]
                panel.plot([row["length"] for row in rows], [row["scipy_ns"] / row["ours_ns"] for row in rows], style,
                           color=colour, markersize=4, linewidth=1.2,
                           label=f"{NAMES[family]}, {'single' if precision == '32' else 'double'}")
        panel.axhline(1, color="black", linewidth=0.8)
        panel.set_title(TITLES[layout], fontsize=10)
        panel.set_xlabel("length N")
        panel.set_ylim(bottom=0)
        panel.grid(alpha=0.3)
    panels[0][0].set_ylabel("time of scipy.fft / ours")
    panels[0][-1].legend(fontsize=7)
    figure.suptitle(f"{about['cpu']}; library {about['target_code']}, SciPy {about['scipy']}", fontsize=9)
    figure.tight_layout()
    figure.savefig(f"{stem}.svg")


if __name__ == "__main__":
    main()
