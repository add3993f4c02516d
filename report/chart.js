"use strict";
// One panel of a chart: axes, lines, markers, and a cursor that tells the figures.
const PANEL = { width: 620, height: 370, top: 30, right: 14, left: 62 };

/** Where the horizontal axis stands: names of categories take more room than numbers. */
function axisHeight(view) {
  return PANEL.height - (hasManyNames(view) ? 82 : 48);
}

function hasManyNames(view) {
  return view.x.kind === "category" && view.panels.some((panel) => xValues(panel).length > 5);
}

/** The values of the horizontal axis that any series has, in order. */
function xValues(panel) {
  const seen = new Set();
  for (const series of panel.series) for (const [x] of series.points) seen.add(x);
  return [...seen];
}

function xScale(axis, values) {
  const range = [PANEL.left + 8, PANEL.width - PANEL.right - 8];
  if (axis.kind === "category") return d3.scalePoint().domain(values).range(range).padding(0.5);
  const extent = d3.extent(values);
  if (axis.kind === "log2") return d3.scaleLog().base(2).domain(extent).range(range);
  return d3.scaleLinear().domain(extent).range(range);
}

function xTicks(axis, values) {
  if (axis.kind === "category") return values;
  if (axis.kind === "log2") return values.filter((x) => Math.log2(x) % 2 === 1);
  const [low, high] = d3.extent(values);
  if (high - low <= 16) return values;
  return d3.range(8, high + 1, 8).filter((x) => x >= low);
}

/** The same scale for all panels of a view, so that they can be compared. */
function yScale(view, axis, isLog, hidden) {
  const values = view.panels.flatMap((panel) => panel.series.filter((s) => !hidden.has(s.name)))
    .flatMap((series) => series.points.map(([, y]) => y)).filter((y) => y !== null);
  if (axis.reference !== undefined) values.push(axis.reference);
  const range = [axisHeight(view), PANEL.top];
  const largest = d3.max(values) || 1;
  if (!isLog) return d3.scaleLinear().domain([0, largest * 1.05]).range(range);
  // No logarithm has a zero, but counts do: linear below 1, then.
  if (!(d3.min(values) > 0)) return d3.scaleSymlog().domain([0, largest * 1.15]).range(range);
  return d3.scaleLog().domain([d3.min(values) / 1.15, largest * 1.15]).range(range);
}

function yTicksOf(y, isLog) {
  const [low, high] = y.domain();
  if (!isLog) return y.ticks(7);
  return low > 0 ? logTicks([low, high]) : [0, ...logTicks([1, high])];
}

function drawAxes(svg, view, panel, x, y, yAxis, isLog) {
  const values = xValues(panel);
  const yTicks = yTicksOf(y, isLog);
  svg.append("g").attr("class", "grid").attr("transform", `translate(${PANEL.left},0)`)
    .call(d3.axisLeft(y).tickValues(yTicks).tickFormat("")
      .tickSize(PANEL.left + PANEL.right - PANEL.width));
  svg.append("g").attr("transform", `translate(${PANEL.left},0)`)
    .call(d3.axisLeft(y).tickValues(yTicks).tickFormat(tickText).tickSizeOuter(0));
  const bottom = svg.append("g").attr("transform", `translate(0,${axisHeight(view)})`)
    .call(d3.axisBottom(x).tickSizeOuter(0).tickValues(xTicks(view.x, values))
      .tickFormat(view.x.kind === "category" ? null : tickText));
  if (hasManyNames(view)) {
    bottom.selectAll("text").attr("text-anchor", "end").attr("transform", "translate(-9,5) rotate(-50)")
      .style("font-size", "11px");
  } else {
    svg.append("text").attr("class", "axis-label").attr("text-anchor", "middle")
      .attr("x", (PANEL.left + PANEL.width) / 2).attr("y", PANEL.height - 10).text(view.x.label);
  }
  svg.append("text").attr("class", "axis-label").attr("text-anchor", "middle")
    .attr("transform", `translate(14,${(PANEL.top + axisHeight(view)) / 2}) rotate(-90)`)
    .text(yAxis.label);
  svg.append("text").attr("class", "panel-title").attr("x", PANEL.left).attr("y", 17)
    .text(panel.title);
  if (yAxis.reference !== undefined) {
    svg.append("line").attr("class", "reference").attr("x1", PANEL.left)
      .attr("x2", PANEL.width - PANEL.right).attr("y1", y(yAxis.reference))
      .attr("y2", y(yAxis.reference));
  }
}

