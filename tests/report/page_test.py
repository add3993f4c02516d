#!/usr/bin/python3
"""The page shows what was measured, and the check of this sees every way in which it might not.

page_test.py SOURCE BUILD FOLDER TARGET: measures a few lengths by the programs of BUILD into FOLDER.
"""

import os
import re
import subprocess
import sys
import unittest
from pathlib import Path

SOURCE, BUILD, FOLDER = (Path(argument) for argument in sys.argv[1:4])
TARGET = sys.argv[4]
sys.path.insert(0, str(SOURCE / "report"))

from browser import browser  # noqa: E402
from check_page import PageCheck  # noqa: E402
from compose import compose  # noqa: E402
from measurements import MeasurementError  # noqa: E402

MEASUREMENTS = FOLDER / "measurements"


def setUpModule():
    core = max(os.sched_getaffinity(0))
    subprocess.run([SOURCE / "report/measure", MEASUREMENTS, TARGET, BUILD, str(core), "page_test",
                    "--quick", "--few"], check=True)


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.html = compose(MEASUREMENTS)
        cls.open_browser = browser()
        cls.driver = cls.open_browser.__enter__()

    @classmethod
    def tearDownClass(cls):
        cls.open_browser.__exit__(None, None, None)

    def complaints_of(self, html, first_only=False):
        page = FOLDER / f"{self._testMethodName}.html"
        page.write_text(html)
        return PageCheck(self.driver, page, MEASUREMENTS, first_only).run()

    maxDiff = None

    def test_a_page_shows_what_was_measured_and_asks_for_nothing(self):
        self.assertEqual([], self.complaints_of(self.html))

    def expect_complaint(self, pattern, text, replacement):
        """Breaks the page in one place; the check must say what is wrong."""
        self.assertEqual(1, self.html.count(text), f"{text} is not once in the page")
        [complaint] = self.complaints_of(self.html.replace(text, replacement), first_only=True)
        self.assertRegex(complaint, pattern)

    def test_a_point_that_is_not_drawn_is_seen(self):
        self.expect_complaint("drawn are .*in the data", ".data(series.points.filter(drawable))",
                              ".data(series.points.filter(drawable).slice(1))")

    def test_an_axis_upside_down_is_seen(self):
        self.expect_complaint("does not stand higher", "const range = [axisHeight(view), PANEL.top];",
                              "const range = [PANEL.top, axisHeight(view)];")

    def test_a_figure_that_was_not_measured_is_seen(self):
        found = re.search(r'"id":"time".*?"points":\[\[2,([0-9.]+)\]', self.html)
        changed = found[0].replace(f"[[2,{found[1]}]", f"[[2,{float(found[1]) * 1.01:.4g}]")
        self.expect_complaint("'time', 'complex_fwd'.*measured were", found[0], changed)

    def test_a_tooltip_with_other_figures_is_seen(self):
        self.expect_complaint("the tooltip says", "`${shown(point[1])} ${yAxis.unit}`",
                              "`${shown(point[1] * 2)} ${yAxis.unit}`")

    def test_a_table_with_other_figures_is_seen(self):
        self.expect_complaint("the table has", 'enter().append("td").text(shown)',
                              'enter().append("td").text((value) => shown(value && value + 1))')

    def test_a_table_of_batches_with_other_figures_is_seen(self):
        found = re.search(r'Hartley</th><td>64f</td><td>columns</td>\s*<td class="number">255</td>\s*'
                          r'<td class="number strong">([0-9.]+)<', self.html)
        self.expect_complaint("the table of batches has", found[0],
                              found[0].replace(f">{found[1]}<", f">{float(found[1]) + 1:.2f}<"))

    def test_a_batch_that_was_not_measured_is_seen(self):
        found = re.search(r'"id":"batches".*?"points":\[\[2,([0-9.]+)\]', self.html)
        changed = found[0].replace(f"[[2,{found[1]}]", f"[[2,{float(found[1]) * 1.01:.4g}]")
        self.expect_complaint("'batches', 'complex_fwd'.*measured were", found[0], changed)

    def test_a_call_of_python_that_was_not_measured_is_seen(self):
        if not (MEASUREMENTS / "python.json").exists():
            self.skipTest("the build has no Python package")
        found = re.search(r'"id":"python".*?"points":\[\[15,([0-9.]+)\]', self.html)
        changed = found[0].replace(f"[[15,{found[1]}]", f"[[15,{float(found[1]) * 1.01:.4g}]")
        self.expect_complaint("'python', 'complex_fwd'.*measured were", found[0], changed)

    def test_a_choice_of_a_family_without_effect_is_seen(self):
        self.expect_complaint("drawn are other series|drawn are .*in the data",
                              "charts.forEach((chart) => chart.choose(chosen())));", "null);")

    def test_a_series_that_cannot_be_hidden_is_seen(self):
        self.expect_complaint("does not hide it", "this.hidden.add(name)", "this.hidden.add('')")

    def test_a_print_of_another_family_is_seen(self):
        self.expect_complaint("printed are", "chart.reset(data.families[0]));\n  });", "null);\n  });")

    def test_an_error_in_a_script_is_seen(self):
        self.expect_complaint("the browser says", '<script type="application/json"',
                              '<script>undefined.x();</script><script type="application/json"')

    def test_a_script_that_ends_early_is_seen(self):
        self.expect_complaint("has not been drawn", "  const choice = d3.selectAll", "  return;\n")

    def test_a_request_that_the_browser_refuses_is_seen(self):
        self.expect_complaint("the page asks for http://localhost:9/a.png", "<main>",
                              '<main><img alt="" src="http://localhost:9/a.png">')

    def test_a_request_is_seen(self):
        policy = re.search(r'<meta http-equiv="Content-Security-Policy".*?>', self.html, re.DOTALL)
        self.expect_complaint("the page asks for http://localhost:9/a.png", policy[0],
                              '<link rel="stylesheet" href="http://localhost:9/a.png">')

    def test_a_missing_measurement_says_what_to_do(self):
        with self.assertRaisesRegex(MeasurementError, "machine.json' is missing: run scripts/report"):
            compose(FOLDER / "nothing")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[5:], verbosity=2)
