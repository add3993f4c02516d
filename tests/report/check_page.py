"""Opens a page in a browser and says what is wrong with it."""

import json

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

from measured import batch_summary_of, has_python, means_of, points_of

CHARTS = ("speedup", "time", "batches", "batch_cost", "python", "cycles", "accuracy", "operations", "size")

# Everything that all charts show of the chosen family, in one call.
READ_POINTS = """
  return [...document.querySelectorAll('section.chart svg[data-panel] .point')].map((mark) => {
    const [, left, top] = mark.getAttribute('transform').match(/translate\\(([^,]+),([^)]+)\\)/);
    return {chart: mark.closest('section').id, panel: mark.closest('svg').dataset.panel,
            series: mark.dataset.series, x: mark.dataset.x, y: Number(mark.dataset.y),
            left: Number(left), top: Number(top)};
  });"""

READ_TOOLTIP = """
  const tooltip = document.querySelector('#' + arguments[0] + ' .tooltip');
  return {shown: getComputedStyle(tooltip).visibility === 'visible',
          heading: (tooltip.querySelector('strong') || {textContent: ''}).textContent,
          values: Object.fromEntries([...tooltip.querySelectorAll('div')].map((line) =>
            [line.dataset.series, line.querySelector('.value').textContent.split(' ')[0]]))};"""

READ_TABLE = """
  const section = document.getElementById(arguments[0]);
  section.querySelector('details').open = true;
  section.querySelector('details').dispatchEvent(new Event('toggle'));
  return [...section.querySelectorAll('table.data tr')].map((row) =>
    [...row.children].map((cell) => cell.textContent));"""


class Enough(Exception):
    """One fault has been found, and no more are asked for."""