function drawSeries(svg, view, series, x, y) {
  const drawable = ([, value]) => value !== null;
  if (view.x.kind !== "category") {
    const line = d3.line().defined(drawable).x(([at]) => x(at)).y(([, value]) => y(value));
    styleLine(svg.append("path").attr("class", "line").attr("d", line(series.points)), series.role);
  }
  const size = series.points.length > 40 ? 22 : 44;
  styleMarker(svg.append("g").selectAll("path").data(series.points.filter(drawable)).enter()
    .append("path").attr("class", "point").attr("data-series", series.name)
    .attr("data-x", ([at]) => at).attr("data-y", ([, value]) => value)
    .attr("d", markPath(series.role, size))
    .attr("transform", ([at, value]) => `translate(${x(at)},${y(value)})`), series.role);
}

/** Tells all figures at the value nearest to the pointer, or moved to by the arrow keys. */
function addCursor(svg, view, panel, x, yAxis, figure, tooltip, hidden) {
  const values = xValues(panel);
  const cursor = svg.append("line").attr("class", "cursor").attr("y1", PANEL.top)
    .attr("y2", axisHeight(view));
  let index = -1;

  function show(at, clientY) {
    index = at;
    const value = values[index];
    cursor.attr("x1", x(value)).attr("x2", x(value)).style("visibility", "visible");
    tooltip.text("").append("strong").text(`${view.x.heading}${value}, ${panel.title}`);
    for (const series of panel.series.filter((one) => !hidden.has(one.name))) {
      const point = series.points.find(([where]) => where === value);
      const line = tooltip.append("div").attr("data-series", series.name);
      appendSwatch(line, series.role);
      line.append("span").text(series.name);
      const has = point !== undefined && point[1] !== null;
      line.append("span").attr("class", "value")
        .text(has ? `${shown(point[1])} ${yAxis.unit}`.trim() : "none");
    }
    tooltip.classed("shown", true);
    const box = svg.node().getBoundingClientRect();
    placeTooltip(figure, tooltip.node(), box.left + (x(value) / PANEL.width) * box.width,
      clientY === undefined ? box.top + box.height / 2 : clientY);
  }
  function hide() {
    index = -1;
    cursor.style("visibility", "hidden");
    tooltip.classed("shown", false);
  }

  svg.on("mousemove", () => {
    const [pointer] = d3.mouse(svg.node());
    show(d3.scan(values, (a, b) => Math.abs(x(a) - pointer) - Math.abs(x(b) - pointer)),
      d3.event.clientY);
  }).on("mouseleave", hide).on("blur", hide).on("keydown", () => {
    const step = { ArrowLeft: -1, ArrowRight: 1 }[d3.event.key];
    if (d3.event.key === "Escape") hide();
    if (step === undefined) return;
    d3.event.preventDefault();
    const last = values.length - 1;
    show(index < 0 ? (step > 0 ? 0 : last) : Math.max(0, Math.min(last, index + step)));
  });
}

function drawPanel(container, view, panel, yAxis, y, isLog, hidden, figure, tooltip) {
  const svg = d3.select(container).append("svg")
    .attr("viewBox", `0 0 ${PANEL.width} ${PANEL.height}`).attr("data-panel", panel.id)
    .attr("tabindex", 0).attr("role", "application")
    .attr("aria-label", `${yAxis.label}, ${panel.title}; arrow keys tell the figures`);
  const x = xScale(view.x, xValues(panel));
  drawAxes(svg, view, panel, x, y, yAxis, isLog);
  const visible = panel.series.filter((series) => !hidden.has(series.name));
  // The first series is ours: it goes on top.
  for (const series of visible.slice().reverse()) drawSeries(svg, view, series, x, y);
  addCursor(svg, view, panel, x, yAxis, figure, tooltip, hidden);
}
