#!/usr/bin/python3
"""Composes the report, one HTML page that needs no network, of a folder of measurements."""

import argparse
import json
import sys
from pathlib import Path

import jinja2

import charts_accuracy
import charts_batches
import charts_cycles
import charts_operations
import charts_python
import charts_size
import charts_time
import summary
from families import FAMILIES
from measurements import MeasurementError, Measurements

HERE = Path(__file__).parent
# Debian's node-d3.
D3 = Path("/usr/share/nodejs/d3/dist/d3.min.js")


def inline_json(data):
    # "</script>" in a text would end the element that the data stands in.
    return json.dumps(data, separators=(",", ":"), ensure_ascii=False).replace("<", "\\u003c")


def compose(folder, d3_path=D3):
    measurements = Measurements(folder)
    if not d3_path.is_file():
        raise MeasurementError(f"'{d3_path}' is missing: run scripts/bootstrap, which installs it")
    rows = summary.rows(measurements)
    charts = [chart for module in (charts_time, charts_batches, charts_python, charts_cycles, charts_accuracy,
                                   charts_operations, charts_size)
              for chart in module.charts(measurements)]
    data = {"families": [{"id": family.id, "name": family.name} for family in FAMILIES],
            "overview": summary.overview(rows), "charts": charts}
    environment = jinja2.Environment(loader=jinja2.FileSystemLoader(HERE), autoescape=True,
                                     trim_blocks=True, lstrip_blocks=True,
                                     undefined=jinja2.StrictUndefined)
    return environment.get_template("page.html.j2").render(
        machine=measurements.machine, clocks=measurements.clocks,
        context=measurements.context["32fc"], rows=rows,
        batch_rows=summary.batch_rows(measurements), batch_context=measurements.context["batch"],
        charts=charts, families=FAMILIES, data=inline_json(data),
        style=(HERE / "style.css").read_text(), d3=d3_path.read_text(),
        scripts=[(HERE / name).read_text()
                 for name in ("marks.js", "overview.js", "chart.js", "page.js")])


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("measurements", type=Path, help="folder that scripts/report has measured into")
    parser.add_argument("page", type=Path, help="the HTML file to write")
    arguments = parser.parse_args()
    try:
        page = compose(arguments.measurements)
    except MeasurementError as error:
        sys.exit(f"compose.py: {error}")
    arguments.page.parent.mkdir(parents=True, exist_ok=True)
    arguments.page.write_text(page)


if __name__ == "__main__":
    main()