class PageCheck:
    def __init__(self, driver, page, measurements, first_only=False):
        """With first_only the content is looked at up to its first fault."""
        self.driver = driver
        self.page = page
        self.points = points_of(measurements)
        self.means = means_of(measurements)
        self.batch_summary = batch_summary_of(measurements)
        self.charts = tuple(chart for chart in CHARTS if chart != "python" or has_python(measurements))
        self.first_only = first_only
        self.complaints = []

    def complain(self, text):
        self.complaints.append(text)
        if self.first_only:
            raise Enough

    def run(self):
        """All that is wrong with the page, one text for each fault."""
        self._open()
        try:
            self._check_requests()
            self._check_log()
            if self.driver.execute_script("return document.documentElement.dataset.drawn") != "yes":
                self.complain("the page has not been drawn to its end")
            else:
                self._check_content()
                self._check_requests()
                self._check_log()
        except Enough:
            pass
        return self.complaints

    def _check_content(self):
        self.data = json.loads(self.driver.execute_script(
            "return document.getElementById('report-data').textContent"))
        ids = [chart["id"] for chart in self.data["charts"]]
        if tuple(ids) != self.charts:
            self.complain(f"the page has the charts {ids}, not {self.charts}")
            return
        self._check_overview()
        self._check_batch_summary()
        for family in self.data["families"]:
            self._choose(family["id"])
            self._check_points(family["id"])
            self._check_tables(family["id"])
        for family in ("real_fwd", "dct4"):
            self._choose(family)
            self._check_hovering(family)
        self._check_keys()
        self._check_toggles()
        self._check_printing()

    def _open(self):
        self.driver.get_log("performance")
        self.driver.get_log("browser")
        self.driver.get(self.page.resolve().as_uri())

    def _choose(self, family):
        button = self.driver.find_element(By.CSS_SELECTOR, f"input[value={family}] + span")
        self.driver.execute_script("arguments[0].scrollIntoView({block: 'center'})", button)
        button.click()

    def _views(self, family):
        for chart in self.data["charts"]:
            for panel in chart["views"][family]["panels"]:
                yield chart["id"], panel

    def _check_points(self, family):
        drawn = {}
        panels = {}
        for mark in self.driver.execute_script(READ_POINTS):
            key = (mark["chart"], family, mark["panel"], mark["series"])
            drawn.setdefault(key, {})[mark["x"]] = mark["y"]
            panels.setdefault(key[:3], []).append(mark)
        in_data = {(chart, family, panel["id"], series["name"]):
                   {str(x): y for x, y in series["points"] if y is not None}
                   for chart, panel in self._views(family) for series in panel["series"]}
        if drawn.keys() != in_data.keys():
            self.complain(f"{family}: drawn are other series than those of the data:"
                          f" {sorted(drawn.keys() ^ in_data.keys())}")
        for key, points in in_data.items():
            if drawn.get(key) != points:
                self.complain(f"{key}: drawn are {drawn.get(key)}, in the data {points}")
        for key, points in self.points.items():
            if key[1] == family and drawn.get(key) != points:
                self.complain(f"{key}: drawn are {drawn.get(key)}, measured were {points}")
        for key, marks in panels.items():
            self._check_positions(key, marks)

    def _check_positions(self, key, marks):
        """What is more stands higher; what is further stands to the right."""
        marks.sort(key=lambda mark: mark["y"])
        for less, more in zip(marks, marks[1:]):
            if less["y"] < more["y"] and not less["top"] > more["top"]:
                self.complain(f"{key}: {more['y']} does not stand higher than {less['y']}")
        if any(not mark["x"].isdigit() for mark in marks):
            return
        marks.sort(key=lambda mark: int(mark["x"]))
        for near, far in zip(marks, marks[1:]):
            if int(near["x"]) < int(far["x"]) and not near["left"] < far["left"]:
                self.complain(f"{key}: {far['x']} does not stand to the right of {near['x']}")

    def _check_tables(self, family):
        for chart in self.charts:
            head, *rows = self.driver.execute_script(READ_TABLE, chart)
            series = [one for chart_id, panel in self._views(family) if chart_id == chart
                      for one in panel["series"]]
            if len(head) != 1 + len(series):
                self.complain(f"{chart}, {family}: the table has {len(head)} columns for"
                              f" {len(series)} series")
                continue
            for column, one in enumerate(series, 1):
                wanted = {str(x): y for x, y in one["points"] if y is not None}
                found = {row[0]: float(row[column]) for row in rows if row[column] != "\u2013"}
                if found != wanted:
                    self.complain(f"{chart}, {family}: the table has {found} for"
                                  f" {one['name']}, not {wanted}")

    def _wanted_tooltip(self, panel, x):
        values = {}
        for series in panel["series"]:
            y = dict((str(at), value) for at, value in series["points"]).get(x)
            values[series["name"]] = "none" if y is None else y
        return values

    def _expect_tooltip(self, chart, family, panel, x):
        tooltip = self.driver.execute_script(READ_TOOLTIP, chart)
        found = {name: text if text == "none" else float(text)
                 for name, text in tooltip["values"].items()}
        wanted = self._wanted_tooltip(panel, x)
        if not tooltip["shown"] or found != wanted or x not in tooltip["heading"]:
            self.complain(f"{chart}, {family}, at {x}: the tooltip says {tooltip}, not {wanted}")

    def _check_hovering(self, family):
        for chart, panel in self._views(family):
            marks = self.driver.find_elements(
                By.CSS_SELECTOR, f"#{chart} svg[data-panel='{panel['id']}'] .point")
            for mark in (marks[0], marks[len(marks) // 2], marks[-1]):
                self.driver.execute_script("arguments[0].scrollIntoView({block: 'center'})", mark)
                ActionChains(self.driver, duration=0).move_to_element(mark).perform()
                self._expect_tooltip(chart, family, panel, mark.get_attribute("data-x"))

    def _check_keys(self):
        chart, panel = next(self._views("dct4"))
        svg = self.driver.find_element(By.CSS_SELECTOR, f"#{chart} svg[data-panel='32']")
        # The pointer must not speak for the keys.
        heading = self.driver.find_element(By.CSS_SELECTOR, f"#{chart} h2")
        self.driver.execute_script("arguments[0].scrollIntoView({block: 'center'})", heading)
        ActionChains(self.driver, duration=0).move_to_element(heading).perform()
        self.driver.execute_script("arguments[0].focus()", svg)
        ActionChains(self.driver).send_keys(Keys.ARROW_RIGHT, Keys.ARROW_RIGHT).perform()
        self._expect_tooltip(chart, "dct4", panel, str(panel["series"][0]["points"][1][0]))

    def _count(self, chart):
        return len(self.driver.find_elements(By.CSS_SELECTOR, f"#{chart} svg[data-panel] .point"))

    def _check_toggles(self):
        # It has something in each chart.
        self._choose("real_fwd")
        for chart in self.charts:
            before = self._count(chart)
            def press(selector):
                button = self.driver.find_element(By.CSS_SELECTOR, f"#{chart} {selector}")
                self.driver.execute_script("arguments[0].scrollIntoView({block: 'center'})", button)
                button.click()
            press(".scale input")
            if self._count(chart) != before:
                self.complain(f"{chart}: the other scale shows {self._count(chart)} points of"
                              f" {before}")
            press(".legend button")
            pressed = self.driver.find_element(By.CSS_SELECTOR, f"#{chart} .legend button")
            if pressed.get_attribute("aria-pressed") != "false" or self._count(chart) >= before:
                self.complain(f"{chart}: pressing a series does not hide it")
            press(".legend button")
            if self._count(chart) != before:
                self.complain(f"{chart}: pressing a series again does not bring it back")

    def _check_printing(self):
        def families():
            return {heading.text for heading in
                    self.driver.find_elements(By.CSS_SELECTOR, "h2 .of-family")}
        first = self.data["families"][0]["name"]
        before = families()
        self.driver.execute_script("window.dispatchEvent(new Event('beforeprint'))")
        if families() != {first}:
            self.complain(f"printed are {families()}, not {first}")
        self.driver.execute_script("window.dispatchEvent(new Event('afterprint'))")
        if families() != before:
            self.complain(f"after printing the page shows {families()}, not {before}")

    def _check_overview(self):
        rows = [(f["id"], panel) for f in self.data["families"] for panel in ("32", "64")]
        labels = [row["label"] for row in self.data["overview"]]
        marks = self.driver.execute_script(
            "return [...document.querySelectorAll('#overview .point')]"
            ".map((m) => [m.dataset.row, m.dataset.role, Number(m.dataset.y)])")
        found = {(*rows[labels.index(label)], role): mean for label, role, mean in marks}
        if found != self.means:
            self.complain(f"the overview shows {found}, measured were {self.means}")

    def _check_batch_summary(self):
        rows = self.driver.execute_script(
            "return [...document.querySelectorAll('#batch-summary tbody tr')]"
            ".map((row) => [...row.children].map((cell) => cell.textContent))")
        names = {family["name"]: family["id"] for family in self.data["families"]}
        found = {(names[family], *where): figures for family, *where, fftw, fftw_worst, single,
                 single_worst in rows for figures in [[fftw, fftw_worst, single, single_worst]]}
        if found != self.batch_summary:
            self.complain(f"the table of batches has {found}, measured were {self.batch_summary}")

    def _check_requests(self):
        own = self.page.resolve().as_uri()
        for entry in self.driver.get_log("performance"):
            message = json.loads(entry["message"])["message"]
            # The browser's own first page asks for things, too.
            if (message["method"] != "Network.requestWillBeSent"
                    or message["params"]["documentURL"].split("#")[0] != own):
                continue
            url = message["params"]["request"]["url"]
            if url.split("#")[0] != own and not url.startswith("data:"):
                self.complain(f"the page asks for {url}")

    def _check_log(self):
        for entry in self.driver.get_log("browser"):
            self.complain(f"the browser says: {entry['message']}")
