"use strict";
(function () {
  const data = JSON.parse(document.getElementById("report-data").textContent);

  /** Names and roles of the series that a view has in any panel. */
  function seriesOf(view) {
    const roles = new Map();
    for (const panel of view.panels) for (const one of panel.series) roles.set(one.name, one.role);
    return roles;
  }

  function tableOf(view) {
    const columns = view.panels.flatMap((panel) => panel.series.map((series) => ({
      name: `${series.name}, ${panel.title.replace(/.*\((.*)\)/, "$1")}`,
      at: new Map(series.points),
    })));
    const rows = [...new Set(view.panels.flatMap(xValues))];
    return [[view.x.label, ...columns.map((column) => column.name)],
      ...rows.map((x) => [x, ...columns.map((column) => {
        const y = column.at.get(x);
        return y === undefined ? null : y;
      })])];
  }

  class Chart {
    constructor(chart) {
      this.chart = chart;
      this.section = d3.select(document.getElementById(chart.id));
      this.figure = this.section.select("figure").node();
      this.tooltip = this.section.select(".tooltip");
      this.scale = this.section.select(".scale input").on("change", () => this.draw());
      this.section.select("details").on("toggle", () => this.fillTable());
      this.section.select(".copy").on("click", () => this.copy());
      this.reset(data.families[0]);
    }

    /** The view that the page opens with. */
    reset(family) {
      this.hidden = new Set();
      this.scale.property("checked", this.chart.y.log);
      this.choose(family);
    }

    choose(family) {
      this.family = family;
      this.view = this.chart.views[family.id];
      this.section.select(".of-family").text(family.name);
      this.section.select(".note").text(this.view.note);
      this.draw();
      this.fillTable();
    }

    draw() {
      const isLog = this.scale.property("checked");
      const y = yScale(this.view, this.chart.y, isLog, this.hidden);
      const container = this.section.select(".panels").text("").node();
      this.tooltip.classed("shown", false);
      for (const panel of this.view.panels) {
        drawPanel(container, this.view, panel, this.chart.y, y, isLog,
          this.hidden, this.figure, this.tooltip);
      }
      this.drawLegend();
    }

    drawLegend() {
      const legend = this.section.select(".legend");
      const focused = document.activeElement && document.activeElement.dataset.series;
      const hadFocus = legend.node().contains(document.activeElement);
      legend.text("");
      for (const [name, role] of seriesOf(this.view)) {
        const button = legend.append("li").append("button").attr("type", "button")
          .attr("data-series", name).attr("aria-pressed", String(!this.hidden.has(name)))
          .on("click", () => {
            if (!this.hidden.delete(name)) this.hidden.add(name);
            this.draw();
          });
        appendSwatch(button, role);
        button.append("span").text(name);
        if (hadFocus && focused === name) button.node().focus();
      }
    }

    fillTable() {
      const table = this.section.select("table.data").text("");
      if (!this.section.select("details").property("open")) return;
      const [head, ...rows] = tableOf(this.view);
      table.append("thead").append("tr").selectAll("th").data(head).enter().append("th")
        .attr("scope", "col").text((name) => name);
      table.append("tbody").selectAll("tr").data(rows).enter().append("tr").selectAll("td")
        .data((row) => row).enter().append("td").text(shown);
    }

    copy() {
      const cell = (value) => (value === null ? "" : `"${value}"`.replace(/^"([-0-9.e+]*)"$/, "$1"));
      const text = tableOf(this.view).map((row) => row.map(cell).join(",")).join("\n");
      const area = document.body.appendChild(document.createElement("textarea"));
      area.value = text;
      area.select();
      // Pages that were opened as files may lack the newer interface.
      document.execCommand("copy");
      area.remove();
      this.section.select(".copy").text("Copied").transition().delay(1500).text("Copy as CSV");
    }
  }

  drawOverview(document.getElementById("overview"), data.overview);
  const charts = data.charts.map((chart) => new Chart(chart));
  const choice = d3.selectAll("#family input");

  function chosen() {
    const id = choice.filter(function () { return this.checked; }).property("value");
    return data.families.find((family) => family.id === id);
  }
  choice.on("change", () => charts.forEach((chart) => chart.choose(chosen())));

  // On paper each chart stands as the page opens with it.
  let beforePrint = null;
  window.addEventListener("beforeprint", () => {
    beforePrint = charts.map((chart) => ({ hidden: chart.hidden, log: chart.scale.property("checked") }));
    charts.forEach((chart) => chart.reset(data.families[0]));
  });
  window.addEventListener("afterprint", () => {
    charts.forEach((chart, index) => {
      chart.hidden = beforePrint[index].hidden;
      chart.scale.property("checked", beforePrint[index].log);
      chart.choose(chosen());
    });
  });
  // For those who wait for the page: all is drawn.
  document.documentElement.dataset.drawn = "yes";
})();
